#pragma once

#include <QString>
#include <QTemporaryDir>

#include <optional>

class Console;
class DashboardDocument;

/// The folder that packages are unpacked into while a subcommand runs. It is removed with
/// everything in it at the end, also when the program is interrupted. One at a time.
class Workspace
{
public:
    Workspace();
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    ~Workspace();

    /// Opens a package. The document must not be used after the workspace is gone.
    /// @return false after a failure, which was reported.
    [[nodiscard]] bool open(DashboardDocument& document, const QString& packagePath,
                            Console& console) const;

private:
    std::optional<QTemporaryDir> m_folder;
};

#pragma once

#include <QString>

/// A memory-backed disk of a few pages, mounted for as long as the object lives. Needs the right to
/// mount; without it isMounted() is false and the test should be skipped.
class SmallDisk
{
public:
    static constexpr int kPage = 4096; ///< bytes; sizes are whole pages

    /// @param folder an existing, empty folder.
    SmallDisk(const QString& folder, int pages);
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk();

    [[nodiscard]] bool isMounted() const { return m_mounted; }
    /// Fails when more is in use already.
    [[nodiscard]] bool resize(int pages);
    [[nodiscard]] bool setReadOnly(bool readOnly);

private:
    QByteArray m_folder;
    bool m_mounted;
};

#pragma once

#include <QDir>
#include <QString>

#include <functional>

/// Runs body in a child process to which file permissions apply, also when the tests run as root.
/// Unix only.
/// @return what body returned; when the child cannot be made, cannot drop its rights or dies before
/// body returns, the test fails.
[[nodiscard]] bool runUnprivileged(const std::function<bool()>& body);

/// Template for a temporary folder that such a child can be let into: on Unix not inside the folder
/// that the tests otherwise use, which is closed to other users.
[[nodiscard]] inline QString openFolderTemplate()
{
#ifdef Q_OS_UNIX
    return QStringLiteral("/tmp/gaugewright-XXXXXX");
#else
    return QDir::tempPath() + QStringLiteral("/gaugewright-XXXXXX");
#endif
}

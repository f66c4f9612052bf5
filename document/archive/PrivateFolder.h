#pragma once

#include <QString>

/// Makes the folder, readable by nobody else, where it is missing. False when it cannot be made.
[[nodiscard]] bool ensurePrivateFolder(const QString& path);

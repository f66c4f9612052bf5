#pragma once

#include "document/archive/Outcome.h"

#include <QString>

#include <optional>

/// Makes the folder, readable by nobody else, where it is missing.
///
/// Fails when it cannot be made, and when a link or the folder of another owner has its place: they
/// could read and change what is saved.
/// @param owner of the folder that was there before, as QFileInfo has it; nullopt for none
Outcome ensurePrivateFolder(const QString& path, std::optional<uint> owner);

#pragma once

class QString;

/// Takes the guided tour through a window of the editor: operates it step by step, checks what it
/// does and saves a picture of each step. After a step that fails the others are skipped.
/// @param samples folder of the sample files, an absolute path: a file dialog would look for a
///     relative one in the folder that it shows
/// @return the number of failures, for the process to exit with
int takeTour(const QString& samples, const QString& pictures);

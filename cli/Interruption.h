#pragma once

#include <QString>

/// What happens when the user or the system ends the program early: on Unix by a signal, also that
/// of a pipe whose reader has gone, on Windows by a console event.
namespace Interruption {

/// From now on removes the folder with everything in it before the program ends. One folder at a
/// time; an empty path stops it. Call during a pause.
void setFolder(const QString& folder);

/// Puts off an interruption while one lives, for work that must not be left half done. One at a
/// time.
class Pause
{
public:
    Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;
    ~Pause();
};

} // namespace Interruption

#pragma once

/// Sets style, font and colours to ones that depend on no desktop, so that the pictures of the tour
/// change only when the program does. Needs the application object.
/// @param dark  light texts on dark grounds, as dark desktops have them
void applyFixedLook(bool dark);

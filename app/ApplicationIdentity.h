#pragma once

/// Gives the application object its names, version and window icon. Call before any window exists.
/// A missing icon file leaves the windows without icon.
void applyApplicationIdentity();

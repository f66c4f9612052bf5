#pragma once

#include <cstdint>

/// Pixels of a display, and so of its pages, until a file says otherwise.
inline constexpr std::int32_t kDefaultDisplayWidth = 800;
inline constexpr std::int32_t kDefaultDisplayHeight = 480;

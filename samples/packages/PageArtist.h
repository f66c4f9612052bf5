#pragma once

#include "samples/packages/Layout.h"

#include <QImage>

namespace PageArtist {

/// The background image of a page: everything a dashboard shows that does not change while driving.
/// The same page always gives the same image. Needs a QGuiApplication for its fonts.
[[nodiscard]] QImage paintPage(const SampleLayout::Sheet& sheet, const SampleLayout::Page& page);

} // namespace PageArtist

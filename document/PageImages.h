#pragma once

#include "document/DashPage.h"

#include <QString>

/// Loads the background images of a document's pages within one budget of pixels.
class PageImages
{
public:
    /// Sets imagePath and image of the page: the file rawPath below the maker's image folder, else
    /// the one in overlayFolder that has the page's number. An image beyond the budget stays null.
    /// Does nothing without a QGuiApplication, because a pixmap needs one.
    void load(DashPage& page, const QString& rawPath, const QString& overlayFolder);

private:
    /// All images of a document together; four bytes each once decoded. A package of a few
    /// kilobytes can hold images that would fill the memory of any computer.
    static constexpr qint64 kMostPixels = 100'000'000;

    void loadFile(DashPage& page, const QString& candidate);

    qint64 m_pixelsLeft = kMostPixels;
};

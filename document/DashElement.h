#pragma once

#include <QColor>
#include <QString>

#include <pugixml.hpp>

#include <cstdint>

/// What an element shows, decided by the first of its gauge, digit or icon objects.
/// The numbers are part of the interface: tints and labels are chosen by them.
enum class ElementKind : std::int32_t
{
    Analog = 0,
    Digit = 1,
    Icon = 2,
    Other = 3
};

/// One element of a page: a plain value. Geometry is in whole pixels of the target display.
/// Copying a record copies the XML handle, not the XML.
struct DashElement
{
    QString name;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t w = 0;
    std::int32_t h = 0;
    QString channelLongName; ///< empty when the element is bound to no channel
    QString channelShortName;
    ElementKind kind = ElementKind::Other;
    QString valueFont; ///< empty when the element has no value text
    std::int32_t valueFontSize = 0;
    QColor valueColor; ///< invalid when the file gives none or an unreadable one
    QString labelFont;
    std::int32_t labelFontSize = 0;
    QColor labelColor;
    bool hasLabel = false;
    pugi::xml_node node; ///< non-owning handle into the document's overlay XML
};

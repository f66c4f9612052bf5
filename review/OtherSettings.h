#pragma once

#include <pugixml.hpp>

#include <string>

/// What the XML of an object says beyond what the records hold, as text to be compared. Equal
/// settings give equal texts, however the file spaces and spells them.
namespace OtherSettings {

/// Facts of an element that differ anyway, so that the properties behind them are left out.
struct Reported
{
    bool channel = false;
    bool valueStyle = false;
    bool labelStyle = false;
    bool texts = false;
};

[[nodiscard]] std::string ofElement(pugi::xml_node element, const Reported& reported);
/// Without its elements.
[[nodiscard]] std::string ofPage(pugi::xml_node page);
/// Of the configuration object and what is next to it, without pages, and without the display's
/// size when that differs anyway.
[[nodiscard]] std::string ofLayout(pugi::xml_node conf, bool displayReported);

} // namespace OtherSettings

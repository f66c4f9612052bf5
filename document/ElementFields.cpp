#include "document/ElementFields.h"

#include "document/ColorText.h"
#include "document/OverlaySchema.h"
#include "document/XmlTree.h"

#include <algorithm>
#include <array>

namespace Key = OverlaySchema::Key;

namespace ElementFields {

namespace {

constexpr std::array kRectangle{
    Field{Key::kXPos, &DashElement::x}, Field{Key::kYPos, &DashElement::y},
    Field{Key::kWidth, &DashElement::w}, Field{Key::kHeight, &DashElement::h}};

constexpr std::array kChannel{Field{Key::kLongName, &DashElement::channelLongName},
                              Field{Key::kShortName, &DashElement::channelShortName}};

constexpr std::array kValueStyle{Field{Key::kFont, &DashElement::valueFont},
                                 Field{Key::kFontSize, &DashElement::valueFontSize},
                                 Field{Key::kColor, &DashElement::valueColor}};

constexpr std::array kLabelStyle{Field{Key::kFont, &DashElement::labelFont},
                                 Field{Key::kFontSize, &DashElement::labelFontSize},
                                 Field{Key::kColor, &DashElement::labelColor}};

void readValue(pugi::xml_node property, std::int32_t& value)
{
    value = XmlTree::number(property);
}

void readValue(pugi::xml_node property, QString& value)
{
    value = XmlTree::text(property);
}

void readValue(pugi::xml_node property, QColor& value)
{
    value = ColorText::parse(XmlTree::text(property));
}

void writeValue(pugi::xml_node property, std::int32_t value)
{
    XmlTree::setNumber(property, value);
}

void writeValue(pugi::xml_node property, const QString& value)
{
    XmlTree::setText(property, value);
}

void writeValue(pugi::xml_node property, const QColor& value)
{
    XmlTree::setText(property, ColorText::format(value));
}

template <typename Value>
bool isSame(const Value& left, const Value& right)
{
    return left == right;
}

/// As the file would have them: a colour is also known in other forms than red, green and blue.
bool isSame(const QColor& left, const QColor& right)
{
    return left.isValid() == right.isValid() && left.rgba() == right.rgba();
}

/// Calls visit(property, field) for the properties of object that the table names.
template <typename Visit>
void forEachProperty(pugi::xml_node object, Fields fields, Visit visit)
{
    for (const pugi::xml_node property : XmlTree::properties(object)) {
        const char* const key = XmlTree::keyOf(property);
        const auto field = std::ranges::find_if(
            fields, [key](const Field& candidate) { return XmlTree::same(candidate.key, key); });
        if (field != fields.end())
            visit(property, *field);
    }
}

} // namespace

Fields rectangle()
{
    return kRectangle;
}

Fields channel()
{
    return kChannel;
}

Fields valueStyle()
{
    return kValueStyle;
}

Fields labelStyle()
{
    return kLabelStyle;
}

void read(pugi::xml_node object, Fields fields, DashElement& element)
{
    forEachProperty(object, fields, [&element](pugi::xml_node property, const Field& field) {
        std::visit([&](auto member) { readValue(property, element.*member); }, field.member);
    });
}

bool differ(Fields fields, const DashElement& left, const DashElement& right)
{
    return std::ranges::any_of(fields, [&](const Field& field) {
        return std::visit([&](auto member) { return !isSame(left.*member, right.*member); },
                          field.member);
    });
}

void writeChanges(pugi::xml_node object, Fields fields, const DashElement& asRead,
                  const DashElement& element)
{
    forEachProperty(object, fields, [&](pugi::xml_node property, const Field& field) {
        if (differ({&field, 1}, asRead, element))
            std::visit([&](auto member) { writeValue(property, element.*member); }, field.member);
    });
}

void copy(Fields fields, const DashElement& from, DashElement& to)
{
    for (const Field& field : fields)
        std::visit([&](auto member) { to.*member = from.*member; }, field.member);
}

} // namespace ElementFields

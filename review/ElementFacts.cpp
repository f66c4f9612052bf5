#include "review/ElementFacts.h"

#include "document/ElementKinds.h"
#include "document/OverlaySchema.h"
#include "review/FactText.h"

#include <initializer_list>

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;

namespace {

/// The values with that key in all objects of the classes, in document order, without empty ones.
QStringList valuesOf(pugi::xml_node element, std::initializer_list<const char*> classes,
                     const char* key)
{
    QStringList values;
    for (const pugi::xml_node object : XmlTree::objects(element)) {
        for (const char* const name : classes) {
            if (!XmlTree::hasClass(object, name))
                continue;
            for (const pugi::xml_node property : XmlTree::properties(object)) {
                const QString value = XmlTree::text(property);
                if (XmlTree::same(XmlTree::keyOf(property), key) && !value.isEmpty())
                    values.append(value);
            }
        }
    }
    return values;
}

} // namespace

QStringList ElementFacts::texts(const DashElement& element)
{
    return valuesOf(element.node, {Class::kLabel}, Key::kLabelText);
}

QStringList ElementFacts::fonts(const DashElement& element)
{
    QStringList fonts = valuesOf(element.node, {Class::kDigit, Class::kLabel}, Key::kFont);
    fonts.removeDuplicates();
    return fonts;
}

QString ElementFacts::kindName(const DashElement& element)
{
    const auto kind = ElementKinds::classify(element.node);
    return kind ? ElementKinds::name(*kind) : QStringLiteral("Other");
}

QString ElementFacts::channel(const DashElement& element)
{
    if (element.channelLongName.isEmpty())
        return QStringLiteral("none");
    return FactText::quoted(element.channelLongName) + QStringLiteral(" short ") +
           FactText::quoted(element.channelShortName);
}

QString ElementFacts::valueStyle(const DashElement& element)
{
    return FactText::style(element.valueFont, element.valueFontSize, element.valueColor);
}

QString ElementFacts::labelStyle(const DashElement& element)
{
    return FactText::style(element.labelFont, element.labelFontSize, element.labelColor);
}

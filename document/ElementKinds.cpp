#include "document/ElementKinds.h"

#include "document/OverlaySchema.h"
#include "document/XmlTree.h"

#include <QCoreApplication>

#include <array>
#include <cstddef>

namespace Class = OverlaySchema::Class;

namespace {

/// An element with this many labels is a strip of information, with fewer a caption.
constexpr int kInfoStripLabels = 3;

/// The parts that an element's kind depends on.
struct Parts
{
    bool axis = false;
    bool digit = false;
    bool bar = false;
    bool analog = false;
    bool icon = false;
    bool text = false; // of any label
    int labels = 0;
};

bool hasText(pugi::xml_node label)
{
    for (const pugi::xml_node property : XmlTree::properties(label)) {
        if (XmlTree::same(XmlTree::keyOf(property), OverlaySchema::Key::kLabelText) &&
            !XmlTree::text(property).isEmpty())
            return true;
    }
    return false;
}

Parts partsOf(pugi::xml_node element)
{
    Parts parts;
    for (const pugi::xml_node child : XmlTree::objects(element)) {
        if (XmlTree::hasClass(child, Class::kAxis)) {
            parts.axis = true;
        } else if (XmlTree::hasClass(child, Class::kDigit)) {
            parts.digit = true;
        } else if (XmlTree::hasClass(child, Class::kBar)) {
            parts.bar = true;
        } else if (XmlTree::hasClass(child, Class::kAnalog)) {
            parts.analog = true;
        } else if (XmlTree::hasClass(child, Class::kPictogram)) {
            parts.icon = true;
        } else if (XmlTree::hasClass(child, Class::kLabel)) {
            ++parts.labels;
            parts.text = parts.text || hasText(child);
        }
    }
    return parts;
}

struct Texts
{
    const char* id;
    const char* name;
};

const Texts& textsOf(ElementKinds::Kind kind)
{
    static constexpr std::array<Texts, 8> kTexts{{
        {"analog-gauge", QT_TRANSLATE_NOOP("ElementKinds", "Analog gauge")},
        {"bar-with-value", QT_TRANSLATE_NOOP("ElementKinds", "Bar + value")},
        {"horizontal-bar", QT_TRANSLATE_NOOP("ElementKinds", "Horizontal bar")},
        {"value-with-icon", QT_TRANSLATE_NOOP("ElementKinds", "Numeric value + icon")},
        {"numeric-value", QT_TRANSLATE_NOOP("ElementKinds", "Numeric value")},
        {"icon", QT_TRANSLATE_NOOP("ElementKinds", "Icon")},
        {"static-label", QT_TRANSLATE_NOOP("ElementKinds", "Static label")},
        {"info-strip", QT_TRANSLATE_NOOP("ElementKinds", "Info strip (multi-label)")},
    }};
    return kTexts.at(static_cast<std::size_t>(kind));
}

} // namespace

std::optional<ElementKinds::Kind> ElementKinds::classify(pugi::xml_node element)
{
    const Parts parts = partsOf(element);
    if (parts.analog)
        return Kind::AnalogGauge;
    if (parts.bar)
        return parts.digit ? Kind::BarWithValue : Kind::HorizontalBar;
    if (parts.digit)
        return parts.icon ? Kind::ValueWithIcon : Kind::NumericValue;
    if (parts.icon)
        return Kind::Icon;
    if (parts.axis || !parts.text)
        return std::nullopt;
    return parts.labels < kInfoStripLabels ? Kind::StaticLabel : Kind::InfoStrip;
}

QString ElementKinds::id(Kind kind)
{
    return QString::fromLatin1(textsOf(kind).id);
}

QString ElementKinds::name(Kind kind)
{
    return QCoreApplication::translate("ElementKinds", textsOf(kind).name);
}

#include "dialogs/DonorDiscovery.h"

#include "document/DashboardDocument.h"
#include "document/OverlaySchema.h"
#include "document/XmlTree.h"

#include <QCoreApplication>

#include <array>
#include <cstddef>
#include <set>

namespace Class = OverlaySchema::Class;

namespace {

/// An element with this many labels is a strip of information, with fewer a caption.
constexpr int kInfoStripLabels = 3;

/// What an element is made of, as far as its kind depends on it.
struct Parts
{
    bool axis = false;
    bool digit = false;
    bool bar = false;
    bool analog = false;
    bool icon = false;
    bool text = false; // some label has a text
    int labels = 0;
};

bool hasText(pugi::xml_node label)
{
    for (const pugi::xml_node property : XmlTree::properties(label)) {
        if (XmlTree::same(XmlTree::keyOf(property), OverlaySchema::Key::kLabelText) &&
            *property.child_value() != '\0')
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

Donor donorFrom(const DashElement& element, DonorDiscovery::Kind kind)
{
    const QString& channel = element.channelLongName;
    return {DonorDiscovery::kindName(kind),
            QCoreApplication::translate("DonorDiscovery", "e.g. %1 (%2x%3)")
                .arg(channel.isEmpty() ? element.name : channel, QString::number(element.w),
                     QString::number(element.h)),
            element.node, element.w, element.h};
}

} // namespace

std::optional<DonorDiscovery::Kind> DonorDiscovery::classifyElement(pugi::xml_node element)
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

QString DonorDiscovery::kindName(Kind kind)
{
    static constexpr std::array kNames{
        QT_TRANSLATE_NOOP("DonorDiscovery", "Analog gauge"),
        QT_TRANSLATE_NOOP("DonorDiscovery", "Bar + value"),
        QT_TRANSLATE_NOOP("DonorDiscovery", "Horizontal bar"),
        QT_TRANSLATE_NOOP("DonorDiscovery", "Numeric value + icon"),
        QT_TRANSLATE_NOOP("DonorDiscovery", "Numeric value"),
        QT_TRANSLATE_NOOP("DonorDiscovery", "Icon"),
        QT_TRANSLATE_NOOP("DonorDiscovery", "Static label"),
        QT_TRANSLATE_NOOP("DonorDiscovery", "Info strip (multi-label)"),
    };
    return QCoreApplication::translate("DonorDiscovery", kNames[static_cast<std::size_t>(kind)]);
}

std::vector<Donor> DonorDiscovery::findDonors(const DashboardDocument& document)
{
    std::vector<Donor> donors;
    std::set<Kind> found;
    for (const DashPage& page : document.pages()) {
        for (const DashElement& element : page.elements) {
            const std::optional<Kind> kind = classifyElement(element.node);
            if (kind && found.insert(*kind).second)
                donors.push_back(donorFrom(element, *kind));
        }
    }
    return donors;
}

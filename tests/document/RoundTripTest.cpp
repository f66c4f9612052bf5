// What comes back from a save, on random documents that hold everything real files should not.

#include "document/OverlaySchema.h"
#include "document/XmlTree.h"
#include "tests/support/InStep.h"
#include "tests/support/LoadedOverlay.h"
#include "tests/support/RandomOverlay.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace {

QByteArray randomOverlay()
{
    const auto bytes = *rc::gen::scale(5.0, rc::gen::arbitrary<std::vector<std::uint8_t>>());
    ByteSource source(bytes);
    return RandomOverlay::xml(source);
}

bool isStyleObject(pugi::xml_node object)
{
    return XmlTree::hasClass(object, "Digit") || XmlTree::hasClass(object, "Label");
}

/// Whether a save may change the text of this property.
bool isEditable(pugi::xml_node property)
{
    static const std::set<std::string> rectangle{"XPOS", "YPOS", "WIDTH", "HEIGHT"};
    static const std::set<std::string> style{"CHARSET_DIM", "CHAR_SET_ID_2", "COLORE"};
    const std::string key = XmlTree::keyOf(property);
    const pugi::xml_node object = property.parent();
    if (XmlTree::hasClass(object, OverlaySchema::Class::kElement))
        return rectangle.contains(key);
    return isStyleObject(object) && style.contains(key);
}

/// The whole document in one text, less what a save may change.
void describe(pugi::xml_node node, std::string& text)
{
    text += '<' + std::string(node.name()) + node.value();
    for (const pugi::xml_attribute attribute : node.attributes())
        text += std::string(" ") + attribute.name() + '=' + attribute.value();
    text += '>';
    if (XmlTree::same(node.name(), XmlTree::kProperty) && isEditable(node))
        return;
    for (const pugi::xml_node child : node.children())
        describe(child, text);
    text += "</>";
}

/// An unreadable colour is written as black, where its style is written and has a place for it.
void settleColor(pugi::xml_node element, const char* className, const QString& font, QColor& color)
{
    pugi::xml_node style;
    for (const pugi::xml_node object : XmlTree::objects(element)) {
        if (XmlTree::hasClass(object, className))
            style = object; // the last one counts
    }
    const bool written =
        !font.isEmpty() && style.find_child_by_attribute(XmlTree::kProperty, XmlTree::kKey,
                                                         OverlaySchema::Key::kColor);
    if (written && !color.isValid())
        color = Qt::black;
}

/// Brings the records to what they are once saved and read again.
void settle(DashboardDocument& document)
{
    for (int page = 0; page < document.pageCount(); ++page) {
        for (DashElement& element : document.pageAt(page)->elements) {
            settleColor(element.node, "Digit", element.valueFont, element.valueColor);
            settleColor(element.node, "Label", element.labelFont, element.labelColor);
        }
    }
}

std::string unchangeable(const DashboardDocument& document)
{
    std::string text;
    describe(document.confNode().root(), text);
    return text;
}

} // namespace

RC_GTEST_PROP(RoundTrip, KeepsEverythingButWhatTheEditorEdits, ())
{
    LoadedOverlay overlay(randomOverlay());
    RC_ASSERT(overlay.isLoaded());
    const std::string before = unchangeable(overlay.document);
    RC_ASSERT(overlay.load(overlay.written()));
    RC_ASSERT(unchangeable(overlay.document) == before);
}

RC_GTEST_PROP(RoundTrip, ReadingWhatWasWrittenGivesTheSameRecordsAndBytes, ())
{
    LoadedOverlay overlay(randomOverlay());
    settle(overlay.document);
    const std::string records = InStep::recordsText(overlay.document).toStdString();
    const QByteArray written = overlay.written();
    RC_ASSERT(overlay.load(written));
    RC_ASSERT(InStep::recordsText(overlay.document).toStdString() == records);
    RC_ASSERT(overlay.written() == written);
}

RC_GTEST_PROP(RoundTrip, OrdinaryElementsComeBackAsTheyWereEdited, ())
{
    const auto numbers =
        *rc::gen::container<std::vector<std::int32_t>>(8, rc::gen::arbitrary<std::int32_t>());
    const auto font = *rc::gen::nonEmpty(rc::gen::string<std::string>());
    // The library drops blank text and turns carriage returns into line feeds.
    RC_PRE(!QString::fromStdString(font).trimmed().isEmpty() &&
           font.find('\r') == std::string::npos);
    LoadedOverlay overlay(TestPackage::overlayXml(
        {TestPackage::page("Race", 800, 480, {TestPackage::digitElement("mask.1", 0, 0, 0, 0)})}));
    DashElement& element = overlay.element(0, 0);
    element.x = numbers[0];
    element.y = numbers[1];
    element.w = numbers[2];
    element.h = numbers[3];
    element.valueFontSize = numbers[4];
    element.valueColor = QColor::fromRgba(static_cast<QRgb>(numbers[5]));
    element.valueFont = QString::fromStdString(font);
    const QByteArray records = InStep::recordsText(overlay.document);
    RC_ASSERT(overlay.load(overlay.written()));
    RC_ASSERT(InStep::recordsText(overlay.document).toStdString() == records.toStdString());
}

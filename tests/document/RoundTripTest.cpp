// What comes back from a save, on random documents that hold everything real files should not.

#include "document/OverlayReader.h"
#include "document/OverlaySchema.h"
#include "document/XmlTree.h"
#include "tests/support/InStep.h"
#include "tests/support/LoadedOverlay.h"
#include "tests/support/RandomOverlay.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

QByteArray randomOverlay()
{
    const auto bytes = *rc::gen::scale(5.0, rc::gen::arbitrary<std::vector<std::uint8_t>>());
    ByteSource source(bytes);
    return RandomOverlay::xml(source);
}

/// The whole document in one text.
void describe(pugi::xml_node node, std::string& text)
{
    text += '<' + std::string(node.name()) + node.value();
    for (const pugi::xml_attribute attribute : node.attributes())
        text += std::string(" ") + attribute.name() + '=' + attribute.value();
    text += '>';
    for (const pugi::xml_node child : node.children())
        describe(child, text);
    text += "</>";
}

std::string described(pugi::xml_node node)
{
    std::string text;
    describe(node, text);
    return text;
}

/// Sets every value of the key in the element node or in its objects of that class.
void setEverywhere(pugi::xml_node element, const char* className, const char* key,
                   const std::string& value)
{
    std::vector<pugi::xml_node> objects;
    if (XmlTree::hasClass(element, className))
        objects.push_back(element);
    for (const pugi::xml_node object : XmlTree::objects(element)) {
        if (XmlTree::hasClass(object, className))
            objects.push_back(object);
    }
    for (const pugi::xml_node object : objects) {
        for (pugi::xml_node property : object.children("p")) {
            if (std::string(property.attribute("n").value()) == key) {
                property.remove_children();
                property.append_child(pugi::node_pcdata).set_value(value.c_str());
            }
        }
    }
}

/// Edits fields of an element at random and sets the same in a copy of its XML.
class RandomEdit
{
public:
    RandomEdit(DashElement& element, pugi::xml_node expected)
        : m_element(element),
          m_expected(expected)
    {
        number(m_element.x, kElement, "XPOS");
        number(m_element.y, kElement, "YPOS");
        number(m_element.w, kElement, "WIDTH");
        number(m_element.h, kElement, "HEIGHT");
        style(m_element.valueFont, m_element.valueFontSize, m_element.valueColor, "Digit");
        style(m_element.labelFont, m_element.labelFontSize, m_element.labelColor, "Label");
    }

private:
    static constexpr const char* kElement = OverlaySchema::Class::kElement;

    template <typename Value>
    void field(Value& value, const Value& edited, const char* className, const char* key,
               const std::string& text)
    {
        if (*rc::gen::arbitrary<bool>() || value == edited)
            return;
        value = edited;
        setEverywhere(m_expected, className, key, text);
    }

    void number(std::int32_t& value, const char* className, const char* key)
    {
        const auto edited = *rc::gen::arbitrary<std::int32_t>();
        field(value, edited, className, key, std::to_string(edited));
    }

    void style(QString& font, std::int32_t& size, QColor& color, const char* className)
    {
        if (font.isEmpty())
            return; // then none of it is written
        const auto name = *rc::gen::element<std::string>("Arial", "  A\r ", "12abc");
        field(font, QString::fromStdString(name), className, "CHAR_SET_ID_2", name);
        number(size, className, "CHARSET_DIM");
        const auto rgba = *rc::gen::arbitrary<std::uint32_t>();
        std::array<char, 11> text{};
        std::snprintf(text.data(), text.size(), "0x%08x", rgba);
        field(color, QColor::fromRgba(rgba), className, "COLORE", text.data());
    }

    DashElement& m_element;
    pugi::xml_node m_expected;
};

} // namespace

RC_GTEST_PROP(RoundTrip, KeepsEveryTextOfADocumentThatNobodyEdited, ())
{
    LoadedOverlay overlay(randomOverlay());
    RC_ASSERT(overlay.isLoaded());
    const std::string before = described(overlay.document.confNode().root());
    const std::string records = InStep::recordsText(overlay.document).toStdString();
    const QByteArray written = overlay.written();
    RC_ASSERT(overlay.load(written));
    RC_ASSERT(described(overlay.document.confNode().root()) == before);
    RC_ASSERT(InStep::recordsText(overlay.document).toStdString() == records);
    RC_ASSERT(overlay.written() == written);
}

RC_GTEST_PROP(RoundTrip, ExactlyTheEditedValuesDiffer, ())
{
    LoadedOverlay overlay(randomOverlay());
    pugi::xml_document expected;
    for (const pugi::xml_node child : overlay.document.confNode().root().children())
        expected.append_copy(child);
    for (int i = 0; i < overlay.document.pageCount(); ++i) {
        const pugi::xml_node page =
            XmlTree::nthObject(OverlayReader::confNode(expected), OverlaySchema::Class::kPage, i);
        int position = 0;
        for (DashElement& element : overlay.document.pageAt(i)->elements) {
            RandomEdit(element,
                       XmlTree::nthObject(page, OverlaySchema::Class::kElement, position++));
        }
    }
    RC_ASSERT(overlay.load(overlay.written()));
    RC_ASSERT(described(overlay.document.confNode().root()) == described(expected));
}

RC_GTEST_PROP(RoundTrip, OrdinaryElementsComeBackAsTheyWereEdited, ())
{
    const auto numbers =
        *rc::gen::container<std::vector<std::int32_t>>(8, rc::gen::arbitrary<std::int32_t>());
    const auto font = *rc::gen::nonEmpty(rc::gen::string<std::string>());
    RC_PRE(!QString::fromStdString(font).trimmed().isEmpty()); // counts as no font
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

// The part of DashboardDocument that carries edited records back into the XML and saves it.

#include "document/ColorText.h"
#include "document/DashboardDocument.h"
#include "document/DashboardPackage.h"
#include "document/OverlaySchema.h"
#include "document/XmlTree.h"
#include "document/archive/AtomicFile.h"

#include <QIODevice>

namespace Class = OverlaySchema::Class;
namespace Key = OverlaySchema::Key;

namespace {

/// Hands the library's output to a device and remembers whether every byte went through.
class DeviceWriter : public pugi::xml_writer
{
public:
    explicit DeviceWriter(QIODevice& device) : m_device(device) {}

    void write(const void* data, size_t size) override
    {
        const auto length = static_cast<qint64>(size);
        m_ok = m_ok && m_device.write(static_cast<const char*>(data), length) == length;
    }

    [[nodiscard]] bool ok() const { return m_ok; }

private:
    QIODevice& m_device;
    bool m_ok = true;
};

void writeRectangle(pugi::xml_node node, const DashElement& element)
{
    for (const pugi::xml_node property : XmlTree::properties(node)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kXPos))
            XmlTree::setNumber(property, element.x);
        else if (XmlTree::same(key, Key::kYPos))
            XmlTree::setNumber(property, element.y);
        else if (XmlTree::same(key, Key::kWidth))
            XmlTree::setNumber(property, element.w);
        else if (XmlTree::same(key, Key::kHeight))
            XmlTree::setNumber(property, element.h);
    }
}

void writeStyle(pugi::xml_node object, const QString& font, int size, const QColor& color)
{
    if (font.isEmpty())
        return; // an element without this style keeps what its file says
    for (const pugi::xml_node property : XmlTree::properties(object)) {
        const char* const key = XmlTree::keyOf(property);
        if (XmlTree::same(key, Key::kFontSize))
            XmlTree::setNumber(property, size);
        else if (XmlTree::same(key, Key::kFont))
            XmlTree::setText(property, font);
        else if (XmlTree::same(key, Key::kColor))
            XmlTree::setText(property, ColorText::format(color));
    }
}

void writeElement(pugi::xml_node node, const DashElement& element)
{
    writeRectangle(node, element);
    for (const pugi::xml_node child : XmlTree::objects(node)) {
        if (XmlTree::hasClass(child, Class::kDigit))
            writeStyle(child, element.valueFont, element.valueFontSize, element.valueColor);
        else if (XmlTree::hasClass(child, Class::kLabel))
            writeStyle(child, element.labelFont, element.labelFontSize, element.labelColor);
    }
}

void writePage(pugi::xml_node node, const DashPage& page)
{
    auto element = page.elements.begin();
    for (const pugi::xml_node child : XmlTree::objects(node)) {
        if (!OverlaySchema::isElement(child))
            continue;
        if (element == page.elements.end())
            return;
        writeElement(child, *element++);
    }
}

} // namespace

bool DashboardDocument::save(const QString& destPath)
{
    if (m_overlayPath.isEmpty() || m_tempDir.isEmpty())
        return false;
    return writeBack(m_overlayPath) && DashboardPackage::packDirectory(m_tempDir, destPath);
}

bool DashboardDocument::writeBack(const QString& xmlPath)
{
    const pugi::xml_node conf = confNode();
    if (!conf)
        return false;
    auto page = m_pages.cbegin();
    for (const pugi::xml_node child : XmlTree::objects(conf)) {
        if (!XmlTree::hasClass(child, Class::kPage))
            continue;
        if (page == m_pages.cend())
            break;
        writePage(child, *page++);
    }
    return static_cast<bool>(replaceFile(xmlPath, [this](QIODevice& device) {
        DeviceWriter writer(device);
        m_overlayXml.save(writer, "  ", m_indented ? pugi::format_indent : pugi::format_raw);
        return writer.ok() ? Outcome() : Outcome::failure(device.errorString());
    }));
}

#include "document/XmlFile.h"

#include "document/DocumentLimits.h"
#include "document/DocumentText.h"
#include "document/XmlTree.h"
#include "document/archive/AtomicFile.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

#include <memory>

namespace {

struct Deallocate
{
    void operator()(char* memory) const { pugi::get_memory_deallocation_function()(memory); }
};
using Buffer = std::unique_ptr<char[], Deallocate>; // of the kind the library can take over

/// A value of blanks only survives; white space between elements does not.
constexpr unsigned kParseOptions = pugi::parse_default | pugi::parse_ws_pcdata_single;

/// The library does not keep comments, so the pieces around one would be saved as one text.
void keepFirstPiece(pugi::xml_node property)
{
    const pugi::xml_node value = property.text().data();
    while (value.type() == pugi::node_pcdata && value.next_sibling().type() == pugi::node_pcdata)
        property.remove_child(value.next_sibling());
}

/// Prepares the tree below node. False when elements are nested more than `levels` deep.
bool prepare(pugi::xml_node node, int levels)
{
    int children = 0;
    for (auto child = node.first_child(); child; child = child.next_sibling(), ++children) {
        if (child.type() == pugi::node_element && (levels == 0 || !prepare(child, levels - 1)))
            return false;
    }
    if (children > 1 && XmlTree::same(node.name(), XmlTree::kProperty))
        keepFirstPiece(node);
    return true;
}

/// Passes the library's output on to a device. The library writes a carriage return in a text as it
/// is, which would be a line feed when read again.
class DeviceWriter : public pugi::xml_writer
{
public:
    explicit DeviceWriter(QIODevice& device) : m_device(device) {}

    void write(const void* data, size_t size) override
    {
        const auto length = static_cast<qsizetype>(size);
        QByteArray bytes = QByteArray::fromRawData(static_cast<const char*>(data), length);
        if (bytes.contains('\r'))
            bytes.replace('\r', "&#13;");
        m_size += bytes.size();
        m_ok = m_ok && fits() && m_device.write(bytes) == bytes.size();
    }

    /// Whether the output can be read again.
    [[nodiscard]] bool fits() const { return m_size <= DocumentLimits::kXmlBytes; }
    [[nodiscard]] bool ok() const { return m_ok; }

private:
    QIODevice& m_device;
    qint64 m_size = 0;
    bool m_ok = true;
};

} // namespace

Outcome loadXmlFile(const QString& path, pugi::xml_document& document)
{
    QFile file(path);
    const QString name = QFileInfo(path).fileName();
    if (!file.open(QIODevice::ReadOnly))
        return Outcome::failure(
            DocumentText::tr("\"%1\" cannot be read: %2").arg(name, file.errorString()));
    if (file.size() > DocumentLimits::kXmlBytes)
        return Outcome::failure(DocumentText::tr("\"%1\" is larger than 64 MB").arg(name));
    const auto size = static_cast<std::size_t>(file.size());
    Buffer content(static_cast<char*>(pugi::get_memory_allocation_function()(size + 1)));
    if (!content || file.read(content.get(), file.size()) != file.size())
        return Outcome::failure(
            DocumentText::tr("\"%1\" cannot be read: %2").arg(name, file.errorString()));
    if (!document.load_buffer_inplace_own(content.release(), size, kParseOptions))
        return Outcome::failure(DocumentText::tr("\"%1\" is not well-formed XML").arg(name));
    if (!prepare(document, DocumentLimits::kXmlLevels))
        return Outcome::failure(DocumentText::tr("\"%1\" is nested too deeply").arg(name));
    return {};
}

Outcome saveXmlFile(const pugi::xml_document& document, const QString& path)
{
    for (const unsigned format : {pugi::format_indent, pugi::format_raw}) {
        bool fits = true;
        Outcome saved = replaceFileUnflushed(path, [&](QIODevice& device) {
            DeviceWriter writer(device);
            document.save(writer, "  ", format);
            fits = writer.fits();
            return writer.ok() ? Outcome() : Outcome::failure(device.errorString());
        });
        if (fits)
            return saved;
    }
    return Outcome::failure(
        DocumentText::tr("\"%1\" would be larger than 64 MB").arg(QFileInfo(path).fileName()));
}

#include "document/XmlFile.h"

#include "document/DashElement.h"
#include "document/OverlaySchema.h"
#include "document/archive/AtomicFile.h"

#include <QByteArray>
#include <QFile>

#include <memory>

namespace {

struct Deallocate
{
    void operator()(char* memory) const { pugi::get_memory_deallocation_function()(memory); }
};
using Buffer = std::unique_ptr<char[], Deallocate>; // of the kind the library can take over

constexpr qint64 kAlwaysReasonable = 500'000'000;

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

bool fitsIntoMemory(const QByteArray& xml)
{
    // Counting would take a third of the time of reading, and no ordinary text is that long.
    return xml.size() <= kAlwaysReasonable / kMostMemoryAByte ||
           isReasonableMemory(memoryOnceParsed(xml), xml.size());
}

} // namespace

qint64 memoryOnceParsed(const QByteArray& xml)
{
    constexpr qint64 kNode = 64;
    constexpr qint64 kAttribute = 40;
    constexpr qint64 kElement = sizeof(DashElement);
    constexpr qint64 kPage = 1000; // not so much, but looking for its image takes time as well
    const qint64 nodes = xml.count('<') - xml.count("</e>"); // texts end in "</" as well
    return kNode * nodes + kAttribute * xml.count('=') +
           kElement * xml.count(OverlaySchema::Class::kElement) +
           kPage * xml.count(OverlaySchema::Class::kPage);
}

bool isReasonableMemory(qint64 memory, qint64 size)
{
    constexpr qint64 kNever = 4'000'000'000;
    constexpr qint64 kHonestGrowth = 12; // empty elements take sixteen times their text
    return memory <= kAlwaysReasonable || (memory <= kNever && memory <= kHonestGrowth * size);
}

bool loadXmlFile(const QString& path, pugi::xml_document& document)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const auto size = static_cast<std::size_t>(file.size());
    Buffer content(static_cast<char*>(pugi::get_memory_allocation_function()(size + 1)));
    if (!content || file.read(content.get(), file.size()) != file.size() ||
        !fitsIntoMemory(QByteArray::fromRawData(content.get(), file.size())))
        return false;
    return document.load_buffer_inplace_own(content.release(), size);
}

Outcome saveXmlFile(const pugi::xml_document& document, const QString& path, bool indented)
{
    return replaceFileUnflushed(path, [&](QIODevice& device) {
        DeviceWriter writer(device);
        document.save(writer, "  ", indented ? pugi::format_indent : pugi::format_raw);
        return writer.ok() ? Outcome() : Outcome::failure(device.errorString());
    });
}

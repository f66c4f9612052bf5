#include "tests/support/RawArchive.h"

#include <QtEndian>

#include <zlib.h>

namespace RawArchive {

namespace {

constexpr quint32 kLocalSignature = 0x04034b50;
constexpr quint32 kDescriptorSignature = 0x08074b50;
constexpr quint32 kCentralSignature = 0x02014b50;
constexpr quint32 kEndSignature = 0x06054b50;
constexpr quint32 kWideEndSignature = 0x06064b50;
constexpr quint32 kWideLocatorSignature = 0x07064b50;
constexpr quint16 kVersionNeeded = 20;
constexpr quint32 kElsewhere = 0xffffffff;
constexpr qsizetype kFieldHeader = 4;

/// Appends integers in the archive's byte order.
class Bytes
{
public:
    template <typename T>
    Bytes& add(T value)
    {
        const T little = qToLittleEndian(value);
        m_bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
        return *this;
    }
    Bytes& add16(std::size_t value) { return add(static_cast<quint16>(value)); }
    Bytes& add32(std::size_t value) { return add(static_cast<quint32>(value)); }
    Bytes& addText(const QByteArray& text)
    {
        m_bytes.append(text);
        return *this;
    }
    [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(m_bytes.size()); }
    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

/// What both records of a member say.
struct Fields
{
    QByteArray data;
    quint32 crc;
    quint64 size;
    QByteArray wide;

    [[nodiscard]] quint32 shownSize() const
    {
        return wide.isEmpty() ? static_cast<quint32>(size) : kElsewhere;
    }
    [[nodiscard]] quint32 shownPacked() const
    {
        return wide.isEmpty() ? static_cast<quint32>(data.size()) : kElsewhere;
    }
};

Fields fieldsOf(const Member& member)
{
    Fields fields;
    fields.data =
        member.data.value_or(member.method == kDeflate ? deflated(member.content) : member.content);
    fields.crc = member.crc.value_or(
        static_cast<quint32>(crc32(0, reinterpret_cast<const Bytef*>(member.content.constData()),
                                   static_cast<uInt>(member.content.size()))));
    fields.size = member.size.value_or(static_cast<quint64>(member.content.size()));
    if (member.wideSizes) {
        fields.wide = Bytes()
                          .add16(1)
                          .add16(16)
                          .add(fields.size)
                          .add(static_cast<quint64>(fields.data.size()))
                          .bytes();
    }
    return fields;
}

/// A size as the local header has it without 64-bit fields.
template <typename T>
quint32 plainValue(bool late, T size)
{
    return late ? 0U : static_cast<quint32>(size);
}

void addLocal(Bytes& out, const Member& member, const Fields& fields)
{
    const bool late = (member.flags & kDataDescriptor) != 0;
    const QByteArray name = member.localName.value_or(member.name);
    out.add(kLocalSignature)
        .add(kVersionNeeded)
        .add(member.flags)
        .add(member.method)
        .add(member.date);
    out.add(late ? 0U : fields.crc);
    const bool plain = late || member.plainLocal;
    out.add(plain ? plainValue(late, fields.data.size()) : fields.shownPacked());
    out.add(plain ? plainValue(late, fields.size) : fields.shownSize());
    out.add16(static_cast<std::size_t>(name.size()));
    const QByteArray wide = member.localField.value_or(member.otherField) +
                            (member.plainLocal ? QByteArray() : fields.wide);
    out.add16(static_cast<std::size_t>(wide.size()));
    out.addText(name).addText(wide).addText(fields.data);
    if (late) {
        out.add(kDescriptorSignature).add(fields.crc);
        out.add32(static_cast<std::size_t>(fields.data.size())).add32(fields.size);
    }
}

/// The field for 64-bit values as the directory has it.
QByteArray wideField(const Member& member, const Fields& fields, std::size_t offset)
{
    if (!member.wideOffset)
        return fields.wide;
    QByteArray values = fields.wide.mid(kFieldHeader);
    values += Bytes().add(static_cast<quint64>(offset)).bytes();
    return Bytes().add16(1).add16(static_cast<std::size_t>(values.size())).addText(values).bytes();
}

void addCentral(Bytes& out, const Member& member, const Fields& fields, std::size_t offset)
{
    const QByteArray wide = member.otherField + wideField(member, fields, offset);
    const auto shownOffset = member.wideOffset ? kElsewhere : static_cast<quint32>(offset);
    out.add(kCentralSignature).add(member.madeBy).add(kVersionNeeded);
    out.add(member.flags).add(member.method).add(member.date).add(fields.crc);
    out.add(fields.shownPacked()).add(fields.shownSize());
    out.add16(static_cast<std::size_t>(member.name.size()));
    out.add16(static_cast<std::size_t>(wide.size()));
    out.add16(static_cast<std::size_t>(member.comment.size()));
    out.add16(0)
        .add(member.internalAttributes)
        .add(member.attributes)
        .add(member.offset.value_or(shownOffset));
    out.addText(member.name).addText(wide).addText(member.comment);
}

void addWideEnd(Bytes& out, std::size_t count, std::size_t start, std::size_t size)
{
    constexpr quint64 kLength = 44;
    const auto at = static_cast<quint64>(out.size());
    out.add(kWideEndSignature).add(kLength).add16(45).add16(45).add32(0).add32(0);
    out.add(static_cast<quint64>(count)).add(static_cast<quint64>(count));
    out.add(static_cast<quint64>(size)).add(static_cast<quint64>(start));
    out.add(kWideLocatorSignature).add32(0).add(at).add32(1);
}

} // namespace

QByteArray build(const Archive& archive)
{
    Bytes out;
    Bytes directory;
    for (const Member& member : archive.members) {
        const Fields fields = fieldsOf(member);
        addCentral(directory, member, fields, out.size());
        if (!member.listedOnly)
            addLocal(out, member, fields);
    }
    const std::size_t start = out.size();
    out.addText(directory.bytes());
    if (archive.wideEnd)
        addWideEnd(out, archive.members.size(), start, directory.size());
    const auto count = archive.count.value_or(
        static_cast<quint16>(archive.wideEnd ? 0xffffU : archive.members.size()));
    out.add(kEndSignature).add16(0).add16(0);
    out.add(archive.diskCount.value_or(count)).add(count);
    if (archive.endElsewhere)
        out.add(kElsewhere).add(kElsewhere);
    else
        out.add32(directory.size()).add32(start);
    out.add16(static_cast<std::size_t>(archive.comment.size())).addText(archive.comment);
    return archive.before + out.bytes() + archive.after;
}

QByteArray build(const std::vector<Member>& members)
{
    Archive archive;
    archive.members = members;
    return build(archive);
}

QByteArray deflated(const QByteArray& content)
{
    z_stream stream{};
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL,
                     Z_DEFAULT_STRATEGY) != Z_OK)
        return {};
    QByteArray result(
        static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(content.size()))), '\0');
    QByteArray input = content;
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.resize(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return result;
}

} // namespace RawArchive

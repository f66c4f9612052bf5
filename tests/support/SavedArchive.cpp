#include "tests/support/SavedArchive.h"

#include "document/archive/ArchiveReader.h"

#include <QBuffer>
#include <QFile>

#include <algorithm>

namespace {

/// The order of bytes in a file and how sizes are stored may change.
constexpr int kKeptFlags = 0xffff & ~(1 << 3);

std::string describe(const ArchiveMember& member, std::optional<quint32> rawCrc)
{
    QByteArray text = member.rawName.toPercentEncoding("/");
    for (const quint64 value :
         {quint64{member.versionMadeBy}, quint64(member.flags & kKeptFlags), quint64{member.method},
          quint64{member.dosDate}, quint64{member.crc}, member.packedSize, member.size,
          quint64{member.internalAttributes}, quint64{member.externalAttributes}})
        text += ' ' + QByteArray::number(value);
    text += ' ' + member.extra.toHex() + ' ' + member.comment.toHex();
    text += ' ' + (rawCrc ? QByteArray::number(*rawCrc) : QByteArray("unreadable"));
    return text.toStdString();
}

} // namespace

SavedArchive::SavedArchive(const QString& path)
{
    QFile file(path);
    m_whole = file.open(QIODevice::ReadOnly) && bool(readDirectory(file, m_directory));
    if (!m_whole)
        return;
    ArchiveReader reader(file, m_directory.members);
    for (std::size_t i = 0; i < m_directory.members.size(); ++i) {
        QBuffer content;
        content.open(QIODevice::WriteOnly);
        std::optional<quint32> rawCrc;
        m_whole = reader.extract(i, content, rawCrc) && rawCrc && m_whole;
        m_contents.push_back(content.data());
        m_members.push_back(describe(m_directory.members[i], reader.rawCrc(i)));
    }
}

QByteArrayList SavedArchive::names() const
{
    QByteArrayList names;
    for (const ArchiveMember& member : m_directory.members)
        names.append(member.rawName);
    return names;
}

QByteArray SavedArchive::content(std::size_t index) const
{
    return index < m_contents.size() ? m_contents[index] : QByteArray();
}

#include "document/archive/MemberStream.h"

#include <algorithm>

MemberStream::MemberStream(unzFile archive, quint64 recordAt, Form form) : m_archive(archive)
{
    int method = 0;
    int level = 0;
    const unz64_file_pos position{recordAt, 0};
    m_isOpen = unzGoToFilePos64(archive, &position) == UNZ_OK &&
               unzOpenCurrentFile2(archive, &method, &level, form == Form::Raw ? 1 : 0) == UNZ_OK;
}

QByteArray MemberStream::localExtra() const
{
    const int size = unzGetLocalExtrafield(m_archive, nullptr, 0);
    QByteArray extra(std::max(size, 0), '\0');
    const int count =
        unzGetLocalExtrafield(m_archive, extra.data(), static_cast<unsigned>(extra.size()));
    return count == size ? extra : QByteArray();
}

int MemberStream::read(char* buffer, unsigned size)
{
    return unzReadCurrentFile(m_archive, buffer, size);
}

bool MemberStream::close()
{
    const bool wasOpen = m_isOpen;
    m_isOpen = false;
    return wasOpen && unzCloseCurrentFile(m_archive) == UNZ_OK;
}

#pragma once

#include <QByteArray>
#include <QtEndian>

/// Numbers as the records of an archive hold them.
namespace LittleEndian {

/// The number at a position. The bytes must reach that far.
template <typename T>
[[nodiscard]] T read(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<T>(bytes.constData() + at);
}

template <typename T>
void append(QByteArray& bytes, T value)
{
    const T little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
}

} // namespace LittleEndian

#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <span>

/// Turns bytes into choices, so that a property test, a fuzzer and a stored input drive the very
/// same code. When the bytes run out every choice is the first one.
class ByteSource
{
public:
    explicit ByteSource(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool isEmpty() const { return m_position == m_bytes.size(); }

    [[nodiscard]] std::uint8_t byte()
    {
        return isEmpty() ? std::uint8_t{0} : m_bytes[m_position++];
    }

    /// A number from 0 to bound - 1; bound is at most 256.
    [[nodiscard]] int below(int bound) { return byte() % bound; }

    [[nodiscard]] bool flag() { return below(2) == 1; }

    /// Any 32-bit value, preferring those that tend to break arithmetic.
    [[nodiscard]] int number();

    /// Text as it may stand in XML, escaped; preferring what tends to break text handling.
    [[nodiscard]] QByteArray xmlText();

private:
    std::span<const std::uint8_t> m_bytes;
    std::size_t m_position = 0;
};

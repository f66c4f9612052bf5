#include "tests/support/ByteSource.h"

#include <array>
#include <limits>

int ByteSource::number()
{
    constexpr std::array kAwkward{0,
                                  1,
                                  -1,
                                  10,
                                  799,
                                  std::numeric_limits<int>::max(),
                                  std::numeric_limits<int>::max() - 1,
                                  std::numeric_limits<int>::min()};
    const auto choice = static_cast<std::size_t>(byte());
    if (choice < kAwkward.size())
        return kAwkward.at(choice);
    return byte() * 4 - 100;
}

QByteArray ByteSource::xmlText()
{
    constexpr std::array kTexts{"",
                                "Engine RPM",
                                "%1 %2",
                                "&amp;&lt;&gt;&quot;",
                                "Temp\xc3\xa9rature \xe6\xb0\xb4",
                                "&#9;tab",
                                "  spaced  ",
                                "\xff\xfe not UTF-8",
                                "&unknown;",
                                "12abc",
                                "12.7",
                                " ",
                                "one&#13;&#10;two&#13;",
                                "first<!-- lost -->second",
                                "0x80FF0000",
                                "-2147483648"};
    return kTexts.at(static_cast<std::size_t>(below(static_cast<int>(kTexts.size()))));
}

#pragma once

#include <QStringList>

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

/// Which items of a former list are which of the present one.
struct Pairing
{
    using Indices = std::vector<std::size_t>;

    std::vector<std::pair<std::size_t, std::size_t>> pairs; ///< former and present, by present
    Indices removed;                                        ///< former items without a partner
    Indices added;                                          ///< present items without a partner

    /// Those of the pairs whose items have changed places with others: as few as explain the
    /// order.
    [[nodiscard]] Indices reordered() const;
};

/// How much two items have in common, 0 to 100; the first index is the former item's.
using Likeness = std::function<int(std::size_t, std::size_t)>;

/// Least likeness of two items of different names that are taken for one.
inline constexpr int kAlike = 50;

/// Pairs items of the same name first, the most alike ones where a name occurs more than once, then
/// items that are at least kAlike; an empty name equals none. Items that only likeness could pair
/// stay apart when there are so many that comparing them would take long.
[[nodiscard]] Pairing pairUp(const QStringList& former, const QStringList& present,
                             const Likeness& likeness);

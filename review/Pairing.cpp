#include "review/Pairing.h"

#include <QHash>

#include <algorithm>
#include <iterator>
#include <tuple>

namespace {

using Indices = Pairing::Indices;

/// Comparing 200 items with 200 others takes a moment; a damaged package may hold a million.
constexpr std::size_t kMostComparisons = 40'000;

struct Candidate
{
    int likeness;
    std::size_t former;
    std::size_t present;
};

/// Partners found so far.
class Matching
{
public:
    Matching(qsizetype formerCount, qsizetype presentCount, const Likeness& likeness)
        : m_likeness(likeness),
          m_formerTaken(static_cast<std::size_t>(formerCount)),
          m_presentTaken(static_cast<std::size_t>(presentCount))
    {
    }

    /// Pairs the most alike first; in their order where there are too many to compare.
    void pairSameName(const Indices& former, const Indices& present)
    {
        if (former.size() * present.size() <= kMostComparisons) {
            pairAlike(former, present, 0);
            return;
        }
        for (std::size_t i = 0; i < std::min(former.size(), present.size()); ++i)
            take(former[i], present[i]);
    }

    void pairRest()
    {
        const Indices former = left(m_formerTaken);
        const Indices present = left(m_presentTaken);
        if (former.size() * present.size() <= kMostComparisons)
            pairAlike(former, present, kAlike);
    }

    [[nodiscard]] Pairing result()
    {
        std::sort(m_pairs.begin(), m_pairs.end(),
                  [](const auto& a, const auto& b) { return a.second < b.second; });
        return {m_pairs, left(m_formerTaken), left(m_presentTaken)};
    }

private:
    static Indices left(const std::vector<bool>& taken)
    {
        Indices indices;
        for (std::size_t i = 0; i < taken.size(); ++i) {
            if (!taken[i])
                indices.push_back(i);
        }
        return indices;
    }

    void pairAlike(const Indices& former, const Indices& present, int least)
    {
        std::vector<Candidate> candidates;
        for (const std::size_t f : former) {
            for (const std::size_t p : present) {
                if (const int likeness = m_likeness(f, p); likeness >= least)
                    candidates.push_back({likeness, f, p});
            }
        }
        std::sort(candidates.begin(), candidates.end(), [](const auto& a, const auto& b) {
            return std::tuple(-a.likeness, a.former, a.present) <
                   std::tuple(-b.likeness, b.former, b.present);
        });
        for (const Candidate& candidate : candidates) {
            if (!m_formerTaken[candidate.former] && !m_presentTaken[candidate.present])
                take(candidate.former, candidate.present);
        }
    }

    void take(std::size_t former, std::size_t present)
    {
        m_formerTaken[former] = true;
        m_presentTaken[present] = true;
        m_pairs.emplace_back(former, present);
    }

    const Likeness& m_likeness;
    std::vector<bool> m_formerTaken;
    std::vector<bool> m_presentTaken;
    std::vector<std::pair<std::size_t, std::size_t>> m_pairs;
};

QHash<QString, Indices> byName(const QStringList& names)
{
    QHash<QString, Indices> indices;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (!names[i].isEmpty())
            indices[names[i]].push_back(static_cast<std::size_t>(i));
    }
    return indices;
}

} // namespace

Pairing pairUp(const QStringList& former, const QStringList& present, const Likeness& likeness)
{
    Matching matching(former.size(), present.size(), likeness);
    const QHash<QString, Indices> presentByName = byName(present);
    const QHash<QString, Indices> formerByName = byName(former);
    for (auto entry = formerByName.begin(); entry != formerByName.end(); ++entry)
        matching.pairSameName(entry.value(), presentByName.value(entry.key()));
    matching.pairRest();
    return matching.result();
}

// The pairs outside a longest run whose former places ascend.
Pairing::Indices Pairing::reordered() const
{
    constexpr auto kNone = static_cast<std::size_t>(-1);
    Indices tails; // the pair that ends the best run of each length
    Indices previous(pairs.size(), kNone);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const auto tail =
            std::lower_bound(tails.begin(), tails.end(), i, [this](std::size_t a, std::size_t b) {
                return pairs[a].first < pairs[b].first;
            });
        if (tail != tails.begin())
            previous[i] = *std::prev(tail);
        if (tail == tails.end())
            tails.push_back(i);
        else
            *tail = i;
    }
    std::vector<bool> stays(pairs.size());
    for (std::size_t i = tails.empty() ? kNone : tails.back(); i != kNone; i = previous[i])
        stays[i] = true;
    Indices moved;
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        if (!stays[i])
            moved.push_back(i);
    }
    return moved;
}

// SPDX-License-Identifier: MIT
// Both lists of IDs are sorted and walked side by side. The IDs come from files, so that they are compared
// and not hashed: no choice of them makes the cost grow with the square.
#include "profile/ItemPairs.h"

#include <algorithm>
#include <numeric>

namespace {

using IDs = std::vector<kmStringView>;
using Positions = std::vector<std::size_t>;

// Those of equal IDs stay in the profile's order.
Positions SortedByID(const IDs& ids) {
    Positions sorted(ids.size());
    std::iota(sorted.begin(), sorted.end(), std::size_t{0});
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&ids](std::size_t a, std::size_t b) { return ids[a] < ids[b]; });
    return sorted;
}

std::vector<PairedItem> CountOccurrences(const IDs& ids, const Positions& sorted) {
    std::vector<PairedItem> items(ids.size());
    for (std::size_t i = 1; i < sorted.size(); ++i) {
        const std::size_t previous = sorted[i - 1];
        if (ids[previous] == ids[sorted[i]]) items[sorted[i]].occurrence = items[previous].occurrence + 1;
    }
    return items;
}

}  // namespace

ItemPairs PairItems(const IDs& firstIDs, const IDs& secondIDs) {
    const Positions first = SortedByID(firstIDs);
    const Positions second = SortedByID(secondIDs);
    ItemPairs pairs = {CountOccurrences(firstIDs, first), CountOccurrences(secondIDs, second)};
    for (std::size_t i = 0, j = 0; i < first.size() && j < second.size();) {
        const int order = firstIDs[first[i]].compare(secondIDs[second[j]]);
        if (order == 0) {
            pairs.first[first[i]].partner = second[j];
            pairs.second[second[j]].partner = first[i];
        }
        if (order <= 0) ++i;
        if (order >= 0) ++j;
    }
    return pairs;
}

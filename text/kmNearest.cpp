// SPDX-License-Identifier: MIT
#include "kmNearest.h"

#include <algorithm>
#include <array>

#include "text/Ascii.h"

namespace {

constexpr std::size_t kLongest = 32;
constexpr std::size_t kMostLetters = 2;
constexpr std::size_t kFar = kLongest;

// How many letters have to be added, left out or replaced, if that is at most kMostLetters; else more. Only
// the cells of the table that can hold so little are looked at. Both texts are at most kLongest long.
std::size_t Distance(kmStringView a, kmStringView b) {
    std::array<std::size_t, kLongest + 1> above;
    above.fill(kFar);
    for (std::size_t j = 0; j <= std::min(b.size(), kMostLetters); ++j) above[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::array<std::size_t, kLongest + 1> row;
        row.fill(kFar);
        if (i <= kMostLetters) row[0] = i;
        const std::size_t first = i > kMostLetters ? i - kMostLetters : 1;
        const std::size_t last = std::min(b.size(), i + kMostLetters);
        for (std::size_t j = first; j <= last; ++j) {
            const std::size_t replaced = above[j - 1] + (FoldLower(a[i - 1]) == FoldLower(b[j - 1]) ? 0 : 1);
            row[j] = std::min({replaced, above[j] + 1, row[j - 1] + 1});
        }
        above = row;
    }
    return above[b.size()];
}

}  // namespace

std::basic_string_view<kmChar> kmFindNearest(std::basic_string_view<kmChar> name,
                                             std::span<const std::basic_string_view<kmChar>> known) {
    if (name.empty() || name.size() > kLongest) return {};
    kmStringView nearest;
    std::size_t least = std::min(kMostLetters, (name.size() - 1) / 2) + 1;
    for (const kmStringView candidate : known) {
        const std::size_t shorter = std::min(candidate.size(), name.size());
        if (candidate.size() > kLongest || candidate.size() + name.size() - 2 * shorter >= least) continue;
        const std::size_t distance = Distance(name, candidate);
        if (distance >= least) continue;
        least = distance;
        nearest = candidate;
    }
    return nearest;
}

// SPDX-License-Identifier: MIT
#include "lint/Names.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr std::size_t kLongest = 32;
constexpr std::size_t kMostLetters = 2;
constexpr std::size_t kFar = kLongest;

// The words that people expect where the format has others.
struct Spelling {
    kmStringView expected;
    kmStringView actual;
};
constexpr Spelling kSpellings[] = {
    {KM_TEXT("simpleCandidatesDisplay"), KM_TEXT("simpleCandidatesDiaplay")},
    {KM_TEXT("advCandidatesDiaplay"), KM_TEXT("advCandidatesDisplay")},
    {KM_TEXT("lang"), KM_TEXT("language")},
    {KM_TEXT("xml:lang"), KM_TEXT("language")},
    {KM_TEXT("Header"), KM_TEXT("Main")},
    {KM_TEXT("Settings"), KM_TEXT("Parameter")},
    {KM_TEXT("Description"), KM_TEXT("Desc")},
    {KM_TEXT("ShortName"), KM_TEXT("SName")},
    {KM_TEXT("Extension"), KM_TEXT("ExtName")},
    {KM_TEXT("Ext"), KM_TEXT("ExtName")},
    {KM_TEXT("Container"), KM_TEXT("Format")},
    {KM_TEXT("IsSystemProfile"), KM_TEXT("IsSysProfile")},
    {KM_TEXT("System"), KM_TEXT("IsSysProfile")},
};

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

kmStringView FindNearest(kmStringView name, std::span<const kmStringView> known) {
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

bool IsKnown(kmStringView name, std::span<const kmStringView> known) {
    return std::any_of(known.begin(), known.end(),
                       [name](kmStringView candidate) { return EqualNoCase(candidate, name); });
}

void AddUnknownName(Findings& findings, LINT_CODE code, TextPlace place, kmStringView name,
                    std::span<const kmStringView> known) {
    if (findings.IsFull()) return findings.Add(code, place, name);
    for (const Spelling& spelling : kSpellings) {
        if (!EqualNoCase(spelling.expected, name) || !IsKnown(spelling.actual, known)) continue;
        return findings.Add(LINT_USUAL_SPELLING, place, name, {}, spelling.actual);
    }
    findings.Add(code, place, name, {}, FindNearest(name, known));
}

// SPDX-License-Identifier: MIT
#include "lint/Names.h"

#include <algorithm>

#include "kmNearest.h"

namespace {

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

}  // namespace

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
    findings.Add(code, place, name, {}, kmFindNearest(name, known));
}

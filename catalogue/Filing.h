// SPDX-License-Identifier: MIT
// Puts the IDs of profiles into groups while files are read: a whole load, or one file.
//
// An ID stands in a group once, but looking for it before each addition would make the cost of a group grow
// with the square of its profiles. So IDs are appended as they come, and Finish removes from each group those
// that had been there before. Groups are found by name in an ordered index, since names come from files and
// could be chosen to collide in a hash. The catalogue may change in the meantime (a message handler may do
// anything), so the index is built anew when the catalogue says that its groups changed, and what it finds is
// looked at.
#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "kmManager.h"
#include "text/Ascii.h"

// What became of one file.
enum class FilingResult {
    Taken,
    TakenIntoNoGroup,  // a system profile whose file has groups, but none with a name
    NoHeader,
    SystemSkipped,
    Filtered,
};

class kmManager::Filing {
public:
    explicit Filing(kmManager& catalogue) : m_catalogue(catalogue) {}
    Filing(const Filing&) = delete;
    Filing& operator=(const Filing&) = delete;

    void AddToUserGroup(const kmString& id);

    // Into the first system group of exactly that name, or into a new one.
    void AddToSystemGroup(kmStringView name, const kmString& id);

    // To be called once, after the last addition.
    void Finish();

private:
    // How many IDs a group had before the first addition.
    using Known = std::size_t;
    static constexpr Known kUntouched = static_cast<Known>(-1);

    static void Append(kmGroup& group, const kmString& id, Known& known);
    std::size_t PositionOf(kmStringView name);
    void BuildIndex();

    kmManager& m_catalogue;
    std::map<kmString, std::size_t, std::less<>> m_positions;  // of the system groups, by name
    unsigned m_indexed = 0;                                    // the catalogue's m_groupChanges then
    bool m_isIndexed = false;
    std::vector<Known> m_knownInSystemGroups;  // by position; shorter than the groups
    Known m_knownInUserGroup = kUntouched;
};

// SPDX-License-Identifier: MIT
// What differs between two profiles, or between a profile and its file, and how to take it back.
#pragma once

#include <cstdint>
#include <vector>

#include "kmExport.h"
#include "kmProfile.h"
#include "kmTypes.h"

// What a difference is about. Applications may keep the numbers.
enum DIFFERENCE_KIND : std::int32_t {
    DIFFERENCE_HEADER_FIELD = 0,
    DIFFERENCE_ITEM_FIELD = 1,
    DIFFERENCE_ONLY_IN_FIRST = 2,   // an item that the second lacks
    DIFFERENCE_ONLY_IN_SECOND = 3,  // an item that the first lacks
    DIFFERENCE_ITEM_ORDER = 4,      // the items that both have stand in another order; told once
};

// One difference. Texts are as a file has them: flags are "yes", lists have "," between their entries, and
// what a file leaves out (0, a flag that is not set, an empty list) is empty. Two empty texts: the one is an
// empty list, the other has one empty entry.
struct kmDifference {
    DIFFERENCE_KIND kind = DIFFERENCE_HEADER_FIELD;  // what it is about
    kmString id;                                     // the item's; empty for the header and the order
    std::int32_t occurrence = 0;                     // which of the items with that ID, from 0 on
    kmString field;  // the name in the file, such as "SName" or "simpleName"; else empty

    // What each has: of a whole item the value, of the order the ID in the first place that differs.
    kmString first;
    kmString second;
};

// Fields of the header in file order; items in the first's order, each with its fields in file order; items
// that only the second has, in its order; the order of the items.
using kmDifferences = std::vector<kmDifference>;

// Everything that files say of profiles, as it stands in memory; IDs, folders and changed flags are no
// difference. Items belong together by exact ID, of several with one ID the first with the first and so on.
// Fields are equal when files would have the same text for them.
//
// No file says which profile another one was copied from, so that the application has to name it. A copy
// differs from its original in "Name", which becomes the new ID when it is saved, and from a system profile
// in "IsSysProfile".
KM_EXPORT kmDifferences kmCompareProfiles(const kmProfile& first, const kmProfile& second);

// How a profile compares with its file. Applications may keep the numbers.
enum FILE_COMPARISON : std::int32_t {
    FILE_COMPARISON_EQUAL = 0,
    FILE_COMPARISON_DIFFERENT = 1,   // the profile was modified, or its file was
    FILE_COMPARISON_UNREADABLE = 2,  // kmReadFileOf fails: there is nothing to compare with
};

// The answer of kmCompareWithFile.
struct kmFileComparison {
    FILE_COMPARISON result = FILE_COMPARISON_UNREADABLE;  // in one word
    kmDifferences differences;                            // the profile's side is the first
};

// Compares the profile with what its file says now, whatever the changed flag says. "Name" and "IsSysProfile"
// do not count: saving takes neither from the profile. What no file can keep does: after saving, an empty
// value whose option has a default, items with one ID in any letter case. So does a text of the header that
// the file lacks and that an earlier load of another file left.
KM_EXPORT kmFileComparison kmCompareWithFile(const kmProfile& profile);

// Makes one item of `to` what it is in `from`: the value, and everything that the views show of it. An item
// that `to` lacks comes after the one that it follows in `from`. Sets the changed flag, also when both were
// equal. False, with nothing changed, when `from` has no such item, or `to` lacks one of the same ID in front
// of it: an item is never removed. Of two profiles' differences, those of the item's ID are gone then.
KM_EXPORT bool kmTakeSetting(kmProfile& to, const kmProfile& from, const kmString& id,
                             std::int32_t occurrence = 0);

// The same for a field of the header, by its exact name: "Desc", "SName", "Format" or "ExtName". False, with
// nothing changed, for any other.
KM_EXPORT bool kmTakeHeaderField(kmProfile& to, const kmProfile& from, const kmString& field);

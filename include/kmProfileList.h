// SPDX-License-Identifier: MIT
// Several loaded profiles shown and edited as one.
#pragma once

#include <cstdint>
#include <vector>

#include "kmExport.h"
#include "kmProfile.h"

// Works on a selection of profiles that the caller owns, none of them null; may be empty. The first profile
// is the reference: results have its order and its spelling. Items are found by their exact ID; a null ID
// finds none. Changes go into the profiles, which are marked as changed; nothing is saved. Keeps no state.
class KM_EXPORT kmProfileList {
public:
    // Does nothing: there is no state to assign.
    kmProfileList& operator=(const kmProfileList&) { return *this; }

    // Whether every profile has the item and `value` is acceptable for it; see kmProfileItem::Check for
    // `message`. False for a null or empty ID, true for an empty selection.
    static bool IsValidValue(kmString& message, const std::vector<kmProfile*>& profiles, const kmChar* id,
                             const kmChar* value);

    // Whether some profile shows the item read-only in the advanced view.
    static bool IsReadOnly(const std::vector<kmProfile*>& profiles, const kmChar* id);

    // Sets the value in every profile that has the item. Always true.
    static bool SetItemValue(const std::vector<kmProfile*>& profiles, const kmChar* id, const kmChar* value);

    // The value that all profiles share, whatever its letter case; empty when they differ or one lacks the
    // item.
    static kmString GetItemValue(const std::vector<kmProfile*>& profiles, const kmChar* id);

    // The same by position in the simple texts of the item as GetSimpleItems returns it. Setting goes by the
    // text at that position, and passes over profiles that do not offer it; false for a position or an item
    // that is not there. Getting gives -1 when the profiles differ.
    static bool SetSimpleItemValue(const std::vector<kmProfile*>& profiles, const kmChar* id, int index);
    static std::int32_t GetSimpleItemValue(const std::vector<kmProfile*>& profiles, const kmChar* id);

    // Copies of the first profile's items that every profile has, in the simple view or at all, with those
    // display texts alone that every profile offers. The lists of values stay as the first profile has them.
    static std::vector<kmProfileItem> GetSimpleItems(const std::vector<kmProfile*>& profiles);
    static std::vector<kmProfileItem> GetAdvanceItems(const std::vector<kmProfile*>& profiles);

    // The text that all profiles show for the value in the advanced view; empty when there is none. The value
    // of "zoom" is a position in the first profile's list, from 1.
    static kmString GetDisplayValue(const std::vector<kmProfile*>& profiles, const kmChar* id,
                                    const kmChar* value);

private:
    kmProfileList() = default;

    enum class View { Simple, Advanced };
    class CommonItem;
    class OfferedTexts;
    class ShownItems;

    static std::vector<CommonItem> FindCommonItems(const std::vector<kmProfile*>& profiles, View view);
    static std::vector<kmProfileItem> GetItems(const std::vector<kmProfile*>& profiles, View view);
    static bool FindCommonTexts(const std::vector<kmProfile*>& profiles, const kmChar* id,
                                std::vector<kmString>& texts);
    static const kmString* FindDisplayText(const kmProfile& profile, const kmChar* id, const kmChar* value);
    static kmString GetZoomText(const std::vector<kmProfile*>& profiles, const kmChar* id,
                                const kmChar* value);
};

// SPDX-License-Identifier: MIT
// The profile file's own words, each once.
#pragma once

#include "text/Ascii.h"

namespace format {

// A file is named by its profile's ID and this, in any letter case on reading.
inline constexpr kmStringView kSuffix = KM_TEXT(".pf");

// Elements: the root; in it the header, the settings (an element each) and the groups.
inline constexpr const kmChar* kRoot = KM_TEXT("Profiles");
inline constexpr const kmChar* kMain = KM_TEXT("Main");
inline constexpr const kmChar* kParameter = KM_TEXT("Parameter");
inline constexpr const kmChar* kGroup = KM_TEXT("Group");
inline constexpr const kmChar* kGroupName = KM_TEXT("GroupName");

// The attribute that holds names and descriptions. There is no choice between languages.
inline constexpr const kmChar* kLanguage = KM_TEXT("language");

// How a flag is written; one that is not set is left out.
inline constexpr const kmChar* kYes = KM_TEXT("yes");

inline constexpr kmChar kListSeparator = KM_TEXT(',');

// The mark of a system profile takes no other word; the flags of items do.
inline bool IsYes(kmStringView text) { return EqualNoCase(text, kYes); }
inline bool IsFlagSet(kmStringView text) { return IsYes(text) || EqualNoCase(text, KM_TEXT("true")); }

}  // namespace format

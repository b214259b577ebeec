// SPDX-License-Identifier: MIT
// The system groups that have a place in the display order.
#pragma once

#include "text/Ascii.h"

inline constexpr kmStringView kGroupOrder[] = {
    KM_TEXT("Common Video"),
    KM_TEXT("Common Audio"),
    KM_TEXT("Apple TV"),
    KM_TEXT("HD Video"),
    KM_TEXT("iPod"),
    KM_TEXT("iPhone"),
    KM_TEXT("Lossless Audio"),
    KM_TEXT("Mobile Phone"),
    KM_TEXT("Picture and Animation"),
    KM_TEXT("Portable Multimedia Device"),
    KM_TEXT("PS3"),
    KM_TEXT("PSP"),
    KM_TEXT("Wii and DS"),
    KM_TEXT("Xbox HD Video"),
    KM_TEXT("Zune"),
};

// The group of system profiles whose files name none; the last one.
inline constexpr const kmChar* kOtherGroup = KM_TEXT("others");

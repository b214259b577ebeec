// SPDX-License-Identifier: MIT
// How the catalogue's stored names become the texts that users see.
#pragma once

#include "text/kmCTString.h"

// The text without the "^" that it begins with.
inline kmString StripLeadingCarets(const kmString& name) {
    return kmString(TrimLeftView(name, KM_TEXT('^')));
}

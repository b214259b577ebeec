// SPDX-License-Identifier: MIT
// What somebody may have meant who wrote a name that nobody knows.
#pragma once

#include <span>
#include <string_view>

#include "kmExport.h"
#include "kmTypes.h"

// The known name that is nearest to `name` in any letter case: at most two letters away, and less than half
// its length. Empty when there is none; else one of `known`, valid as long as that. Names of more than 32
// units are near to none.
KM_EXPORT std::basic_string_view<kmChar> kmFindNearest(std::basic_string_view<kmChar> name,
                                                       std::span<const std::basic_string_view<kmChar>> known);

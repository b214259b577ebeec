// SPDX-License-Identifier: MIT
#include "kmHeldBack.h"

#include "options/FindOption.h"
#include "options/OptionTraits.h"

bool kmIsHeldBack(const kmChar* name) {
    const int index = name == nullptr ? -1 : FindOption(name);
    return index >= 0 && (kOptions[static_cast<std::size_t>(index)].traits & TRAIT_HELD_BACK) != 0;
}

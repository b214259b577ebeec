// SPDX-License-Identifier: MIT
// Which items of two profiles belong together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "text/Ascii.h"

struct PairedItem {
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::int32_t occurrence = 0;  // among the items of its profile with the same ID, from 0 on
    std::size_t partner = kNone;  // the position in the other profile
};

struct ItemPairs {
    std::vector<PairedItem> first;
    std::vector<PairedItem> second;
};

// Of the items with equal IDs the first with the first, the second with the second, and so on.
ItemPairs PairItems(const std::vector<kmStringView>& firstIDs, const std::vector<kmStringView>& secondIDs);

// SPDX-License-Identifier: MIT
// Look-ups by name go through a hash index that the compiler builds: open addressing in 1024 slots, each
// holding a row's index. The hash looks at the length and four characters of a name; its multiplier is chosen
// so that no look-up of an existing name needs more than kMaxProbes comparisons, which the compiler checks.
#include "kmArgOption.h"

#include <array>
#include <cstddef>

#include "options/FindOption.h"
#include "options/OptionTable.h"
#include "text/Ascii.h"

namespace {

constexpr unsigned kSlotBits = 10;
constexpr std::size_t kSlots = std::size_t{1} << kSlotBits;
constexpr std::uint8_t kFree = 0xFF;
constexpr std::size_t kMaxProbes = 2;
constexpr std::uint32_t kMultiplier = 0x497536E9;
static_assert(kOptionCount < kFree, "a slot holds a row's index in 8 bits");

// `name` must not be empty.
constexpr std::size_t SlotOf(kmStringView name) {
    const std::size_t length = name.size();
    const auto unit = [name](std::size_t at) { return std::uint32_t{FoldLower(name[at])} & 0xFFu; };
    const std::uint32_t lengthAndQuarter = (static_cast<std::uint32_t>(length) + unit(length / 4)) & 0xFFu;
    const std::uint32_t key =
        unit(0) | unit(length / 2) << 8 | unit(length - 1) << 16 | lengthAndQuarter << 24;
    return (key * kMultiplier) >> (32 - kSlotBits);
}

struct Index {
    std::array<std::uint8_t, kSlots> rows{};
    std::array<std::uint8_t, kOptionCount> lengths{};  // of the names
    std::size_t longestName = 0;
    std::size_t mostProbes = 0;
};

constexpr Index BuildIndex() {
    Index index;
    for (std::uint8_t& slot : index.rows) slot = kFree;
    for (int row = 0; row < kOptionCount; ++row) {
        const kmStringView name = kOptionRows[row].name;
        std::size_t slot = SlotOf(name);
        std::size_t probes = 1;
        for (; index.rows[slot] != kFree; slot = (slot + 1) % kSlots) ++probes;
        index.rows[slot] = static_cast<std::uint8_t>(row);
        index.lengths[static_cast<std::size_t>(row)] = static_cast<std::uint8_t>(name.size());
        if (probes > index.mostProbes) index.mostProbes = probes;
        if (name.size() > index.longestName) index.longestName = name.size();
    }
    return index;
}

constexpr Index kIndex = BuildIndex();
static_assert(kIndex.mostProbes <= kMaxProbes, "choose another multiplier");

// The length of `name`, or anything above `limit` when it is longer than that.
std::size_t LengthUpTo(const kmChar* name, std::size_t limit) {
    std::size_t length = 0;
    while (length <= limit && name[length] != 0) ++length;
    return length;
}

const _ArgOption* FindRow(const kmChar* name) {
    if (name == nullptr) return nullptr;
    const int index = FindOption({name, LengthUpTo(name, kIndex.longestName)});
    return index < 0 ? nullptr : &kOptionRows[index];
}

}  // namespace

int FindOption(kmStringView name) {
    if (name.empty() || name.size() > kIndex.longestName) return -1;
    for (std::size_t slot = SlotOf(name); kIndex.rows[slot] != kFree; slot = (slot + 1) % kSlots) {
        const std::uint8_t row = kIndex.rows[slot];
        if (EqualNoCase({kOptionRows[row].name, kIndex.lengths[row]}, name)) return row;
    }
    return -1;
}

int kmArgOption::GetOptionID(const kmChar* name) {
    const _ArgOption* row = FindRow(name);
    return row == nullptr ? -1 : static_cast<int>(row - kOptionRows);
}

const _ArgOption* kmArgOption::GetArgOption(int index) {
    return index < 0 || index >= kOptionCount ? nullptr : &kOptionRows[index];
}

const _ArgOption* kmArgOption::GetArgOption(const kmChar* name) { return FindRow(name); }

const kmChar* kmArgOption::GetOptionName(int index) {
    const _ArgOption* row = GetArgOption(index);
    return row == nullptr ? nullptr : row->name;
}

const kmChar* kmArgOption::GetOptionTitle(const kmChar* name) {
    const _ArgOption* row = FindRow(name);
    return row == nullptr ? nullptr : row->name;
}

const kmChar* kmArgOption::GetOptionComments(const kmChar* name) {
    const _ArgOption* row = FindRow(name);
    return row == nullptr ? nullptr : row->comments;
}

const kmChar* kmArgOption::GetOptionDefVal(const kmChar* name) {
    const _ArgOption* row = FindRow(name);
    return row == nullptr ? nullptr : row->defVal;
}

bool kmArgOption::HasFlag(const kmChar* name, std::uint32_t mask) {
    const _ArgOption* row = FindRow(name);
    return row != nullptr && (row->flags & mask) != 0;
}

const kmChar* const* kmArgOption::GetListVal(const kmChar* name) {
    const _ArgOption* row = FindRow(name);
    return row == nullptr ? nullptr : row->listVal;
}

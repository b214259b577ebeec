// SPDX-License-Identifier: MIT
#include "bench/PerfectHash.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "options/OptionTable.h"
#include "text/Ascii.h"

namespace {

constexpr std::size_t kSlotBits = 10;
constexpr std::uint8_t kFree = 0xFF;

// Found by trying one number after the other.
constexpr std::uint64_t kSeed = 0x74F446B2F7D6C60Bu;

// The length and four characters are the least that tells all names apart.
constexpr std::uint64_t KeyOf(kmStringView name) {
    const auto at = [name](std::size_t i) { return static_cast<std::uint64_t>(FoldLower(name[i]) & 0xFF); };
    const std::size_t length = name.size();
    return length | at(0) << 8 | at(length - 1) << 16 | (length > 1 ? at(1) << 24 : 0) |
           (length > 3 ? at(3) << 32 : 0);
}

constexpr std::size_t SlotOf(kmStringView name) {
    return static_cast<std::size_t>(KeyOf(name) * kSeed >> (64 - kSlotBits));
}

struct Slots {
    std::array<std::uint8_t, std::size_t{1} << kSlotBits> rows{};
    std::array<std::uint8_t, kOptionCount> lengths{};
    std::size_t longestName = 0;
    bool isPerfect = true;
};

constexpr Slots BuildSlots() {
    Slots slots;
    for (std::uint8_t& row : slots.rows) row = kFree;
    for (std::size_t row = 0; row < slots.lengths.size(); ++row) {
        const kmStringView name = kOptionRows[row].name;
        std::uint8_t& slot = slots.rows[SlotOf(name)];
        if (slot != kFree) slots.isPerfect = false;
        slot = static_cast<std::uint8_t>(row);
        slots.lengths[row] = static_cast<std::uint8_t>(name.size());
        if (name.size() > slots.longestName) slots.longestName = name.size();
    }
    return slots;
}

constexpr Slots kSlots = BuildSlots();
static_assert(kSlots.isPerfect, "choose another seed");

}  // namespace

int FindByPerfectHash(const kmChar* name) {
    if (name == nullptr) return -1;
    std::size_t length = 0;
    while (name[length] != 0) {
        if (++length > kSlots.longestName) return -1;
    }
    if (length == 0) return -1;
    const std::uint8_t row = kSlots.rows[SlotOf({name, length})];
    if (row == kFree || kSlots.lengths[row] != length) return -1;
    return EqualNoCase({name, length}, {kOptionRows[row].name, length}) ? row : -1;
}

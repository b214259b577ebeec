// Look-ups by name go through a hash index that the compiler builds: open addressing in 512 slots, each
// holding a row's index. The seed of the hash is chosen so that no look-up of an existing name needs more
// than kMaxProbes comparisons, which the compiler checks.
#include "kmArgOption.h"

#include <array>
#include <cstddef>

#include "options/OptionTable.h"
#include "platform/Ascii.h"

namespace {

constexpr std::size_t kSlots = 512;
constexpr std::uint8_t kFree = 0xFF;
constexpr std::size_t kMaxProbes = 2;
constexpr std::uint32_t kSeed = 405;
static_assert(kOptionCount < kFree, "a slot holds a row's index in 8 bits");

constexpr std::size_t SlotOf(kmStringView name) {
    std::uint32_t hash = kSeed;
    for (const kmChar c : name) hash = (hash ^ FoldLower(c)) * 0x01000193u;
    return (hash ^ (hash >> 15)) % kSlots;
}

struct Index {
    std::array<std::uint8_t, kSlots> rows{};
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
        if (probes > index.mostProbes) index.mostProbes = probes;
        if (name.size() > index.longestName) index.longestName = name.size();
    }
    return index;
}

constexpr Index kIndex = BuildIndex();
static_assert(kIndex.mostProbes <= kMaxProbes, "choose another seed");

// The length of `name`, or anything above `limit` when it is longer than that.
std::size_t LengthUpTo(const kmChar* name, std::size_t limit) {
    std::size_t length = 0;
    while (length <= limit && name[length] != 0) ++length;
    return length;
}

const _ArgOption* FindRow(const kmChar* name) {
    if (name == nullptr) return nullptr;
    const kmStringView wanted(name, LengthUpTo(name, kIndex.longestName));
    if (wanted.size() > kIndex.longestName) return nullptr;
    for (std::size_t slot = SlotOf(wanted); kIndex.rows[slot] != kFree; slot = (slot + 1) % kSlots) {
        const _ArgOption& row = kOptionRows[kIndex.rows[slot]];
        if (EqualNoCase(row.name, wanted)) return &row;
    }
    return nullptr;
}

}  // namespace

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

// SPDX-License-Identifier: MIT
#include "kmCompare.h"

#include <algorithm>
#include <utility>

#include "document/Header.h"
#include "kmProfileFile.h"
#include "profile/FieldText.h"
#include "profile/ItemMembers.h"
#include "profile/ItemPairs.h"

// Two profiles, the pairs of their items, and the differences that were found so far. A class, because it
// sees what profiles keep to themselves.
class ProfileComparison {
public:
    ProfileComparison(const kmProfile& first, const kmProfile& second)
        : m_first(first), m_second(second), m_pairs(PairItems(IDsOf(first), IDsOf(second))) {}

    void AddHeaderFields(bool onlyKept);
    void AddItems();
    void AddOrder();
    kmDifferences Take() { return std::move(m_differences); }

    static bool TakeItem(kmProfile& to, const kmProfile& from, kmStringView id, std::int32_t occurrence);
    static bool TakeHeaderField(kmProfile& to, const kmProfile& from, kmStringView field) {
        return CopyHeaderField(to.m_header, from.m_header, field);
    }

private:
    using Members = kmProfile::ItemMembers;

    static std::vector<kmStringView> IDsOf(const kmProfile& profile);
    static const kmString& IDOf(const kmProfileItem& item) { return item.*Members::kID; }
    void AddFields(const kmProfileItem& first, const kmProfileItem& second, std::int32_t occurrence);

    const kmProfile& m_first;
    const kmProfile& m_second;
    ItemPairs m_pairs;
    kmDifferences m_differences;
};

std::vector<kmStringView> ProfileComparison::IDsOf(const kmProfile& profile) {
    std::vector<kmStringView> ids;
    ids.reserve(profile.m_items.size());
    for (const kmProfileItem& item : profile.m_items) ids.push_back(IDOf(item));
    return ids;
}

void ProfileComparison::AddHeaderFields(bool onlyKept) {
    std::vector<HeaderField> first = HeaderFieldsOf(m_first.m_header);
    std::vector<HeaderField> second = HeaderFieldsOf(m_second.m_header);
    for (std::size_t i = 0; i < first.size(); ++i) {
        if (first[i].text == second[i].text || (onlyKept && !first[i].isKept)) continue;
        m_differences.push_back({DIFFERENCE_HEADER_FIELD,
                                 {},
                                 0,
                                 kmString(first[i].name),
                                 std::move(first[i].text),
                                 std::move(second[i].text)});
    }
}

void ProfileComparison::AddItems() {
    for (std::size_t i = 0; i < m_first.m_items.size(); ++i) {
        const kmProfileItem& item = m_first.m_items[i];
        const auto [occurrence, partner] = m_pairs.first[i];
        if (partner == PairedItem::kNone) {
            m_differences.push_back(
                {DIFFERENCE_ONLY_IN_FIRST, IDOf(item), occurrence, {}, item.GetValue(), {}});
        } else {
            AddFields(item, m_second.m_items[partner], occurrence);
        }
    }
    for (std::size_t i = 0; i < m_second.m_items.size(); ++i) {
        const kmProfileItem& item = m_second.m_items[i];
        const auto [occurrence, partner] = m_pairs.second[i];
        if (partner != PairedItem::kNone) continue;
        m_differences.push_back({DIFFERENCE_ONLY_IN_SECOND, IDOf(item), occurrence, {}, {}, item.GetValue()});
    }
}

void ProfileComparison::AddFields(const kmProfileItem& first, const kmProfileItem& second,
                                  std::int32_t occurrence) {
    for (std::size_t row = 0; row < std::size(kItemFields); ++row) {
        const auto compare = [&](auto member) {
            if (first.*member == second.*member) return;
            const std::optional<kmString> firstText = FieldText(Members::Content(first.*member));
            const std::optional<kmString> secondText = FieldText(Members::Content(second.*member));
            if (firstText == secondText) return;  // lists of other entries
            m_differences.push_back({DIFFERENCE_ITEM_FIELD, IDOf(first), occurrence,
                                     kmString(kItemFields[row].name), firstText.value_or(kmString()),
                                     secondText.value_or(kmString())});
        };
        std::visit(compare, Members::kMembers[row]);
    }
}

void ProfileComparison::AddOrder() {
    std::size_t expected = 0;
    for (std::size_t i = 0; i < m_pairs.first.size(); ++i) {
        const std::size_t partner = m_pairs.first[i].partner;
        if (partner == PairedItem::kNone) continue;
        while (m_pairs.second[expected].partner == PairedItem::kNone) ++expected;
        if (partner != expected) {
            const kmString& first = IDOf(m_first.m_items[i]);
            const kmString& second = IDOf(m_second.m_items[expected]);
            m_differences.push_back({DIFFERENCE_ITEM_ORDER, {}, 0, {}, first, second});
            return;
        }
        ++expected;
    }
}

// A new item goes after the last one in front of it that both have and after those of its own ID.
bool ProfileComparison::TakeItem(kmProfile& to, const kmProfile& from, kmStringView id,
                                 std::int32_t occurrence) {
    const std::vector<PairedItem> items = PairItems(IDsOf(to), IDsOf(from)).second;
    std::size_t place = 0;
    std::size_t leastPlace = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::size_t partner = items[i].partner;
        const bool isPaired = partner != PairedItem::kNone;
        const bool hasID = IDOf(from.m_items[i]) == id;
        if (hasID && items[i].occurrence == occurrence) {
            kmProfileItem taken = from.m_items[i];
            if (isPaired) {
                to.m_items[partner] = std::move(taken);
            } else {
                const auto at = static_cast<std::ptrdiff_t>(std::max(place, leastPlace));
                to.m_items.insert(to.m_items.begin() + at, std::move(taken));
            }
            return true;
        }
        if (hasID && !isPaired) return false;
        if (isPaired) place = partner + 1;
        if (hasID) leastPlace = partner + 1;
    }
    return false;
}

namespace {

kmDifferences Compare(const kmProfile& first, const kmProfile& second, bool onlyKept) {
    ProfileComparison comparison(first, second);
    comparison.AddHeaderFields(onlyKept);
    comparison.AddItems();
    comparison.AddOrder();
    return comparison.Take();
}

}  // namespace

kmDifferences kmCompareProfiles(const kmProfile& first, const kmProfile& second) {
    return Compare(first, second, /*onlyKept=*/false);
}

kmFileComparison kmCompareWithFile(const kmProfile& profile) {
    kmProfile file;
    if (!kmReadFileOf(profile, file)) return {};
    kmDifferences differences = Compare(profile, file, /*onlyKept=*/true);
    const FILE_COMPARISON result = differences.empty() ? FILE_COMPARISON_EQUAL : FILE_COMPARISON_DIFFERENT;
    return {result, std::move(differences)};
}

// An ID ends at its first null unit, as everywhere.
bool kmTakeSetting(kmProfile& to, const kmProfile& from, const kmString& id, std::int32_t occurrence) {
    if (!ProfileComparison::TakeItem(to, from, id.c_str(), occurrence)) return false;
    to.SetChangedFlag(true);
    return true;
}

bool kmTakeHeaderField(kmProfile& to, const kmProfile& from, const kmString& field) {
    if (!ProfileComparison::TakeHeaderField(to, from, field.c_str())) return false;
    to.SetChangedFlag(true);
    return true;
}

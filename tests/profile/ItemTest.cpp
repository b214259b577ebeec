// How an item maps between its value and the positions of the simple view.
#include <gtest/gtest.h>

#include <limits>

#include "kmProfileItem.h"

namespace {

using Texts = std::vector<kmString>;

kmProfileItem Item(const kmString& id, const kmString& value, const Texts& values, const Texts& display) {
    kmProfileItem item;
    item.SetID(id);
    item.SetValue(value);
    item.SetSimpleName(KM_TEXT("Shown"));
    item.GetSimpleCandidatesValue() = values;
    item.GetSimpleCandidatesDisplay() = display;
    return item;
}

const Texts kRates = {KM_TEXT("320"), KM_TEXT("256"), KM_TEXT("192"),
                      KM_TEXT("128"), KM_TEXT("96"),  KM_TEXT("64")};
const Texts kFiveRates(kRates.begin(), kRates.end() - 1);
const Texts kAutoFirst = {KM_TEXT("Auto"), KM_TEXT("128")};
const Texts kFractions = {KM_TEXT("128.95"), KM_TEXT("128.5"), KM_TEXT("1")};
const Texts kCodecs = {KM_TEXT("mpeg4"), KM_TEXT("xvid"), KM_TEXT("xvid"), KM_TEXT("h264")};
const Texts kLevels = {KM_TEXT("Low"), KM_TEXT("Normal"), KM_TEXT("High")};
const Texts kNumbers = {KM_TEXT("1"), KM_TEXT("2"), KM_TEXT("3")};
const Texts kTwoNumbers = {KM_TEXT("1"), KM_TEXT("2")};

struct IndexCase {
    const char* fault;
    const kmChar* id;
    const kmChar* value;
    Texts values;
    Texts display;
    int expected;
};

TEST(ItemTest, PositionOfTheValue) {
    const IndexCase cases[] = {
        {"nearest_rate_instead_of_first_not_above", KM_TEXT("ab"), KM_TEXT("250"), kRates, {}, 2},
        {"rates_compared_as_texts", KM_TEXT("b"), KM_TEXT("1000"), kRates, {}, 0},
        {"no_number_not_zero", KM_TEXT("b"), KM_TEXT("fast"), kRates, {}, 5},
        {"unit_behind_the_rate_refused", KM_TEXT("b"), KM_TEXT(" 128k"), kRates, {}, 3},
        {"fraction_cut_off", KM_TEXT("b"), KM_TEXT("128.9"), kFractions, {}, 1},
        {"auto_not_the_middle", KM_TEXT("ab"), KM_TEXT("Auto"), kRates, {}, 3},
        {"middle_of_odd_count_rounded_up", KM_TEXT("ab"), KM_TEXT("Auto"), kFiveRates, {}, 2},
        {"auto_not_trimmed_or_case_matters", KM_TEXT("b"), KM_TEXT("  aUTO "), kRates, {}, 3},
        {"more_than_spaces_trimmed", KM_TEXT("b"), KM_TEXT("\tAuto"), kRates, {}, 5},
        {"id_case_matters_for_rates", KM_TEXT("B"), KM_TEXT("200"), kRates, {}, 2},
        {"auto_without_candidates_not_zero", KM_TEXT("ab"), KM_TEXT("Auto"), {}, {}, 0},
        {"rate_without_candidates_not_minus_one", KM_TEXT("ab"), KM_TEXT("128"), {}, {}, -1},
        {"auto_candidate_below_zero", KM_TEXT("ab"), KM_TEXT("-1"), kAutoFirst, {}, 1},
        {"quality_not_looked_up_by_display", KM_TEXT("pq"), KM_TEXT("Low"), kNumbers, kLevels, 0},
        {"quality_looked_up_by_value", KM_TEXT("pq"), KM_TEXT("1"), kNumbers, kLevels, 2},
        {"id_case_matters_for_quality", KM_TEXT("PQ"), KM_TEXT("Normal"), kNumbers, kLevels, 1},
        {"display_of_other_length_trusted", KM_TEXT("pq"), KM_TEXT("1"), kTwoNumbers, kLevels, 0},
        {"later_of_two_equal_candidates", KM_TEXT("vcodec"), KM_TEXT("xvid"), kCodecs, {}, 1},
        {"candidates_compared_without_case", KM_TEXT("vcodec"), KM_TEXT("MPEG4"), kCodecs, {}, 3},
        {"no_candidates_not_minus_one", KM_TEXT("vcodec"), KM_TEXT("xvid"), {}, {}, -1},
    };
    for (const IndexCase& c : cases) {
        kmProfileItem item = Item(c.id, c.value, c.values, c.display);
        EXPECT_EQ(item.GetSimpleItemIndex(), c.expected) << c.fault;
        item.SetSimpleName({});
        EXPECT_EQ(item.GetSimpleItemIndex(), -1) << c.fault << ", without a simple name";
    }
}

TEST(ItemTest, SelectingByPosition) {
    kmProfileItem item = Item(KM_TEXT("vcodec"), KM_TEXT("theora"), kCodecs, {});
    for (const int outside : {-1, static_cast<int>(kCodecs.size()), std::numeric_limits<int>::min()}) {
        EXPECT_FALSE(item.SetSimpleValue(outside)) << outside;
        EXPECT_EQ(item.GetValue(), KM_TEXT("theora")) << outside;
    }
    for (int i = 0; i < static_cast<int>(kCodecs.size()); ++i) {
        EXPECT_TRUE(item.SetSimpleValue(i));
        EXPECT_EQ(item.GetValue(), kCodecs[static_cast<std::size_t>(i)]);
        EXPECT_TRUE(item.SetSimpleValue(item.GetSimpleItemIndex()));
        EXPECT_EQ(item.GetValue(), kCodecs[static_cast<std::size_t>(i)]) << "round trip from " << i;
    }
}

TEST(ItemTest, EqualityIsThatOfTheExactID) {
    const kmProfileItem item = Item(KM_TEXT("b"), KM_TEXT("1"), {}, {});
    EXPECT_TRUE(item == Item(KM_TEXT("b"), KM_TEXT("2"), kRates, kLevels));
    EXPECT_FALSE(item == Item(KM_TEXT("B"), KM_TEXT("1"), {}, {}));
}

TEST(ItemTest, CopiesOwnTheirLists) {
    kmProfileItem source = Item(KM_TEXT("vcodec"), KM_TEXT("xvid"), kCodecs, {});
    const kmProfileItem& itself = source;
    source = itself;
    kmProfileItem copy(source);
    kmProfileItem assigned;
    assigned = source;
    copy.GetSimpleCandidatesValue().clear();
    assigned.GetSimpleCandidatesValue().clear();
    EXPECT_EQ(source.GetSimpleCandidatesValue(), kCodecs);
}

}  // namespace

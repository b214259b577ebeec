// SPDX-License-Identifier: MIT
// How an item maps between its value and the positions of the simple view.
#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

#include "kmGroup.h"
#include "kmProfileInfo.h"
#include "kmProfileItem.h"
#include "tests/support/Text.h"

// Assignment gives a constant reference, of a temporary too.
template <class T>
constexpr bool kAssignsToConstant =
    std::is_same_v<decltype(std::declval<T&>() = std::declval<T>()), const T&>;
static_assert(kAssignsToConstant<kmProfileItem>);
static_assert(kAssignsToConstant<kmGroup>);
static_assert(kAssignsToConstant<kmProfileInfo>);

TEST(ProfileItem, PositionOfTheValue) {
    constexpr const char *kRates = "320|256|192|128|96|64", *kCodecs = "mpeg4|xvid|xvid|h264",
                         *kQualities = "Low|Normal|High";
    // clang-format off
    const struct { const char *fault, *id, *value, *values, *display; int expected; } rows[] = {
        {"fractions_cut_off",                   "b",  "128.9",   "128.95|128.5|1", "", 1},
        {"candidate_that_is_no_number_skipped", "ab", "64",      "Auto|128", "", 0},
        {"larger_candidate_or_exact_id",        "B",  "250",     kRates, "", 2},
        {"auto_not_trimmed_or_middle_rounded_up", "b", "  aUTO ", "320|256|192|128|96", "", 2},
        {"quality_looked_up_by_value",          "pq", "1",       "1|2|3", kQualities, 2},
        {"candidates_compared_in_any_case",     "vcodec", "MPEG4", kCodecs, "", 3},
        {"position_in_an_empty_list",           "vcodec", "xvid",  "", "", -1}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.id << "=" << row.value);
        kmProfileItem item;
        item.SetID(Text(row.id));
        item.SetValue(Text(row.value));
        item.GetSimpleCandidatesValue() = Pieces(row.values);
        item.GetSimpleCandidatesDisplay() = Pieces(row.display);
        EXPECT_EQ(item.GetSimpleItemIndex(), -1) << "without a simple name";
        item.SetSimpleName(KM_TEXT("Shown"));
        EXPECT_EQ(item.GetSimpleItemIndex(), row.expected);
    }
}

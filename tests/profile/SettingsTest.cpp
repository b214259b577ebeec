// SPDX-License-Identifier: MIT
// What settings mean: kind, frame size, times, aspect ratio, zoom, the simple view.
#include <gtest/gtest.h>

#include "tests/support/Profiles.h"

TEST(Settings, FrameSizeOfTheSourceIsZero) {
    std::int32_t width = -7, height = -7;
    EXPECT_FALSE(kmProfile().GetSize(width, height));
    EXPECT_EQ(width, -7) << "changed without a size";
    EXPECT_TRUE(ProfileWith("s= auto ;").GetSize(width, height));
    EXPECT_EQ(width, 0);
    EXPECT_TRUE(ProfileWith("s=ntsc-film;").GetSize(width, height));
    EXPECT_EQ(height, 240) << "the name begins with another";
    EXPECT_FALSE(ProfileWith("s=CIF;").GetSize(width, height));
    EXPECT_EQ(height, 0);
}

TEST(Settings, AspectRatio) {
    EXPECT_EQ(ProfileWith("aspect= 0x10 : 9 : 5;").GetAspectratio(), 16.0 / 9);
    EXPECT_EQ(ProfileWith("aspect=1.7777;").GetAspectratio(), 1.7777);
    EXPECT_EQ(ProfileWith("aspect=4:;").GetAspectratio(), 0) << "nothing to divide by";
}

TEST(Settings, ChangeGoesIntoTheFirstItemAndIsFlagged) {
    kmProfile profile = ProfileWith("b=1;b=2;");
    EXPECT_TRUE(profile.SetItemValue(KM_TEXT("b"), KM_TEXT(" x ")));
    EXPECT_EQ(Utf8(profile.GetProfileItems()[0].GetValue()), " x ");
    EXPECT_EQ(Utf8(profile.GetProfileItems()[1].GetValue()), "2");
    EXPECT_TRUE(profile.GetChangedFlag());
}

TEST(Settings, OfRefusedChangesPositionsAreFlagged) {
    kmProfile profile = ProfileWith("b=1;");
    EXPECT_FALSE(profile.SetItemValue(KM_TEXT("b"), nullptr));
    EXPECT_FALSE(profile.SetItemValue(nullptr, KM_TEXT("3")));
    EXPECT_FALSE(profile.SetItemValue(KM_TEXT("B"), KM_TEXT("3")));
    EXPECT_FALSE(profile.SetSimpleItemValue(KM_TEXT("ab"), 0));
    EXPECT_EQ(profile.GetSimpleItemValue(KM_TEXT("ab")), -1);
    EXPECT_FALSE(profile.GetChangedFlag());
    EXPECT_FALSE(profile.SetSimpleItemValue(KM_TEXT("b"), 0));
    EXPECT_TRUE(profile.GetChangedFlag()) << "a refused position is flagged all the same";
}

TEST(Settings, CopyFromClearsTheFlagThatAssignmentTakesOver) {
    kmProfile profile = ProfileWith("b=1;"), assigned, copied;
    profile.SetChangedFlag(true);
    assigned = profile;
    copied.CopyFrom(profile);
    profile.CopyFrom(profile);
    EXPECT_TRUE(assigned.GetChangedFlag());
    EXPECT_FALSE(copied.GetChangedFlag());
    EXPECT_TRUE(profile.GetChangedFlag()) << "copied from itself";
    EXPECT_EQ(Utf8(copied.GetItemValue(KM_TEXT("b"))), "1");
}

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

// What settings mean: kind, frame size, times, aspect ratio, zoom, the simple view.
#include <gtest/gtest.h>

#include "tests/support/Profiles.h"

TEST(Settings, KindIsDecidedByPresence) {
    EXPECT_EQ(ProfileWith("s=;VCODEC=;").GetType(), PROFILE_TYPE_UNKNOWN);
    EXPECT_EQ(ProfileWith("acodec=;pcodec=;").GetType(), PROFILE_TYPE_AUDIO);
    EXPECT_EQ(ProfileWith("acodec=;b=;").GetType(), PROFILE_TYPE_VIDEO);
    EXPECT_EQ(ProfileWith("pcodec=;acodec=;vcodec=;").GetType(), PROFILE_TYPE_VIDEO);
    EXPECT_EQ(ProfileWith("pcodec=;").GetType(), PROFILE_TYPE_PICTURE);
}

TEST(Settings, FrameSizes) {
    using Size = std::pair<std::int32_t, std::int32_t>;
    constexpr Size kUntouched{-7, -7}, kNone{0, 0};
    // clang-format off
    const struct { const char *fault, *settings; bool expected; Size size; } rows[] = {
        {"arguments_changed_without_a_size", "",                  false, kUntouched},
        {"auto_not_the_sources_size",        "s= auto ;",         true,  kNone},
        {"separator_text_or_large_number",   "s=99999999999*288 (cif);", true, {2147483647, 288}},
        {"name_that_begins_with_another",    "s=ntsc-film;",      true,  {352, 240}},
        {"name_found_in_any_case",           "s=CIF;",            false, kNone},
        {"read_on_after_the_end",            "s=640;",            false, kNone},
        {"negative_height_accepted",         "s=640x-480;",       false, kNone}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.settings);
        Size size = kUntouched;
        EXPECT_EQ(ProfileWith(row.settings).GetSize(size.first, size.second), row.expected);
        EXPECT_EQ(size, row.size);
    }
}

TEST(Settings, DurationIsThatOfThePicturesOnlyWithoutAnother) {
    EXPECT_EQ(ProfileWith("pt=9;t=Full;").GetDuration(), 0);
}

TEST(Settings, AspectRatio) {
    // clang-format off
    const struct { const char *fault, *settings; double expected; } rows[] = {
        {"ratio_cut_to_an_integer",         "aspect=4:3;",             4.0 / 3},
        {"pieces_not_read_as_settings_are", "aspect= 0x10 : 9 : 5;",   16.0 / 9},
        {"decimal_cut_off",                 "aspect=1.7777;",          1.7777},
        {"missing_denominator_divides",     "aspect=4:;",              0}};
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(ProfileWith(row.settings).GetAspectratio(), row.expected)
            << row.fault << ": " << row.settings;
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

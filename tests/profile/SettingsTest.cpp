// What settings mean: kind, frame size, times, aspect ratio, zoom, the simple view.
#include <gtest/gtest.h>

#include "tests/support/Profiles.h"

TEST(SettingsTest, KindIsDecidedByPresence) {
    EXPECT_EQ(ProfileWith("s=;VCODEC=;").GetType(), PROFILE_TYPE_UNKNOWN);
    EXPECT_EQ(ProfileWith("acodec=;pcodec=;").GetType(), PROFILE_TYPE_AUDIO);
    EXPECT_EQ(ProfileWith("acodec=;b=;").GetType(), PROFILE_TYPE_VIDEO);
    EXPECT_EQ(ProfileWith("pcodec=;acodec=;vcodec=;").GetType(), PROFILE_TYPE_VIDEO);
    EXPECT_EQ(ProfileWith("pcodec=;").GetType(), PROFILE_TYPE_PICTURE);
}

TEST(SettingsTest, FrameSizes) {
    // clang-format off
    const struct { const char* settings; bool expected; std::int32_t width, height; } rows[] = {
        {"", false, -7, -7}, {"s= auto ;", true, 0, 0}, {"s=640x480;", true, 640, 480},
        {"s=640*480;", true, 640, 480}, {"s=352x288 (cif);", true, 352, 288},
        {"s=ntsc-film;", true, 352, 240}, {"s=4cif;", true, 704, 576}, {"s=CIF;", false, 0, 0},
        {"s=cif ;", false, 0, 0}, {"s=720x;", false, 0, 0}, {"s=640;", false, 0, 0},
        {"s=640xx480;", false, 0, 0}, {"s=640x-480;", false, 0, 0}, {"s=0x10x16;", false, 0, 0},
        {"s=99999999999x2;", true, 2147483647, 2}};
    // clang-format on
    for (const auto& row : rows) {
        std::int32_t width = -7, height = -7;
        EXPECT_EQ(ProfileWith(row.settings).GetSize(width, height), row.expected) << row.settings;
        EXPECT_EQ(std::pair(width, height), std::pair(row.width, row.height)) << row.settings;
    }
}

TEST(SettingsTest, Times) {
    // clang-format off
    const struct { std::string text; std::int64_t expected; } rows[] = {
        {"00:01:30", 90'000'000}, {"1:02:3", 3'723'000'000}, {"24:00:00", 24'000'000},
        {"123:00:00", 123'000'000}, {"00:00:60", 0}, {"1:30", 1'000'000}, {"0:0:123", 12'000'000},
        {" 00:01:30", 0}, {" 90", 90'000'000}, {"0090", 90'000'000}, {"00:00:10.25", 10'250'000},
        {"2.5", 2'500'000}, {"0.1234569", 123'456}, {".5", 500'000}, {"1.5s7", 1'500'000},
        {"-00:00:05.5", -5'500'000}, {"--5", 5'000'000}, {"Full", 0},
        {"--99999999999", 2'147'483'648'000'000}};
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_EQ(ProfileWith("ss=" + row.text + ";").GetStartTime(), row.expected) << row.text;
        EXPECT_EQ(ProfileWith("pt=" + row.text + ";").GetDuration(), row.expected) << row.text;
    }
    EXPECT_EQ(ProfileWith("pt=9;t=Full;").GetDuration(), 0);
    EXPECT_EQ(kmProfile().GetDuration() + kmProfile().GetStartTime(), 0);
}

TEST(SettingsTest, AspectRatioAndZoom) {
    // clang-format off
    const struct { const char* settings; double aspect; std::int32_t zoom; } rows[] = {
        {"aspect=4:3;", 4.0 / 3, 0}, {"aspect= 0x10 : 9 : 5;zoom=0x3;", 16.0 / 9, 3},
        {"aspect=1.7777;", 1.7777, 0}, {"aspect=16:9.5;", 16.0, 0}, {"aspect=4:0;", 0, 0},
        {"aspect=4:;", 0, 0}, {"aspect=Auto;", 0, 0}, {"aspect=;", 0, 0}, {"aspect=2;zoom=Medium;", 0, 0},
        {"", 0, 0}};
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_EQ(ProfileWith(row.settings).GetAspectratio(), row.aspect) << row.settings;
        EXPECT_EQ(ProfileWith(row.settings).GetZoom(), row.zoom) << row.settings;
    }
}

TEST(SettingsTest, ChangesAreFlaggedAndRefusalsChangeNothing) {
    kmProfile profile = ProfileWith("b=1;b=2;");
    EXPECT_FALSE(profile.SetItemValue(KM_TEXT("b"), nullptr) || profile.SetItemValue(nullptr, KM_TEXT("3")));
    EXPECT_FALSE(profile.SetItemValue(KM_TEXT("B"), KM_TEXT("3")) ||
                 profile.SetSimpleItemValue(KM_TEXT("ab"), 0));
    EXPECT_TRUE(profile.GetSimpleItemValue(KM_TEXT("ab")) == -1 && !profile.GetChangedFlag());
    EXPECT_FALSE(profile.SetSimpleItemValue(KM_TEXT("b"), 0)) << "no candidates";
    EXPECT_TRUE(profile.GetChangedFlag()) << "set even though the position was refused";
    profile.SetChangedFlag(false);
    EXPECT_TRUE(profile.SetItemValue(KM_TEXT("b"), KM_TEXT(" x ")) && profile.GetChangedFlag());
    EXPECT_EQ(Utf8(profile.GetProfileItems()[0].GetValue() + profile.GetProfileItems()[1].GetValue()),
              " x 2");
    kmProfile assigned, copied;
    assigned = profile;
    copied.CopyFrom(profile);
    profile.CopyFrom(profile);
    EXPECT_TRUE(assigned.GetChangedFlag() && profile.GetChangedFlag() && !copied.GetChangedFlag());
    EXPECT_EQ(Utf8(copied.GetItemValue(KM_TEXT("b"))), " x ");
}

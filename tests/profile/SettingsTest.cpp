// What settings mean: kind, frame size, times, aspect ratio, zoom, the simple view.
#include <gtest/gtest.h>

#include "kmProfile.h"

namespace {

struct Setting {
    const kmChar* id;
    const kmChar* value;
};

kmProfile ProfileWith(const std::vector<Setting>& settings) {
    kmProfile profile;
    for (const Setting& setting : settings) {
        kmProfileItem& item = profile.GetProfileItems().emplace_back();
        item.SetID(setting.id);
        item.SetValue(setting.value);
    }
    return profile;
}

TEST(SettingsTest, KindIsDecidedByPresence) {
    const auto kindOf = [](const std::vector<const kmChar*>& ids) {
        std::vector<Setting> settings;
        for (const kmChar* id : ids) settings.push_back({id, KM_TEXT("")});
        return ProfileWith(settings).GetType();
    };
    EXPECT_EQ(kindOf({}), PROFILE_TYPE_UNKNOWN);
    EXPECT_EQ(kindOf({KM_TEXT("s"), KM_TEXT("VCODEC")}), PROFILE_TYPE_UNKNOWN);
    EXPECT_EQ(kindOf({KM_TEXT("acodec"), KM_TEXT("pcodec")}), PROFILE_TYPE_AUDIO);
    EXPECT_EQ(kindOf({KM_TEXT("acodec"), KM_TEXT("b")}), PROFILE_TYPE_VIDEO);
    EXPECT_EQ(kindOf({KM_TEXT("pcodec"), KM_TEXT("acodec"), KM_TEXT("vcodec")}), PROFILE_TYPE_VIDEO);
    EXPECT_EQ(kindOf({KM_TEXT("pcodec")}), PROFILE_TYPE_PICTURE);
}

struct SizeCase {
    const char* fault;
    const kmChar* value;
    bool expected;
    std::int32_t width, height;
};

constexpr SizeCase kSizes[] = {
    {"auto_not_trimmed_or_case_matters", KM_TEXT(" auto "), true, 0, 0},
    {"plain_size_refused", KM_TEXT("640x480"), true, 640, 480},
    {"other_separator_refused", KM_TEXT("640*480"), true, 640, 480},
    {"text_behind_the_height_refused", KM_TEXT("352x288 (cif)"), true, 352, 288},
    {"prefix_of_an_abbreviation_matched", KM_TEXT("ntsc-film"), true, 352, 240},
    {"digit_of_abbreviation_read_as_width", KM_TEXT("4cif"), true, 704, 576},
    {"abbreviation_case_ignored", KM_TEXT("CIF"), false, 0, 0},
    {"abbreviation_trimmed", KM_TEXT("cif "), false, 0, 0},
    {"width_left_behind_without_height", KM_TEXT("720x"), false, 0, 0},
    {"height_read_beyond_the_end", KM_TEXT("640"), false, 0, 0},
    {"two_separators_skipped", KM_TEXT("640xx480"), false, 0, 0},
    {"negative_height_accepted", KM_TEXT("640x-480"), false, 0, 0},
    {"hexadecimal_read", KM_TEXT("0x10x16"), false, 0, 0},
    {"huge_width_wraps", KM_TEXT("99999999999x2"), true, 2147483647, 2},
};

TEST(SettingsTest, FrameSizes) {
    for (const SizeCase& c : kSizes) {
        std::int32_t width = -7, height = -7;
        EXPECT_EQ(ProfileWith({{KM_TEXT("s"), c.value}}).GetSize(width, height), c.expected) << c.fault;
        EXPECT_EQ(width, c.width) << c.fault;
        EXPECT_EQ(height, c.height) << c.fault;
    }
    std::int32_t width = -7, height = -7;
    EXPECT_FALSE(kmProfile().GetSize(width, height));
    EXPECT_EQ(width, -7) << "written without a size";
    EXPECT_EQ(height, -7) << "written without a size";
}

struct TimeCase {
    const char* fault;
    const kmChar* text;
    std::int64_t expected;
};

constexpr TimeCase kTimes[] = {
    {"clock_time_misread", KM_TEXT("00:01:30"), 90'000'000},
    {"single_digits_refused", KM_TEXT("1:02:3"), 3'723'000'000},
    {"hour_24_read_as_clock_time", KM_TEXT("24:00:00"), 24'000'000},
    {"third_digit_of_hours_taken", KM_TEXT("123:00:00"), 123'000'000},
    {"second_60_read_as_clock_time", KM_TEXT("00:00:60"), 0},
    {"short_time_read_as_minutes", KM_TEXT("1:30"), 1'000'000},
    {"third_digit_of_seconds_taken", KM_TEXT("0:0:123"), 12'000'000},
    {"white_space_before_clock_time_skipped", KM_TEXT(" 00:01:30"), 0},
    {"white_space_before_seconds_refused", KM_TEXT(" 90"), 90'000'000},
    {"leading_zero_read_as_octal", KM_TEXT("0090"), 90'000'000},
    {"fraction_of_clock_time_lost", KM_TEXT("00:00:10.25"), 10'250'000},
    {"fraction_of_seconds_lost", KM_TEXT("2.5"), 2'500'000},
    {"fraction_rounded_at_the_seventh_digit", KM_TEXT("0.1234569"), 123'456},
    {"fraction_without_seconds_lost", KM_TEXT(".5"), 500'000},
    {"fraction_reads_past_a_letter", KM_TEXT("1.5s7"), 1'500'000},
    {"fraction_not_negated", KM_TEXT("-00:00:05.5"), -5'500'000},
    {"second_sign_ignored", KM_TEXT("--5"), 5'000'000},
    {"words_not_zero", KM_TEXT("Full"), 0},
    {"saturated_negative_seconds_overflow", KM_TEXT("--99999999999"), 2'147'483'648'000'000},
};

TEST(SettingsTest, Times) {
    for (const TimeCase& c : kTimes) {
        EXPECT_EQ(ProfileWith({{KM_TEXT("ss"), c.text}}).GetStartTime(), c.expected) << c.fault;
        EXPECT_EQ(ProfileWith({{KM_TEXT("pt"), c.text}}).GetDuration(), c.expected) << c.fault;
    }
    EXPECT_EQ(ProfileWith({{KM_TEXT("pt"), KM_TEXT("9")}, {KM_TEXT("t"), KM_TEXT("Full")}}).GetDuration(), 0);
    EXPECT_EQ(kmProfile().GetDuration(), 0);
    EXPECT_EQ(kmProfile().GetStartTime(), 0);
}

TEST(SettingsTest, AspectRatioAndZoom) {
    const auto aspect = [](const kmChar* value) {
        return ProfileWith({{KM_TEXT("aspect"), value}}).GetAspectratio();
    };
    EXPECT_EQ(aspect(KM_TEXT("4:3")), 4.0 / 3);
    EXPECT_EQ(aspect(KM_TEXT(" 0x10 : 9 : 5")), 16.0 / 9) << "pieces trimmed, base 0, the third ignored";
    EXPECT_EQ(aspect(KM_TEXT("1.7777")), 1.7777);
    EXPECT_EQ(aspect(KM_TEXT("16:9.5")), 16.0) << "a point wins over a colon";
    for (const kmChar* neutral : {KM_TEXT("4:0"), KM_TEXT("4:"), KM_TEXT("Auto"), KM_TEXT(""), KM_TEXT("2")})
        EXPECT_EQ(aspect(neutral), 0.0);
    const auto zoom = [](const kmChar* value) { return ProfileWith({{KM_TEXT("zoom"), value}}).GetZoom(); };
    EXPECT_EQ(zoom(KM_TEXT("0x3")), 3);
    EXPECT_EQ(zoom(KM_TEXT("Medium")), 0);
    EXPECT_EQ(kmProfile().GetAspectratio() + kmProfile().GetZoom(), 0.0);
}

TEST(SettingsTest, ChangesAreFlaggedAndRefusalsChangeNothing) {
    kmProfile profile = ProfileWith({{KM_TEXT("b"), KM_TEXT("1")}, {KM_TEXT("b"), KM_TEXT("2")}});
    EXPECT_FALSE(profile.SetItemValue(KM_TEXT("b"), nullptr));
    EXPECT_FALSE(profile.SetItemValue(KM_TEXT("B"), KM_TEXT("3")));
    EXPECT_FALSE(profile.SetItemValue(nullptr, KM_TEXT("3")));
    EXPECT_FALSE(profile.SetSimpleItemValue(KM_TEXT("ab"), 0));
    EXPECT_EQ(profile.GetSimpleItemValue(KM_TEXT("ab")), -1);
    EXPECT_EQ(profile.GetItemValue(KM_TEXT("ab")), KM_TEXT(""));
    EXPECT_FALSE(profile.GetChangedFlag());
    EXPECT_FALSE(profile.SetSimpleItemValue(KM_TEXT("b"), 0)) << "no candidates";
    EXPECT_TRUE(profile.GetChangedFlag()) << "set even though the position was refused";
    profile.SetChangedFlag(false);
    EXPECT_TRUE(profile.SetItemValue(KM_TEXT("b"), KM_TEXT(" x ")));
    EXPECT_TRUE(profile.GetChangedFlag());
    EXPECT_EQ(profile.GetProfileItems()[0].GetValue(), KM_TEXT(" x ")) << "stored untrimmed, in the first";
    EXPECT_EQ(profile.GetProfileItems()[1].GetValue(), KM_TEXT("2"));

    kmProfile assigned, copied;
    assigned = profile;
    copied.CopyFrom(profile);
    EXPECT_TRUE(assigned.GetChangedFlag());
    EXPECT_FALSE(copied.GetChangedFlag());
    profile.CopyFrom(profile);
    EXPECT_TRUE(profile.GetChangedFlag()) << "a copy from itself does nothing";
    EXPECT_EQ(copied.GetItemValue(KM_TEXT("b")), KM_TEXT(" x "));
}

TEST(SettingsTest, SimpleItemsAreNamedOnesInOrder) {
    kmProfile profile = ProfileWith({{KM_TEXT("r"), KM_TEXT("")}, {KM_TEXT("b"), KM_TEXT("")}});
    EXPECT_TRUE(profile.GetSimpleItems().empty());
    profile.GetProfileItems()[1].SetSimpleName(KM_TEXT("Bit rate"));
    std::vector<kmProfileItem> items = profile.GetSimpleItems();
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].GetID(), KM_TEXT("b"));
    items[0].SetValue(KM_TEXT("9"));
    EXPECT_EQ(profile.GetItemValue(KM_TEXT("b")), KM_TEXT("")) << "the items are not copies";
}

}  // namespace

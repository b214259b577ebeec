// SPDX-License-Identifier: MIT
#include "kmProfileList.h"

#include <gtest/gtest.h>

#include "tests/support/Text.h"

namespace {

using List = kmProfileList;
using Selection = std::vector<kmProfile*>;

constexpr const kmChar *kRate = KM_TEXT("rate"), *kAlone = KM_TEXT("alone"), *kB = KM_TEXT("b"),
                       *kZoom = KM_TEXT("Zoom");

// With the same lists in both views; the value is the first.
kmProfileItem Item(const kmChar* id, const char* display, const char* values) {
    kmProfileItem item;
    item.SetID(id);
    item.SetSimpleName(id);
    item.GetSimpleCandidatesDisplay() = item.GetAdvCandidatesDisplay() = Pieces(display);
    item.GetSimpleCandidatesValue() = item.GetAdvCandidatesValue() = Pieces(values);
    item.SetValue(item.GetSimpleCandidatesValue()[0]);
    return item;
}

// Each with its texts of one view, and the number of values that was left.
std::string Shown(const std::vector<kmProfileItem>& items, bool simple) {
    std::string text;
    for (const kmProfileItem& item : items) {
        text += Utf8(item.GetID()) + " " + std::to_string(item.GetAdvCandidatesValue().size());
        text += Joined(simple ? item.GetSimpleCandidatesDisplay() : item.GetAdvCandidatesDisplay()) + ";";
    }
    return text;
}

// Two profiles that share "rate", with other texts and values, "Zoom", and "b", which the second shows in the
// advanced view alone.
struct ProfileList : testing::Test {
    ProfileList() {
        first.GetProfileItems() = {Item(kRate, "A|B|C", "Auto|2|3"), Item(kAlone, "A", "1"),
                                   Item(kB, "D", "1"), Item(kZoom, "o|p|q|r", "0")};
        second.GetProfileItems() = {Item(kZoom, "z|p", "0"), Item(kB, "E", "1"),
                                    Item(kRate, "C|A|D", "30|auto|50")};
        second.GetProfileItem(kB)->SetSimpleName({});
        second.SetItemValue(kRate, KM_TEXT("auto"));
    }

    kmProfile first, second;
    const Selection one{&first}, both{&first, &second}, swapped{&second, &first};
};

TEST_F(ProfileList, CommonItemsKeepTheTextsThatAllOffer) {
    EXPECT_EQ(Shown(List::GetSimpleItems(both), true), "rate 3|A|C;Zoom 1|p;");
    EXPECT_EQ(Shown(List::GetAdvanceItems(both), false), "rate 3|A|C;b 1;Zoom 1|p;");
}

TEST_F(ProfileList, CommonValueIsSpelledAsInTheFirst) {
    EXPECT_EQ(Utf8(List::GetItemValue(both, kRate)), "Auto");
    EXPECT_EQ(Utf8(List::GetItemValue(both, kAlone)), "") << "the second profile lacks the item";
    second.SetItemValue(kRate, KM_TEXT("50"));
    EXPECT_EQ(Utf8(List::GetItemValue(both, kRate)), "") << "the values differ";
}

TEST_F(ProfileList, SettingAPositionGoesByTheCommonText) {
    EXPECT_TRUE(List::SetSimpleItemValue(both, kRate, 1));
    EXPECT_EQ(Utf8(first.GetItemValue(kRate)), "3");
    EXPECT_EQ(Utf8(second.GetItemValue(kRate)), "30");
    EXPECT_FALSE(List::SetSimpleItemValue(both, kRate, 2)) << "only the first profile has three texts";
    EXPECT_FALSE(List::SetSimpleItemValue(both, kAlone, 0));
}

TEST_F(ProfileList, CommonPositionIsThatOfTheSharedText) {
    EXPECT_EQ(List::GetSimpleItemValue(both, kRate), 0);
    second.SetItemValue(kRate, KM_TEXT("30"));
    EXPECT_EQ(List::GetSimpleItemValue(both, kRate), -1) << "A and C";
    first.SetItemValue(kRate, KM_TEXT("3"));
    EXPECT_EQ(List::GetSimpleItemValue(both, kRate), 1) << "C and C";
}

TEST_F(ProfileList, ValueIsCheckedWhereEveryProfileHasTheItem) {
    kmString message = KM_TEXT("kept");
    EXPECT_FALSE(List::IsValidValue(message, swapped, kAlone, KM_TEXT("1"))) << "the first lacks the item";
    EXPECT_TRUE(List::IsValidValue(message, both, kB, KM_TEXT("8")));
    EXPECT_EQ(Utf8(message), "kept");
    EXPECT_FALSE(List::IsValidValue(message, both, kB, KM_TEXT("-8")));
    EXPECT_EQ(Utf8(message), "Please input a valid value large than zero!");
}

TEST_F(ProfileList, DisplayTextIsThatOfAll) {
    // clang-format off
    const struct {
        const char* fault; const Selection& selection; const kmChar *id, *value; const char* expected;
    } rows[] = {
        {"zoom_counts_from_zero_or_asks_all", both,    kZoom, KM_TEXT("0x3"),  "r"},
        {"zoom_zero_has_a_text",              both,    kZoom, KM_TEXT("0"),    ""},
        {"texts_that_differ_shown",           both,    kB,    KM_TEXT("1"),    ""},
        {"value_found_in_any_case",           one,     kRate, KM_TEXT("auto"), ""}};
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(Utf8(List::GetDisplayValue(row.selection, row.id, row.value)), row.expected)
            << row.fault << ", given " << Utf8(row.id) << "=" << Utf8(row.value);
}

}  // namespace

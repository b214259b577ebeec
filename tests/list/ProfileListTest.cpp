#include "kmProfileList.h"

#include <gtest/gtest.h>

#include "tests/support/Text.h"

namespace {

using Selection = std::vector<kmProfile*>;
using List = kmProfileList;

// An item with the same lists in both views; its value is the first of them.
kmProfileItem Item(const kmChar* id, const char* display, const char* values) {
    kmProfileItem item;
    item.SetID(id);
    item.SetSimpleName(id);
    item.GetSimpleCandidatesDisplay() = item.GetAdvCandidatesDisplay() = Pieces(display);
    item.GetSimpleCandidatesValue() = item.GetAdvCandidatesValue() = Pieces(values);
    item.SetValue(item.GetSimpleCandidatesValue()[0]);
    return item;
}

// The items with the texts that are shown and the number of values.
std::string Shown(const std::vector<kmProfileItem>& items, bool simple) {
    std::string text;
    for (const kmProfileItem& item : items) {
        const auto& display = simple ? item.GetSimpleCandidatesDisplay() : item.GetAdvCandidatesDisplay();
        text += Utf8(item.GetID()) + std::to_string(item.GetAdvCandidatesValue().size());
        for (const kmString& entry : display) text += " " + Utf8(entry);
    }
    return text;
}

TEST(ProfileList, SeveralProfilesAnswerAsOne) {
    constexpr const kmChar *x = KM_TEXT("x"), *b = KM_TEXT("b"), *zoom = KM_TEXT("Zoom"),
                           *alone = KM_TEXT("alone");
    kmProfile first, second;
    first.GetProfileItems() = {Item(x, "A|B|C", "Auto|2|3"), Item(alone, "A", "1"), Item(b, "D", "1"),
                               Item(zoom, "o|p|q|r", "0")};
    second.GetProfileItems() = {Item(zoom, "z|p", "0"), Item(b, "E", "1"), Item(x, "C|A|D", "30|auto|50")};
    second.GetProfileItems()[1].SetSimpleName({});
    second.GetProfileItems()[1].SetAdvReadOnly(true);
    second.GetProfileItems()[2].SetSimpleReadOnly(true);
    second.SetItemValue(x, KM_TEXT("auto"));
    const Selection one{&first}, both{&first, &second}, swapped{&second, &first}, none;
    const auto show = [](const Selection& selection, const kmChar* id, const kmChar* value) {
        return Utf8(List::GetDisplayValue(selection, id, value));
    };
    const auto valid = [](const Selection& selection, const kmChar* id, const kmChar* value) {
        kmString message = KM_TEXT("kept");
        const bool accepted = List::IsValidValue(message, selection, id, value);
        return (accepted ? "1 " : "0 ") + Utf8(message);
    };
    EXPECT_EQ(Shown(List::GetSimpleItems(both), true), "x3 A CZoom1 p");
    EXPECT_EQ(Shown(List::GetAdvanceItems(both), false), "x3 A Cb1Zoom1 p");
    EXPECT_EQ(Utf8(List::GetItemValue(both, x)) + Utf8(List::GetItemValue(both, alone)), "Auto");
    EXPECT_TRUE(List::GetSimpleItemValue(both, x) == 0 && List::SetSimpleItemValue(both, x, 1));
    EXPECT_EQ(Utf8(first.GetItemValue(x)) + " " + Utf8(second.GetItemValue(x)), "3 30");
    EXPECT_EQ(List::GetSimpleItemValue(both, x), 1);
    EXPECT_FALSE(List::SetSimpleItemValue(both, x, 2) || List::SetSimpleItemValue(both, x, -1));
    EXPECT_FALSE(List::SetSimpleItemValue(both, alone, 0) || List::SetSimpleItemValue(both, nullptr, 0));
    EXPECT_TRUE(List::SetItemValue(both, alone, KM_TEXT("7")) && first.GetItemValue(alone) == KM_TEXT("7"));
    EXPECT_TRUE(second.SetItemValue(x, KM_TEXT("50")) && List::GetSimpleItemValue(both, x) == -1);
    EXPECT_TRUE(List::IsReadOnly(both, b) && !List::IsReadOnly(both, x));
    EXPECT_EQ(valid(swapped, alone, KM_TEXT("1")), "0 kept");
    EXPECT_EQ(valid(both, b, KM_TEXT("8")), "1 kept");
    EXPECT_EQ(valid(both, b, KM_TEXT("-8")), "0 Please input a valid value large than zero!");
    EXPECT_EQ(show(both, zoom, KM_TEXT("0x3")), "r") << "positions count from one";
    EXPECT_EQ(show(both, zoom, KM_TEXT("0")) + show(swapped, zoom, KM_TEXT("2")), "");
    EXPECT_EQ(show(both, b, KM_TEXT("1")) + show(one, b, KM_TEXT("1")), "D");
    EXPECT_EQ(show(one, x, KM_TEXT("auto")) + show(one, x, nullptr), "");
    EXPECT_TRUE(valid(none, b, KM_TEXT("?")) == "1 kept" && List::SetItemValue(none, b, KM_TEXT("1")));
    EXPECT_TRUE(List::GetItemValue(none, b).empty() && List::GetSimpleItems(none).empty());
    EXPECT_EQ(show(none, zoom, KM_TEXT("1")), "");
    EXPECT_TRUE(!List::SetSimpleItemValue(none, b, 0) && List::GetSimpleItemValue(none, b) == -1);
}

}  // namespace

#include "kmProfileList.h"

#include <gtest/gtest.h>

#include "tests/support/Text.h"
#include "text/kmCTString.h"

namespace {

using Selection = std::vector<kmProfile*>;
using List = kmProfileList;

// An item with the same lists in both views; its value is the first of them.
kmProfileItem Item(const kmChar* id, kmStringView display, kmStringView values) {
    kmProfileItem item;
    item.SetID(id);
    item.SetSimpleName(id);
    SplitText(display, KM_TEXT(','), item.GetSimpleCandidatesDisplay());
    SplitText(values, KM_TEXT(','), item.GetSimpleCandidatesValue());
    item.SetValue(item.GetSimpleCandidatesValue()[0]);
    item.GetAdvCandidatesDisplay() = item.GetSimpleCandidatesDisplay();
    item.GetAdvCandidatesValue() = item.GetSimpleCandidatesValue();
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
    // clang-format off
    first.GetProfileItems() = {Item(x, KM_TEXT("A,B,C"), KM_TEXT("Auto,2,3")), Item(alone, KM_TEXT("A"), KM_TEXT("1")), Item(b, KM_TEXT("D"), KM_TEXT("1")), Item(zoom, KM_TEXT("o,p,q,r"), KM_TEXT("0"))};
    second.GetProfileItems() = {Item(zoom, KM_TEXT("z,p"), KM_TEXT("0")), Item(b, KM_TEXT("E"), KM_TEXT("1")), Item(x, KM_TEXT("C,A,D"), KM_TEXT("30,auto,50"))};
    second.GetProfileItems()[1].SetSimpleName({});
    second.GetProfileItems()[1].SetAdvReadOnly(true);
    second.GetProfileItems()[2].SetSimpleReadOnly(true);
    second.SetItemValue(x, KM_TEXT("auto"));
    const Selection both{&first, &second}, swapped{&second, &first}, none;
    kmString message = KM_TEXT("kept");
    // In order: the setting ones change what the later ones see.
    const struct { const char* fault; std::string got, expected; } rows[] = {
        {"order_or_common_texts_wrong", Shown(List::GetSimpleItems(both), true), "x3 A CZoom1 p"},
        {"advanced_view_of_simple_items_alone", Shown(List::GetAdvanceItems(both), false), "x3 A Cb1Zoom1 p"},
        {"letter_case_of_a_later_profile", Utf8(List::GetItemValue(both, x)), "Auto"},
        {"value_that_one_lacks", Utf8(List::GetItemValue(both, alone)), ""},
        {"position_in_the_own_list", std::to_string(List::GetSimpleItemValue(both, x)), "0"},
        {"common_text_not_set", std::to_string(List::SetSimpleItemValue(both, x, 1)), "1"},
        {"set_by_position", Utf8(first.GetItemValue(x)) + " " + Utf8(second.GetItemValue(x)), "3 30"},
        {"common_text_not_found", std::to_string(List::GetSimpleItemValue(both, x)), "1"},
        {"position_out_of_range_set", std::to_string(List::SetSimpleItemValue(both, x, 2) + List::SetSimpleItemValue(both, x, -1)), "0"},
        {"item_of_one_set_simply", std::to_string(List::SetSimpleItemValue(both, alone, 0) + List::SetSimpleItemValue(both, nullptr, 0)), "0"},
        {"item_of_one_not_set", List::SetItemValue(both, alone, KM_TEXT("7")) ? Utf8(first.GetItemValue(alone)) : "", "7"},
        {"text_that_not_all_offer_found", std::to_string(second.SetItemValue(x, KM_TEXT("50")) ? List::GetSimpleItemValue(both, x) : 0), "-1"},
        {"read_only_in_the_wrong_view", std::to_string(List::IsReadOnly(both, b)) + std::to_string(List::IsReadOnly(both, x)), "10"},
        {"valid_for_a_missing_item", List::IsValidValue(message, swapped, alone, KM_TEXT("1")) ? "valid" : Utf8(message), "kept"},
        {"valid_value_refused", List::IsValidValue(message, both, b, KM_TEXT("8")) ? Utf8(message) : "invalid", "kept"},
        {"value_not_checked", List::IsValidValue(message, both, b, KM_TEXT("-8")) ? "valid" : Utf8(message), "Please input a valid value large than zero!"},
        {"zoom_counts_from_one", Utf8(List::GetDisplayValue(both, zoom, KM_TEXT("0x3"))), "r"},
        {"zoom_zero_shown", Utf8(List::GetDisplayValue(both, zoom, KM_TEXT("0"))), ""},
        {"zoom_behind_the_end_of_the_first", Utf8(List::GetDisplayValue(swapped, zoom, KM_TEXT("2"))), ""},
        {"different_texts_shown", Utf8(List::GetDisplayValue(both, b, KM_TEXT("1")) + List::GetDisplayValue({&first}, b, KM_TEXT("1"))), "D"},
        {"value_shown_in_other_case", Utf8(List::GetDisplayValue({&first}, x, KM_TEXT("auto")) + List::GetDisplayValue({&first}, x, nullptr)), ""},
        {"empty_selection_refuses", std::to_string(List::IsValidValue(message, none, b, KM_TEXT("?"))) + std::to_string(List::SetItemValue(none, b, KM_TEXT("1"))), "11"},
        {"empty_selection_has_values", Utf8(List::GetItemValue(none, b) + List::GetDisplayValue(none, zoom, KM_TEXT("1"))) + Shown(List::GetSimpleItems(none), true), ""},
        {"empty_selection_set", std::to_string(List::SetSimpleItemValue(none, b, 0)) + std::to_string(List::GetSimpleItemValue(none, b)), "0-1"}};
    // clang-format on
    for (const auto& row : rows) EXPECT_EQ(row.got, row.expected) << row.fault;
}

}  // namespace

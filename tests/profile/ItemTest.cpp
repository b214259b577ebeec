// How an item maps between its value and the positions of the simple view.
#include <gtest/gtest.h>

#include "kmProfileItem.h"
#include "tests/support/Text.h"

namespace {

kmProfileItem Item(const char* id, const char* value, const char* values, const char* display) {
    kmProfileItem item;
    item.SetID(TextFromBytes(id));
    item.SetValue(TextFromBytes(value));
    item.SetSimpleName(KM_TEXT("Shown"));
    item.GetSimpleCandidatesValue() = Pieces(values);
    item.GetSimpleCandidatesDisplay() = Pieces(display);
    return item;
}

TEST(ItemTest, PositionOfTheValue) {
    constexpr const char* rates = "320|256|192|128|96|64";
    constexpr const char* codecs = "mpeg4|xvid|xvid|h264";
    // clang-format off
    const struct { const char *id, *value, *values, *display; int expected; } rows[] = {
        {"ab", "250", rates, "", 2}, {"b", "1000", rates, "", 0}, {"b", "fast", rates, "", 5},
        {"b", " 128k", rates, "", 3}, {"b", "128.9", "128.95|128.5|1", "", 1},
        {"ab", "Auto", "320|256|192|128|96", "", 2}, {"b", "  aUTO ", rates, "", 3},
        {"b", "\tAuto", rates, "", 5}, {"B", "200", rates, "", 2}, {"ab", "Auto", "", "", 0},
        {"ab", "128", "", "", -1}, {"ab", "-1", "Auto|128", "", 1},
        {"pq", "1", "1|2|3", "Low|Normal|High", 2}, {"PQ", "Normal", "1|2|3", "Low|Normal|High", 1},
        {"pq", "1", "1|2", "Low|Normal|High", 0}, {"vcodec", "xvid", codecs, "", 1},
        {"vcodec", "MPEG4", codecs, "", 3}, {"vcodec", "xvid", "", "", -1}};
    // clang-format on
    for (const auto& row : rows) {
        kmProfileItem item = Item(row.id, row.value, row.values, row.display);
        EXPECT_EQ(item.GetSimpleItemIndex(), row.expected) << row.id << row.value;
        item.SetSimpleName({});
        EXPECT_EQ(item.GetSimpleItemIndex(), -1) << row.id << row.value << ", without a simple name";
    }
}

}  // namespace

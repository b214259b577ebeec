#include "platform/Encoding.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "tests/support/Text.h"

using namespace std::literals;

namespace {

// From a buffer of exactly that size, into one of exactly the size that is asked for.
bool Convert(std::string_view bytes, kmString& text) {
    const std::vector<unsigned char> source(bytes.begin(), bytes.end());
    std::vector<kmChar> units(source.size());
    std::size_t length = 0;
    if (!Utf8ToUtf16(source.data(), source.size(), units.data(), length)) return false;
    text.assign(units.data(), length);
    return true;
}

TEST(Encoding, TellsUtf16FromTheRest) {
    // clang-format off
    const struct { const char* fault; std::string bytes; bool expected; } rows[] = {
        {"marked_text_refused", "\xFF\xFE" + Utf16Bytes(KM_TEXT("<a/>")), true},
        {"mark_alone_refused", "\xFF\xFE", true},
        {"marked_text_cut_inside_a_unit_refused", "\xFF\xFE<\0a"s, true},
        {"unmarked_text_refused", Utf16Bytes(KM_TEXT("<a/>")), true},
        {"one_unit_refused", "<\0"s, true},
        {"tag_behind_256_other_units_missed", Utf16Bytes(kmString(300, 0x65e5) + KM_TEXT("<a/>")), true},
        {"null_and_2000_units_refused", Utf16Bytes(KM_TEXT("<a\u2000\u0d00")) + "\0\0>\0"s, true},
        {"unmarked_odd_size_accepted", "<\0a\0>"s, false},
        {"big_endian_accepted", "\0<\0a\0/\0>"s, false},
        {"ascii_of_even_size_accepted", "this is even", false},
        {"utf8_of_other_script_accepted", "\xE6\x97\xA5\xE6\x9C\xAC<a/>", false},
        {"ascii_with_a_null_byte_accepted", "<a>b\0c</a>"s, false},
        {"nothing_accepted", "", false},
        {"one_byte_accepted", "\xFF", false}};
    // clang-format on
    for (const auto& row : rows) {
        const std::vector<unsigned char> exact(row.bytes.begin(), row.bytes.end());
        EXPECT_EQ(IsUtf16Text(exact.data(), exact.size()), row.expected) << row.fault;
    }
}

TEST(Encoding, RefusesInvalidUtf8) {
    // clang-format off
    const struct { const char* fault; std::string bytes; } rows[] = {
        {"lone_continuation", "\x80"}, {"never_a_lead", "\xC1\xBF"}, {"lead_above_f4", "\xF5\x80\x80\x80"},
        {"five_bytes", "\xF8\x88\x80\x80\x80"}, {"two_byte_character_cut", "\xC3"},
        {"three_byte_character_cut", "\xE6\x97"}, {"four_byte_character_cut", "\xF0\x9F\x98"},
        {"surrogate", "\xED\xA0\x80"}, {"surrogate_pair", "\xED\xA0\xBD\xED\xB8\x80"},
        {"null_in_two_bytes", "\xC0\x80"}, {"slash_in_three_bytes", "\xE0\x80\xAF"},
        {"slash_in_four_bytes", "\xF0\x80\x80\xAF"}, {"above_10ffff", "\xF4\x90\x80\x80"},
        {"latin1", "caf\xE9 au"}};
    // clang-format on
    kmString text;
    for (const auto& row : rows) {
        EXPECT_FALSE(Convert(row.bytes, text)) << row.fault;
        EXPECT_FALSE(Convert(row.bytes + "</a>", text)) << row.fault << " in front of text";
    }
}

TEST(Encoding, EveryCharacterSurvivesUtf8) {
    kmString all(1, 0);
    for (std::uint32_t code = 1; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        if (code > 0xFFFF) all += static_cast<kmChar>(0xD7C0 + (code >> 10));
        all += static_cast<kmChar>(code > 0xFFFF ? 0xDC00 + (code & 0x3FF) : code);
    }
    kmString back;
    ASSERT_TRUE(Convert(BytesFromText(all), back));
    EXPECT_TRUE(back == all);
}

TEST(Encoding, EveryFileNameComesBack) {
    std::mt19937 random(1);
    const std::string_view pieces = "a/\\\x80\xBF\xC3\xA9\xE6\x97\xA5\xED\xA0\xB0\xF0\x9F\x98\x80\xFF"sv;
    for (int round = 0; round < 20000; ++round) {
        std::string name(random() % 8, 'x');
        for (char& c : name) c = pieces[random() % pieces.size()];
        const kmString text = TextFromBytes(name);
        ASSERT_EQ(BytesFromText(text), name);
        ASSERT_EQ(text.find(KM_TEXT('\\')), kmString::npos) << "a name would become two";
    }
}

}  // namespace

// SPDX-License-Identifier: MIT
#include "text/Encoding.h"

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
    const struct { const char* name; std::string bytes; bool expected; } rows[] = {
        {"marked_file_cut_in_a_unit_refused", "\xFF\xFE<\0a"s, true},
        {"mark_demanded", Utf16Bytes(KM_TEXT("<a/>")), true},
        {"null_or_swapped_space_refused", Utf16Bytes(KM_TEXT("<a\u2000\u0d00")) + "\0\0>\0"s, true},
        {"odd_size_without_mark_accepted", "<\0a\0>"s, false},
        {"big_endian_accepted", "\0<\0a\0/\0>"s, false},
        {"half_a_mark_completed_beyond_the_end", "\xFF", false},
    };
    // clang-format on
    for (const auto& row : rows) {
        const std::vector<unsigned char> exact(row.bytes.begin(), row.bytes.end());
        EXPECT_EQ(IsUtf16Text(exact.data(), exact.size()), row.expected)
            << row.name << " given " << testing::PrintToString(row.bytes);
    }
}

TEST(Encoding, RefusesInvalidUtf8) {
    // clang-format off
    const struct { const char* name; std::string bytes; } rows[] = {
        {"four_bytes_cut", "\xF0\x9F\x98"},
        {"continuation_not_checked", "caf\xE9 au"},
        {"surrogate", "\xED\xA0\x80"},
        {"null_in_two_bytes", "\xC0\x80"},
        {"overlong_three_bytes", "\xE0\x80\xAF"},
        {"beyond_the_last_character", "\xF4\x90\x80\x80"},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        kmString text;
        for (const std::string& bytes : {row.bytes, row.bytes + "</a>"}) {
            EXPECT_FALSE(Convert(bytes, text))
                << testing::PrintToString(bytes) << " became " << testing::PrintToString(text);
        }
    }
}

TEST(Encoding, EveryCharacterSurvivesUtf8) {
    for (std::uint32_t code = 1; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        kmString text;
        if (code > 0xFFFF) text += static_cast<kmChar>(0xD7C0 + (code >> 10));
        text += static_cast<kmChar>(code > 0xFFFF ? 0xDC00 + (code & 0x3FF) : code);
        text += KM_TEXT("next");
        kmString back;
        ASSERT_TRUE(Convert(BytesFromText(text), back)) << "refused: " << std::hex << code;
        ASSERT_EQ(back, text) << std::hex << code;
    }
}

TEST(Encoding, EveryFileNameComesBack) {
    std::mt19937 random(1);
    const std::string_view pieces = "a/\\\x80\xBF\xC3\xA9\xE6\x97\xA5\xED\xA0\xB0\xF0\x9F\x98\x80\xFF"sv;
    for (int round = 0; round < 20000; ++round) {
        std::string name(random() % 8, 'x');
        for (char& c : name) c = pieces[random() % pieces.size()];
        const kmString text = TextFromBytes(name);
        ASSERT_EQ(BytesFromText(text), name);
        ASSERT_EQ(text.find(KM_TEXT('\\')), kmString::npos)
            << testing::PrintToString(name) << " would become two names";
    }
}

}  // namespace

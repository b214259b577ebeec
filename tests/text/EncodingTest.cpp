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
    const struct { std::string bytes; bool expected; } rows[] = {
        {"\xFF\xFE" + Utf16Bytes(KM_TEXT("<a/>")), true}, {"\xFF\xFE<\0a"s, true},
        {Utf16Bytes(KM_TEXT("<a/>")), true}, {Utf16Bytes(kmString(300, 0x65e5) + KM_TEXT("<a/>")), true},
        {Utf16Bytes(KM_TEXT("<a\u2000\u0d00")) + "\0\0>\0"s, true}, {"<\0a\0>"s, false},
        {"\0<\0a\0/\0>"s, false}, {"this is even", false}, {"\xE6\x97\xA5\xE6\x9C\xAC<a/>", false},
        {"<a>b\0c</a>"s, false}, {"", false}, {"\xFF", false}};
    // clang-format on
    for (const auto& row : rows) {
        const std::vector<unsigned char> exact(row.bytes.begin(), row.bytes.end());
        EXPECT_EQ(IsUtf16Text(exact.data(), exact.size()), row.expected) << testing::PrintToString(row.bytes);
    }
}

TEST(Encoding, RefusesInvalidUtf8) {
    kmString text;
    // A lone continuation, wrong leads, cut and overlong characters, surrogates, what is beyond the last
    // character.
    for (const std::string bytes :
         {"\x80", "\xC1\xBF", "\xF5\x80\x80\x80", "\xF8\x88\x80\x80\x80", "\xC3", "\xE6\x97", "\xF0\x9F\x98",
          "\xED\xA0\x80", "\xED\xA0\xBD\xED\xB8\x80", "\xC0\x80", "\xE0\x80\xAF", "\xF0\x80\x80\xAF",
          "\xF4\x90\x80\x80", "caf\xE9 au"})
        EXPECT_FALSE(Convert(bytes, text) || Convert(bytes + "</a>", text)) << testing::PrintToString(bytes);
}

TEST(Encoding, EveryCharacterSurvivesUtf8) {
    kmString all(1, 0);
    for (std::uint32_t code = 1; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        if (code > 0xFFFF) all += static_cast<kmChar>(0xD7C0 + (code >> 10));
        all += static_cast<kmChar>(code > 0xFFFF ? 0xDC00 + (code & 0x3FF) : code);
    }
    kmString back;
    EXPECT_TRUE(Convert(BytesFromText(all), back) && back == all);
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

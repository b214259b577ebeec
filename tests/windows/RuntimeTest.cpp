// SPDX-License-Identifier: MIT
// How we read numbers and compare texts, against the system's runtimes. That nothing beyond ASCII counts in a
// number, where they know other digits and spaces, is a rule of our own.
#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <regex>

#include "tests/support/Text.h"
#include "tests/windows/Runtimes.h"
#include "text/Numbers.h"

namespace {

// Texts that look like numbers, more or less; always the same ones.
std::vector<std::wstring> NumberTexts() {
    static constexpr std::wstring_view kUsual = L"0123456789012345678900..--++eE xX";
    static constexpr std::wstring_view kRare = L"abcdfABDFghinINpty,;:_\t\n\v\f\r";
    static constexpr std::wstring_view kStarts[] = {L"0x",  L"-0X", L"2147483", L"-21474836", L"inf",
                                                    L"nan", L"1e",  L"1d",      L"9999999"};
    std::mt19937 random(20240229);
    std::vector<std::wstring> texts(200000);
    for (std::wstring& text : texts) {
        if (random() % 4 == 0) text = kStarts[random() % std::size(kStarts)];
        for (std::size_t i = random() % 14; i > 0; --i) {
            const std::wstring_view units = random() % 5 == 0 ? kRare : kUsual;
            text += units[random() % units.size()];
        }
    }
    return texts;
}

bool BeginsLike(const std::wstring& text, const std::wregex& beginning) {
    return std::regex_search(text, beginning, std::regex_constants::match_continuous);
}

TEST(WindowsRuntime, IntegersRead) {
    const std::wregex prefixAlone(L"[ \t-\r]*[-+]?0[xX](?![0-9a-fA-F])");  // to us a 0 in front of an "x"
    for (const std::wstring& text : NumberTexts()) {
        for (const int base : {0, 10}) {
            if (base == 0 && BeginsLike(text, prefixAlone)) continue;
            const wchar_t* ourEnd = nullptr;
            const long ours = ReadInteger(text.c_str(), base, &ourEnd);
            for (const Runtime& runtime : kRuntimes) {
                wchar_t* theirEnd = nullptr;
                ASSERT_EQ(ours, runtime.toLong(text.c_str(), &theirEnd, base)) << runtime.name << Utf8(text);
                ASSERT_EQ(ourEnd, theirEnd) << "where reading stopped, " << runtime.name << Utf8(text);
            }
        }
    }
}

TEST(WindowsRuntime, DecimalsRead) {
    const std::wregex exponentD(L"[ \t-\r]*[-+]?[0-9.]+[dD]");         // to us the number ends there
    const std::wregex onlyNewer(L"[ \t-\r]*[-+]?(?:0[xX]|[iInN]).*");  // hexadecimal numbers, words
    for (const std::wstring& text : NumberTexts()) {
        if (BeginsLike(text, exponentD)) continue;
        for (const Runtime& runtime : kRuntimes) {
            if (runtime.IsNewer() && BeginsLike(text, onlyNewer)) continue;
            ASSERT_EQ(ReadDecimal(text.c_str()), runtime.toDouble(text.c_str(), nullptr))
                << runtime.name << Utf8(text);
        }
    }
}

TEST(WindowsRuntime, TextsComparedWithoutCase) {
    for (const Runtime& runtime : kRuntimes) {
        for (unsigned unit = 1; unit < 0x10000; ++unit) {
            for (const std::wstring other : {L"a", L"Z", L"@", L"\x00E9", L"\x0131"}) {
                const std::wstring text(1, static_cast<wchar_t>(unit));
                const bool theirs = runtime.compareNoCase(text.c_str(), other.c_str()) == 0;
                ASSERT_EQ(EqualNoCase(text, other), theirs)
                    << runtime.name << " of \"" << Utf8(text) << "\" and \"" << Utf8(other) << '"';
            }
        }
    }
}

}  // namespace

// Our readers and writers of numbers against the system's two runtimes, which are asked directly: the
// compiler would put functions of its own in their place.
#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <random>
#include <regex>
#include <set>

#include "tests/support/Text.h"
#include "text/Numbers.h"

namespace {

constexpr int kTexts = 200000;

struct Runtime {
    const char* name;
    long (*toLong)(const wchar_t*, wchar_t**, int) = nullptr;
    double (*toDouble)(const wchar_t*, wchar_t**) = nullptr;
    int (*compareNoCase)(const wchar_t*, const wchar_t*) = nullptr;

    explicit Runtime(const char* library) : name(library) {
        const HMODULE module = LoadLibraryA(library);
        const auto find = [module](auto& function, const char* entry) {
            const auto address = reinterpret_cast<void*>(GetProcAddress(module, entry));
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(address);
        };
        find(toLong, "wcstol");
        find(toDouble, "wcstod");
        find(compareNoCase, "_wcsicmp");
    }
};

const Runtime& RuntimeAt(int index) {
    static const Runtime runtimes[] = {Runtime("msvcrt.dll"), Runtime("ucrtbase.dll")};
    return runtimes[index];
}

enum Function { Integer0 = 1, Integer10 = 2, Decimal = 4 };

struct Difference {
    const char* name;
    int functions;
    bool olderRuntimeToo;
    std::wregex beginning;

    bool Concerns(Function function, int runtime) const {
        return (functions & function) != 0 && (olderRuntimeToo || runtime == 1);
    }
    bool Begins(const std::wstring& text) const {
        return std::regex_search(text, beginning, std::regex_constants::match_continuous);
    }
};

const std::wstring kSpace = L"[ \t-\r]*", kSign = kSpace + L"[-+]?";
const std::wstring kForeignSpace = L"[\x0085\x00A0\x1680\x2000-\x200A\x2028\x2029\x202F\x205F\x3000]";
const std::wstring kForeignDigit =
    L"[\x0660-\x0669\x06F0-\x06F9\x0966-\x096F\x09E6-\x09EF\x0A66-\x0A6F\x0AE6-\x0AEF\x0B66-\x0B6F"
    L"\x0C66-\x0C6F\x0CE6-\x0CEF\x0D66-\x0D6F\x0E50-\x0E59\x0ED0-\x0ED9\x0F20-\x0F29\x1040-\x1049"
    L"\x17E0-\x17E9\x1810-\x1819\xFF10-\xFF19]";

// Only ASCII white space and digits count, "0x" is a 0 in front of an "x", and "1d3" is 1; the rest is read
// by the newer runtime alone.
// clang-format off
const Difference kDifferences[] = {
    {"white_space", Integer0 | Integer10 | Decimal, true, std::wregex(kSpace + kForeignSpace)},
    {"digits", Integer0 | Integer10, true, std::wregex(kSign + L"[0-9a-fA-FxX]*" + kForeignDigit)},
    {"prefix_alone", Integer0, true, std::wregex(kSign + L"0[xX](?![0-9a-fA-F])")},
    {"d_as_exponent", Decimal, true, std::wregex(kSign + L"[0-9.]+[dD]")},
    {"hexadecimal", Decimal, false, std::wregex(kSign + L"0[xX]")},
    {"infinity_and_nan", Decimal, false, std::wregex(kSign + L"[iInN]")}};
// clang-format on

class TextSource {
public:
    std::wstring Next() {
        static constexpr std::wstring_view kUsual = L"0123456789012345678900..--++eE xX";
        static constexpr std::wstring_view kRare =
            L"abcdfABDFghinINpty,;:_\t\n\v\f\r\x0085\x00A0\x00B2\x00E9\x00C9\x0130\x0131\x0660\x0663\x0966"
            L"\x0BE6\x1946\x2003\x2028\x3000\xFF10\xFF13\xFF21\x212A\x017F\xD83D\xFEFF";
        static constexpr std::wstring_view kStarts[] = {L"0x",  L"-0X", L"2147483", L"-21474836", L"inf",
                                                        L"nan", L"1e",  L"1d",      L"9999999",   L"\x3000"};
        std::wstring text;
        if (m_random() % 4 == 0) text = kStarts[m_random() % std::size(kStarts)];
        for (std::size_t i = m_random() % 14; i > 0; --i) {
            const std::wstring_view units = m_random() % 5 == 0 ? kRare : kUsual;
            text += units[m_random() % units.size()];
        }
        return text;
    }

private:
    std::mt19937 m_random{20240229};
};

// `same` tells whether a runtime and we agree on a text. What differs must be in the table, and each row must
// be needed.
void Compare(Function function, const std::function<bool(const Runtime&, const std::wstring&)>& same) {
    for (int runtime : {0, 1}) {
        std::set<std::string> seen, expected;
        for (const Difference& row : kDifferences)
            if (row.Concerns(function, runtime)) expected.insert(row.name);
        TextSource source;
        int unknown = 0;
        for (int i = 0; i < kTexts && unknown < 10; ++i) {
            const std::wstring text = source.Next();
            if (same(RuntimeAt(runtime), text)) continue;
            std::size_t row = 0;
            while (row < std::size(kDifferences) &&
                   !(kDifferences[row].Concerns(function, runtime) && kDifferences[row].Begins(text)))
                ++row;
            if (row < std::size(kDifferences)) seen.insert(kDifferences[row].name);
            unknown += row < std::size(kDifferences) ? 0 : 1;
            EXPECT_LT(row, std::size(kDifferences))
                << RuntimeAt(runtime).name << " reads otherwise: " << Utf8(text);
        }
        EXPECT_EQ(seen, expected);
    }
}

TEST(Runtime, IntegersRead) {
    for (const auto& [function, base] : {std::pair(Integer0, 0), std::pair(Integer10, 10)}) {
        Compare(function, [base = base](const Runtime& runtime, const std::wstring& text) {
            wchar_t* theirEnd = nullptr;
            const wchar_t* ourEnd = nullptr;
            const long theirs = runtime.toLong(text.c_str(), &theirEnd, base);
            return theirs == ReadInteger(text.c_str(), base, &ourEnd) && theirEnd == ourEnd;
        });
    }
}

TEST(Runtime, DecimalsRead) {
    Compare(Decimal, [](const Runtime& runtime, const std::wstring& text) {
        return runtime.toDouble(text.c_str(), nullptr) == ReadDecimal(text.c_str());
    });
}

TEST(Runtime, TextsComparedWithoutCase) {
    for (int runtime : {0, 1}) {
        TextSource source;
        int equal = 0;
        for (int i = 0; i < kTexts; ++i) {
            const std::wstring text = source.Next();
            std::wstring other = i % 2 == 0 ? text : source.Next().substr(0, 2);
            for (wchar_t& c : other) c = static_cast<wchar_t>(c < 0x80 || i % 3 == 0 ? towupper(c) : c);
            const bool theirs = RuntimeAt(runtime).compareNoCase(text.c_str(), other.c_str()) == 0;
            equal += theirs ? 1 : 0;
            ASSERT_EQ(EqualNoCase(text, other), theirs) << Utf8(text) << " and " << Utf8(other);
        }
        EXPECT_TRUE(equal > kTexts / 10 && equal < kTexts) << equal;
    }
}

}  // namespace

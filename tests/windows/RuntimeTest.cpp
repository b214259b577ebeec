// Our readers and writers of numbers against the system's two runtimes, which are asked directly: the
// compiler would put functions of its own in their place.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdarg>
#include <functional>
#include <random>

#include "tests/support/Text.h"
#include "text/Numbers.h"

namespace {

constexpr int kTexts = 200000;

struct Runtime {
    const char* name;
    long (*toLong)(const wchar_t*, wchar_t**, int) = nullptr;
    double (*toDouble)(const wchar_t*, wchar_t**) = nullptr;
    int (*compareNoCase)(const wchar_t*, const wchar_t*) = nullptr;
    int (*isDigit)(wint_t) = nullptr;
    wchar_t* (*fromInt)(int, wchar_t*, int) = nullptr;
    int (*print)(wchar_t*, std::size_t, const wchar_t*, std::va_list) = nullptr;
    // The newer runtime has but this way to print.
    int (*printCommon)(std::uint64_t, wchar_t*, std::size_t, const wchar_t*, void*, std::va_list) = nullptr;

    explicit Runtime(const char* library) : name(library) {
        const HMODULE module = LoadLibraryA(library);
        const auto find = [module](auto& function, const char* entry) {
            const auto address = reinterpret_cast<void*>(GetProcAddress(module, entry));
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(address);
        };
        find(toLong, "wcstol");
        find(toDouble, "wcstod");
        find(compareNoCase, "_wcsicmp");
        find(isDigit, "iswdigit");
        find(fromInt, "_itow");
        find(print, "_vsnwprintf");
        find(printCommon, "__stdio_common_vswprintf");
    }

    std::wstring Print(const wchar_t* format, ...) const {
        wchar_t buffer[260];
        std::va_list arguments;
        va_start(arguments, format);
        const int length = print != nullptr ? print(buffer, 260, format, arguments)
                                            : printCommon(0, buffer, 260, format, nullptr, arguments);
        va_end(arguments);
        return std::wstring(buffer, static_cast<std::size_t>(length));
    }
};

const Runtime& RuntimeAt(int index) {
    static const Runtime runtimes[] = {Runtime("msvcrt.dll"), Runtime("ucrtbase.dll")};
    return runtimes[index];
}

bool IsAsciiSpace(wchar_t c) { return c == L' ' || (c >= 9 && c <= 13); }

bool IsForeignSpace(wchar_t c) {
    return (c >= 0x2000 && c <= 0x200A) ||
           std::wstring_view(L"\x0085\x00A0\x1680\x2028\x2029\x202F\x205F\x3000").find(c) !=
               std::wstring::npos;
}

bool IsForeignDigit(wchar_t c) {
    for (const int zero : {0x0660, 0x06F0, 0x0966, 0x09E6, 0x0A66, 0x0AE6, 0x0B66, 0x0C66, 0x0CE6, 0x0D66,
                           0x0E50, 0x0ED0, 0x0F20, 0x1040, 0x17E0, 0x1810, 0xFF10}) {
        if (c >= zero && c < zero + 10) return true;
    }
    return false;
}

std::wstring_view SkipSpace(std::wstring_view text) {
    while (!text.empty() && IsAsciiSpace(text.front())) text.remove_prefix(1);
    return text;
}

std::wstring_view SkipSign(std::wstring_view text) {
    text = SkipSpace(text);
    if (!text.empty() && (text.front() == L'-' || text.front() == L'+')) text.remove_prefix(1);
    return text;
}

bool BeginsForeign(std::wstring_view text) {
    text = SkipSpace(text);
    return !text.empty() && IsForeignSpace(text.front());
}

// A digit of another script stands where the ASCII number ends.
bool GoesOnForeign(std::wstring_view text) {
    text = SkipSign(text);
    const std::size_t end = text.find_first_not_of(L"0123456789abcdefABCDEFxX");
    return end != text.npos && IsForeignDigit(text[end]);
}

bool HasPrefix(std::wstring_view text) {
    text = SkipSign(text);
    return text.size() > 1 && text[0] == L'0' && (text[1] == L'x' || text[1] == L'X');
}

bool HasPrefixAlone(std::wstring_view text) {
    if (!HasPrefix(text)) return false;
    text = SkipSign(text).substr(2);
    return text.empty() || std::wstring_view(L"0123456789abcdefABCDEF").find(text[0]) == text.npos;
}

bool HasLetterD(std::wstring_view text) {
    text = SkipSign(text);
    const std::size_t end = text.find_first_not_of(L"0123456789.");
    return end != text.npos && end > 0 && (text[end] == L'd' || text[end] == L'D');
}

bool BeginsWithWord(std::wstring_view text) {
    text = SkipSign(text);
    return !text.empty() && std::wstring_view(L"iInN").find(text[0]) != text.npos;
}

enum Function { Integer0, Integer10, Decimal };

struct Difference {
    const char* name;
    std::vector<Function> functions;
    std::vector<int> runtimes;
    bool (*applies)(std::wstring_view);
    const char* why;
};

const Difference kDifferences[] = {
    {"white_space", {Integer0, Integer10, Decimal}, {0, 1}, BeginsForeign, "only the ASCII kind is skipped"},
    {"digits", {Integer0, Integer10}, {0, 1}, GoesOnForeign, "only ASCII digits count on every system"},
    {"prefix_alone", {Integer0}, {0, 1}, HasPrefixAlone, "\"0x\" is the number 0 in front of an \"x\""},
    {"d_as_exponent", {Decimal}, {0, 1}, HasLetterD, "another language's habit; \"1d3\" is 1"},
    {"hexadecimal", {Decimal}, {1}, HasPrefix, "read by the newer runtime alone"},
    {"infinity_and_nan", {Decimal}, {1}, BeginsWithWord, "read by the newer runtime alone"},
};

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
    std::uint32_t Number() { return static_cast<std::uint32_t>(m_random()) >> (m_random() % 32); }

private:
    std::mt19937 m_random{20240229};
};

// `same` tells whether a runtime and we agree on a text. What differs must be in the table, and each row must
// be needed.
void Compare(Function function, const std::function<bool(const Runtime&, const std::wstring&)>& same) {
    for (int runtime : {0, 1}) {
        std::vector<int> seen(std::size(kDifferences));
        TextSource source;
        int unknown = 0;
        for (int i = 0; i < kTexts && unknown < 10; ++i) {
            const std::wstring text = source.Next();
            if (same(RuntimeAt(runtime), text)) continue;
            bool known = false;
            for (std::size_t row = 0; row < seen.size() && !known; ++row) {
                const Difference& difference = kDifferences[row];
                known = std::count(difference.functions.begin(), difference.functions.end(), function) > 0 &&
                        std::count(difference.runtimes.begin(), difference.runtimes.end(), runtime) > 0 &&
                        difference.applies(text);
                seen[row] += known ? 1 : 0;
            }
            unknown += known ? 0 : 1;
            EXPECT_TRUE(known) << RuntimeAt(runtime).name << " reads otherwise: \"" << Utf8(text) << '"';
        }
        for (std::size_t row = 0; row < seen.size(); ++row) {
            const Difference& difference = kDifferences[row];
            const bool expected =
                std::count(difference.functions.begin(), difference.functions.end(), function) > 0 &&
                std::count(difference.runtimes.begin(), difference.runtimes.end(), runtime) > 0;
            EXPECT_EQ(seen[row] > 0, expected) << difference.name << ": " << difference.why;
        }
    }
}

void CompareIntegers(Function function, int base) {
    Compare(function, [base](const Runtime& runtime, const std::wstring& text) {
        wchar_t* theirEnd = nullptr;
        const wchar_t* ourEnd = nullptr;
        const long theirs = runtime.toLong(text.c_str(), &theirEnd, base);
        return theirs == ReadInteger(text.c_str(), base, &ourEnd) && theirEnd == ourEnd;
    });
}

TEST(Runtime, IntegersOfAnyBaseRead) { CompareIntegers(Integer0, 0); }
TEST(Runtime, DecimalIntegersRead) { CompareIntegers(Integer10, 10); }

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
        EXPECT_GT(equal, kTexts / 10);
        EXPECT_LT(equal, kTexts);
    }
}

TEST(Runtime, IntegersWritten) {
    for (int runtime : {0, 1}) {
        TextSource source;
        for (int i = 0; i < kTexts; ++i) {
            const auto value = static_cast<int>(i == 0 ? 0x80000000u : source.Number());
            wchar_t buffer[40];
            ASSERT_EQ(IntegerText(value), RuntimeAt(runtime).fromInt(value, buffer, 10));
            ASSERT_EQ(IntegerText(value), RuntimeAt(runtime).Print(L"%d", value));
        }
    }
}

// Beyond ASCII every runtime has digits of its own, which differ between versions.
TEST(Runtime, AsciiDigitsRecognised) {
    for (int runtime : {0, 1}) {
        for (wchar_t c = 0; c < 0x80; ++c) {
            EXPECT_EQ(IsDigit(c), RuntimeAt(runtime).isDigit(c) != 0) << static_cast<int>(c);
        }
    }
}

}  // namespace

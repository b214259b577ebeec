// How we read and compare, against the system's runtimes.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iomanip>
#include <random>
#include <regex>
#include <set>

#include "tests/support/Text.h"
#include "tests/windows/Runtimes.h"
#include "text/Numbers.h"

namespace {

enum Function { Integer0 = 1, Integer10 = 2, Decimal = 4 };

struct Difference {
    const char* name;
    int functions;
    bool olderRuntimeToo;
    std::wregex beginning;

    bool Concerns(Function function, const Runtime& runtime) const {
        return (functions & function) != 0 && (olderRuntimeToo || runtime.IsNewer());
    }
    bool Begins(const std::wstring& text) const {
        return std::regex_search(text, beginning, std::regex_constants::match_continuous);
    }
};

const std::wstring kSign = L"[ \t-\r]*[-+]?";

// "0x" is a 0 in front of an "x", and "1d3" is 1; the rest is read by the newer runtime alone. That nothing
// beyond ASCII counts, which both read, is a rule of our own.
// clang-format off
const Difference kDifferences[] = {
    {"prefix_alone_is_no_number", Integer0, true, std::wregex(kSign + L"0[xX](?![0-9a-fA-F])")},
    {"d_read_as_exponent", Decimal, true, std::wregex(kSign + L"[0-9.]+[dD]")},
    {"hexadecimal_read_as_decimal", Decimal, false, std::wregex(kSign + L"0[xX]")},
    {"infinity_and_nan_read", Decimal, false, std::wregex(kSign + L"[iInN]")},
};
// clang-format on

// A number, and how many units of the text it took, if that is of interest.
struct Answer {
    double value;
    std::ptrdiff_t length = -1;
    bool operator==(const Answer&) const = default;
};
void PrintTo(const Answer& answer, std::ostream* out) {
    *out << std::setprecision(17) << answer.value;
    if (answer.length >= 0) *out << " from " << answer.length << " units";
}
struct Answers {
    Answer ours, theirs;
};

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

// What differs must be in the table, and each of its rows must be needed.
void Compare(Function function, const std::function<Answers(const Runtime&, const wchar_t*)>& ask) {
    const std::vector<std::wstring> texts = NumberTexts();
    for (const Runtime& runtime : kRuntimes) {
        std::set<std::string> seen, expected;
        for (const Difference& row : kDifferences)
            if (row.Concerns(function, runtime)) expected.insert(row.name);
        int unknown = 0;
        for (const std::wstring& text : texts) {
            const Answers answers = ask(runtime, text.c_str());
            if (answers.ours == answers.theirs) continue;
            const auto known = std::find_if(
                std::begin(kDifferences), std::end(kDifferences),
                [&](const Difference& row) { return row.Concerns(function, runtime) && row.Begins(text); });
            if (known != std::end(kDifferences)) {
                seen.insert(known->name);
                continue;
            }
            EXPECT_EQ(answers.ours, answers.theirs) << runtime.name << " of \"" << Utf8(text) << '"';
            if (++unknown == 10) return;
        }
        EXPECT_EQ(seen, expected) << runtime.name;
    }
}

TEST(WindowsRuntime, IntegersRead) {
    for (const auto& [function, base] : {std::pair(Integer0, 0), std::pair(Integer10, 10)}) {
        SCOPED_TRACE(base);
        Compare(function, [base = base](const Runtime& runtime, const wchar_t* text) {
            wchar_t* theirEnd = nullptr;
            const wchar_t* ourEnd = nullptr;
            const double theirs = runtime.toLong(text, &theirEnd, base);
            const double ours = ReadInteger(text, base, &ourEnd);
            return Answers{{ours, ourEnd - text}, {theirs, theirEnd - text}};
        });
    }
}

TEST(WindowsRuntime, DecimalsRead) {
    Compare(Decimal, [](const Runtime& runtime, const wchar_t* text) {
        return Answers{{ReadDecimal(text)}, {runtime.toDouble(text, nullptr)}};
    });
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

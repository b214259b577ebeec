// SPDX-License-Identifier: MIT
#include "tools/conversion/CommandLine.h"

#include <gtest/gtest.h>

#include "tests/support/Text.h"

namespace {

const struct {
    const char* fault;
    kmString argument;
    kmString quoted;
} kArguments[] = {
    {"empty_one_lost", KM_TEXT(""), KM_TEXT(R"("")")},
    {"split_at_a_space", KM_TEXT("a b\tc"), KM_TEXT("\"a b\tc\"")},
    {"quotation_mark_ends_it", KM_TEXT(R"(a"b)"), KM_TEXT(R"("a\"b")")},
    {"backslash_doubled_without_need", KM_TEXT(R"(c:\d\e)"), KM_TEXT(R"("c:\d\e")")},
    {"backslash_before_a_quotation_mark_not_doubled", KM_TEXT(R"(a\\"b)"), KM_TEXT(R"("a\\\\\"b")")},
    {"last_backslash_swallows_the_end", KM_TEXT(R"(c:\d\\)"), KM_TEXT(R"("c:\d\\\\")")},
};

TEST(CommandLine, TakenApartGivesTheArguments) {
    for (const auto& row : kArguments) {
        const kmString line = CommandLineOf(KM_TEXT("d\\"), {row.argument, KM_TEXT("z")});
        EXPECT_EQ(line, KM_TEXT(R"("d\" )") + row.quoted + KM_TEXT(R"( "z")"))
            << row.fault << ": " << Utf8(line);
    }
}

}  // namespace

// SPDX-License-Identifier: MIT
// Arguments reach another program as they are, however it takes its command line apart.
#include "tools/conversion/ChildProcess.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tools/Failure.h"

namespace {

const std::string kNul(1, '\0');

const struct {
    const char* fault;
    std::string argument;
} kArguments[] = {
    {"empty_one_lost", ""},
    {"split_at_spaces", "My \t Holiday"},
    {"quotation_marks_swallowed", R"(a "b c" d""e)"},
    {"last_backslashes_swallow_the_end", R"(c:\my folder\\)"},
    {"backslashes_before_a_quotation_mark", R"(a\"b\\"c\\\"d\\\\")"},
    {"wildcard_expanded", "*"},
    {"line_break_ends_the_command", "a\nb\r\n"},
    {"obeyed_by_a_command_processor", R"(%PATH% ^& "& echo !x! | <>)"},
    {"beyond_the_code_page", "caf\xC3\xA9 \xE6\x97\xA5 \xF0\x9F\x98\x80"},
    {"option_of_the_one_before", "-y"},
};

TEST(WindowsChildProcess, ArgumentsArriveAsTheyAre) {
    std::vector<std::string> arguments;
    std::string expected, byRuntime, bySystem;
    for (const auto& row : kArguments) {
        arguments.push_back(row.argument);
        expected += row.argument + kNul;
        std::string one;
        RunChild(
            KM_PRINT_ARGUMENTS, {row.argument}, [&](std::string_view bytes) { one += bytes; }, [](auto) {});
        EXPECT_EQ(one, row.argument + kNul) << row.fault;
    }
    const ChildEnd end = RunChild(
        KM_PRINT_ARGUMENTS, arguments, [&](std::string_view bytes) { byRuntime += bytes; },
        [&](std::string_view bytes) { bySystem += bytes; });
    EXPECT_EQ(byRuntime, expected);
    EXPECT_EQ(bySystem, expected);
    EXPECT_EQ(end.kind, ChildEnd::Kind::Exited);
    EXPECT_EQ(end.code, static_cast<int>(arguments.size())) << "another exit status than the program's";
}

TEST(WindowsChildProcess, StartsProgramsAlone) {
    const TemporaryFolder folder;
    folder.WriteBytes(L"script.bat", "exit 0\r\n");
    const struct {
        const char* fault;
        std::string program;
        std::string reason;
    } rows[] = {
        {"missing_program_taken_for_a_failed_one", "no-such-program", "no such program in PATH"},
        {"arguments_given_to_a_command_processor", folder.SystemPath(L"script.bat").string(),
         "it is no .exe file"},
    };
    for (const auto& row : rows) {
        std::string message;
        try {
            RunChild(
                row.program, {}, [](auto) {}, [](auto) {});
        } catch (const Failure& failure) {
            message = failure.what();
        }
        EXPECT_TRUE(message.ends_with("\": " + row.reason)) << row.fault << ": " << message;
    }
}

}  // namespace

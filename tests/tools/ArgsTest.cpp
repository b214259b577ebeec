// SPDX-License-Identifier: MIT
// What scripts get from "args" is what the library lists, whatever a value holds.
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

#include "kmArguments.h"
#include "tests/support/Profiles.h"
#include "tests/tools/RunTool.h"

namespace {

const std::string kHostileTitles[] = {
    "\"; touch F; echo \"",  "$(touch F)", "`touch F`", "it's \\ ", "-a\n-b", "*", "~",
    "a\xE2\x80\xAE\xC3\xA4", "#x",         "!x",        "x=1 y=$z"};

// The arguments that a shell makes of the text, each ended by a null byte.
std::string ReadByShell(const std::filesystem::path& folder, const std::string& text) {
    std::ofstream(folder / "text", std::ios::binary) << text;
    const std::string command =
        "cd " + folder.string() + R"sh( && eval "set -- $(cat text)" && printf '%s\0' "$@")sh";
    const std::unique_ptr<FILE, int (*)(FILE*)> shell(popen(command.c_str(), "r"), pclose);
    std::string read;
    for (int byte = 0; (byte = std::fgetc(shell.get())) != EOF;) read += static_cast<char>(byte);
    return read;
}

TEST(Args, FormsForScriptsHoldWhatTheLibraryLists) {
    for (const std::string& title : kHostileTitles) {
        const TemporaryFolder folder;
        std::filesystem::create_directory(folder.SystemPath() / "p");
        std::ofstream(folder.SystemPath() / "p/a.pf")
            << "<Profiles><Main/><Parameter><acodec Value='mp2'/><title/></Parameter></Profiles>";
        kmProfile profile = ProfileWith("acodec=mp2;title=;");
        profile.SetItemValue(KM_TEXT("title"), TextFromBytes(title).c_str());
        const kmArgumentList list = kmBuildArguments(profile, {});
        std::string expected;
        for (const kmString& argument : list.arguments) expected += Utf8(argument) + '\0';
        const auto run = [&](const std::string& form) {
            return RunTool(folder, {"args", "a", "--folder", "p", "--set", "title=" + title, form});
        };
        const ToolRun asNull = run("--null"), asShell = run("--shell");
        EXPECT_EQ(asNull.output, expected) << asNull;
        EXPECT_EQ(ReadByShell(folder.SystemPath(), asShell.output), expected) << asShell;
        EXPECT_FALSE(std::filesystem::exists(folder.SystemPath() / "F")) << "run by the shell: " << asShell;
    }
}

}  // namespace

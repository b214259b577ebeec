// SPDX-License-Identifier: MIT
// The tool takes every form of a folder that the library takes, and prints one kind of separator.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

#include "kmFolders.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/conversion/ChildProcess.h"

namespace {

struct ToolRun {
    int status = 0;
    std::string output;
    std::string error;
};

ToolRun RunTool(const std::vector<std::string>& arguments) {
    ToolRun run;
    const ChildEnd end = RunChild(
        KM_TOOL, arguments, [&](std::string_view bytes) { run.output += bytes; },
        [&](std::string_view bytes) { run.error += bytes; });
    run.status = end.code;
    return run;
}

// Not every library removes folders as deep.
void MakeRemovable(kmString deep, const kmString& root) {
    deep.pop_back();
    EXPECT_TRUE(MoveFileW((L"\\\\?\\" + deep).c_str(), (root + L"profiles").c_str()));
    for (deep.erase(deep.rfind(L'\\')); deep.size() > root.size(); deep.erase(deep.rfind(L'\\')))
        EXPECT_TRUE(RemoveDirectoryW((L"\\\\?\\" + deep).c_str())) << Utf8(deep);
}

TEST(WindowsTool, TakesEveryFormOfAFolder) {
    const TemporaryFolder temporary;
    kmString deep = temporary.Path();
    while (deep.size() < 300) deep += kmString(60, L'd') + L"\\";
    const kmString samples = kmPathFromUtf8(KM_SOURCE_DIR "/samples/Profiles/");
    ASSERT_GT(kmCopyProfilesFolder(samples, deep).copied.size(), 0u);

    const std::string folder = kmUtf8FromPath(deep);
    std::string slashes = folder;
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    const struct {
        const char* fault;
        std::string folder;
    } rows[] = {
        {"path_cut_at_260_units", folder},
        {"slashes_refused", slashes},
        {"verbatim_form_refused", "\\\\?\\" + folder},
    };
    for (const auto& row : rows) {
        const ToolRun list = RunTool({"list", "--ids", "--folder", row.folder});
        EXPECT_EQ(list.status, 0) << row.fault << ": " << list.error;
        EXPECT_NE(list.output.find("Holiday Clips"), std::string::npos) << row.fault << ": " << list.output;
        const ToolRun set = RunTool({"set", "holiday clips", "ab=96", "--folder", row.folder});
        EXPECT_EQ(set.status, 0) << row.fault << ": " << set.error;
        EXPECT_EQ(set.output.find('/'), std::string::npos) << row.fault << ": " << set.output;
        EXPECT_EQ(RunTool({"lint", "Holiday Clips", "--folder", row.folder}).status, 0) << row.fault;
    }
    const ToolRun renamed = RunTool({"rename", "user\\Holiday Clips", "y", "--folder", folder});
    EXPECT_EQ(renamed.status, 1) << "an ID was taken for a path";
    MakeRemovable(deep, temporary.Path());
}

}  // namespace

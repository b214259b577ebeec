// SPDX-License-Identifier: MIT
// What an encoder's own lists mean for profiles; the lists come from a stand-in.
#include <gtest/gtest.h>

#include "tests/tools/RunTool.h"

namespace {

constexpr const char* kEncoder = R"(#!/bin/sh
case "$*" in
*-encoders*) printf 'Encoders:\n V..... = Video\n ------\n V....D mpeg4  MPEG-4 (codec h264)\n A....D mp2  MPEG\n' ;;
*-muxers*) printf 'Muxers:\n E = Muxing\n --\n E avi  AVI\n E a,b  two names\n' ;;
esac
)";

TEST(Available, TellsFromTheEncodersListsWhatRuns) {
    const struct {
        const char *fault, *items, *format;
        int status;
        const char* output;
    } rows[] = {
        {"name_in_the_second_column_missed", "<vcodec Value='mpeg4'/><acodec Value='mp2'/>", "avi", 0,
         "p   runs\n"},
        {"description_taken_for_a_name", "<vcodec Value='MPEG-4'/>", "b", 1,
         "p   vcodec MPEG-4: The encoder has no codec \"MPEG-4\".\n"},
        {"legend_taken_for_a_name", "<vcodec Value='mpeg4'/>", "=", 1,
         "p   output format =: The encoder has no output format \"=\".\n"},
    };
    for (const auto& row : rows) {
        const TemporaryFolder folder;
        folder.WriteBytes(KM_TEXT("p\\p.pf"), std::string("<Profiles><Main><Format>") + row.format +
                                                  "</Format></Main><Parameter>" + row.items +
                                                  "</Parameter></Profiles>");
        folder.WriteBytes(KM_TEXT("p\\encoder"), kEncoder);
        std::filesystem::permissions(folder.SystemPath(KM_TEXT("p\\encoder")),
                                     std::filesystem::perms::owner_all);
        const ToolRun run = RunTool(folder, {"available", "p", "--folder", "p", "--encoder", "p/encoder"});
        EXPECT_EQ(run.status, row.status) << row.fault << ": " << run;
        EXPECT_EQ(run.output, std::string("ID  Runs, or what is missing\n") + row.output)
            << row.fault << ": " << run;
    }
}

}  // namespace

// SPDX-License-Identifier: MIT
// Converting with stand-ins for the encoder: whatever it does, the output is whole or not there, and nothing
// of the encoder or of half an output stays.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <iterator>
#include <set>
#include <sstream>

#include "tests/tools/RunTool.h"

namespace {

std::string Profile(const std::string& format, const std::string& items) {
    return "<Profiles><Main><Format>" + format + "</Format></Main><Parameter>" + items +
           "</Parameter></Profiles>";
}

// The encoder is a shell script; `$out` is the file that it has to write.
class Studio {
public:
    explicit Studio(const std::string& commands) {
        m_folder.WriteBytes(KM_TEXT("p\\video.pf"), Profile("mp4", "<title Value='x'/>"));
        m_folder.WriteBytes(KM_TEXT("p\\pictures.pf"), Profile("image2", ""));
        for (const kmChar* name : {KM_TEXT("in.avi"), KM_TEXT("old.mp4"), KM_TEXT("a005.jpg")})
            m_folder.WriteBytes(name, "old");
        m_folder.WriteBytes(KM_TEXT("p\\encoder"),
                            "#!/bin/sh\nfor out; do :; done\nout=${out#file:}\n" + commands + '\n');
        std::filesystem::permissions(m_folder.SystemPath(KM_TEXT("p\\encoder")),
                                     std::filesystem::perms::owner_all);
    }

    ToolRun Run(std::vector<std::string> arguments) const {
        if (std::find(arguments.begin(), arguments.end(), "--encoder") == arguments.end())
            arguments.insert(arguments.begin(), {"--encoder", "p/encoder"});
        arguments.insert(arguments.begin(), {"convert", "--folder", "p"});
        return RunTool(m_folder, arguments);
    }

    ToolRun Run(const std::string& command) const {
        std::istringstream words(command);
        return Run(std::vector<std::string>(std::istream_iterator<std::string>(words), {}));
    }

    std::filesystem::path Path(const std::string& name) const { return m_folder.SystemPath() / name; }
    std::string Content(const std::string& name) const { return ReadBytes(Path(name)); }

    // "name=content" of the files that were not there or have changed, temporary names as ".km".
    std::string Changes() const {
        std::set<std::string> changes;
        for (const auto& entry : std::filesystem::directory_iterator(Path({}))) {
            const std::string name = entry.path().filename();
            if (entry.is_directory() || name == "output" || name == "error") continue;
            const std::string content = Content(name);
            if (content == "old") continue;
            changes.insert((name.starts_with(".km") ? ".km" : name) + "=" + content);
        }
        std::string text;
        for (const std::string& change : changes) text += (text.empty() ? "" : " ") + change;
        return text;
    }

private:
    TemporaryFolder m_folder;
};

struct Ending {
    const char* fault;
    std::string encoder;
    std::string command;
    int status;
    std::string error;  // how it begins
    std::string changes;
};

// clang-format off
const Ending kEndings[] = {
    {"finished_output_not_named", "printf new > $out", "video in.avi new.mp4", 0, "", "new.mp4=new"},
    {"output_not_replaced", "printf new > $out", "video in.avi old.mp4 --force", 0, "", "old.mp4=new"},
    {"output_replaced_unasked", "printf new > $out", "video in.avi old.mp4", 1, "old.mp4: there is such a file; replace it with --force\n", ""},
    {"output_of_the_meantime_replaced", "printf other > o; printf new > $out", "video in.avi o", 1, "o: there is such a file by now; the finished one is .km", ".km=new o=other"},
    {"failure_replaces_output", "printf half > $out; exit 1", "video in.avi old.mp4 --force", 1, "encoder failed (status 1)\n", ""},
    {"status_or_last_line_lost", "printf half > $out; echo a >&2; echo no codec >&2; exit 3", "video in.avi o", 3, "encoder failed (status 3): no codec\n", ""},
    {"cause_lost_among_messages", "printf '[mp4 @ 0x1] [error] width is odd\\n[error] many\\n[error] no output -- \\n[info] bye' >&2; exit 1", "video in.avi o", 1, "encoder failed (status 1): width is odd; no output\n", ""},
    {"message_obeyed_by_terminal", "printf '\\033[31mred' >&2; exit 1", "video in.avi o", 1, "encoder failed (status 1):  [31mred\n", ""},
    {"death_taken_for_success", "printf half > $out; kill -KILL $$", "video in.avi o", 1, "encoder was ended by signal 9\n", ""},
    {"half_file_not_kept", "printf half > $out; exit 1", "video in.avi o --keep", 1, "encoder failed (status 1); the half-written file is .km", ".km=half"},
    {"nothing_called_an_output", "exit 0", "video in.avi o", 1, "the encoder has written nothing\n", ""},
    {"waits_for_others_with_its_outputs", "(sleep 3; printf late > late) & printf new > $out", "video in.avi o", 0, "", "o=new"},
    {"interrupt_leaves_something", "printf half > $out; echo $$ > p/id; kill -INT $PPID; exec sleep 20", "video in.avi o", 130, "stopped\n", ""},
    {"stubborn_encoder_survives_the_second", "trap '' TERM; echo $$ > p/id; kill -TERM $PPID; sleep 1; kill -HUP $PPID; while :; do sleep 1; done", "video in.avi o", 143, "stopped\n", ""},
    {"missing_encoder_not_named", "", "video in.avi o --encoder no-such-one", 1, "cannot start \"no-such-one\": no such program in PATH\n", ""},
    {"file_that_is_no_program_started", "", "video in.avi o --encoder ./in.avi", 1, "cannot start \"./in.avi\": Permission denied\n", ""},
    {"missing_input_not_named", "", "video none o", 1, "none: No such file or directory\n", ""},
    {"folder_as_output", "", "video in.avi p --force", 1, "p: is a folder\n", ""},
    {"device_replaced", "", "video in.avi /dev/null --force", 1, "/dev/null: is no regular file\n", ""},
    {"missing_folder_not_named", "", "video in.avi none/o", 1, "none: no such folder\n", ""},
    {"input_replaced", "printf new > $out", "video in.avi ./in.avi --force", 1, "./in.avi: is the input itself\n", ""},
    {"pictures_not_written", "printf 1 > b001.jpg; printf 2 > b1000.jpg", "pictures in.avi b%03d.jpg", 0, "", "b001.jpg=1 b1000.jpg=2"},
    {"half_a_series_or_another_file", "printf 1 > b001.jpg; printf 2 > b1000.jpg; printf x > b1.jpg; exit 1", "pictures in.avi b%03d.jpg", 1, "encoder failed", "b1.jpg=x"},
    {"picture_replaced_unasked", "printf 1 > a005.jpg", "pictures in.avi a%03d.jpg", 1, "a005.jpg: there is such a file", ""},
    {"picture_that_was_there_removed", "printf 1 > a001.jpg; printf 5 > a005.jpg; exit 1", "pictures in.avi a%03d.jpg --force", 1, "encoder failed", "a005.jpg=5"},
};
// clang-format on

TEST(Convert, OutputIsWholeOrNotThere) {
    for (const Ending& row : kEndings) {
        const Studio studio(row.encoder);
        const ToolRun run = studio.Run(row.command);
        EXPECT_EQ(run.status, row.status) << row.fault << ": " << run;
        const bool isAsExpected =
            row.error.empty() ? run.error.empty() : run.error.starts_with("kmprofile: " + row.error);
        EXPECT_TRUE(isAsExpected) << row.fault << " wants " << row.error << ": " << run;
        EXPECT_EQ(run.output, "") << row.fault;
        EXPECT_EQ(studio.Changes(), row.changes) << row.fault << ": " << run;
        const std::string id = studio.Content("p/id");
        EXPECT_TRUE(id.empty() || kill(std::stoi(id), 0) != 0) << row.fault << ": the encoder still runs";
    }
}

TEST(Convert, ArgumentsArriveAsTheyAre) {
    const std::string title = "My \"best\"  'one' $(touch F) `touch F` \\ %d;\n-y", nul(1, '\0');
    const Studio studio("printf '%s\\0' \"$@\" > p/arguments; cp -- \"-i:n\" \"$out\"");
    std::ofstream(studio.Path("-i:n")) << "new";
    const ToolRun run =
        studio.Run({"--no-audio", "--set", "title=" + title, "--", "video", "-i:n", "-o:ut \".mp4"});
    EXPECT_EQ(run.status, 0) << run;
    EXPECT_EQ(studio.Changes(), "-i:n=new -o:ut \".mp4=new") << run;
    const std::string arguments = nul + studio.Content("p/arguments");
    for (const std::string& part :
         {nul + "-i" + nul + "file:-i:n" + nul, nul + "title=" + title + nul, nul + "-an" + nul + "-f" + nul})
        EXPECT_NE(arguments.find(part), std::string::npos) << part << "\nis not in\n" << arguments;
}

}  // namespace

// SPDX-License-Identifier: MIT
// The tool on files that nobody expects: it answers or refuses, and nothing that a file says reaches the
// terminal as more than text.
#include <gtest/gtest.h>

#include <sstream>

#include "tests/tools/RunTool.h"

namespace {

// What terminals obey: ESC, BEL, DEL, C1 (0x9B, 0x85) alone and as UTF-8, marks of writing direction.
const std::string kHostile = "\x1B[31m\a\x7F\x9B\xC2\x9B\xC2\x85\xE2\x80\xAE\xE2\x80\x8F\xE2\x81\xA6\xD8\x9C";
constexpr const char* kObeyed[] = {"\x1B", "\a",           "\x7F",         "\x9B",         "\x85",    "\r",
                                   "\t",   "\xE2\x80\xAE", "\xE2\x80\x8F", "\xE2\x81\xA6", "\xD8\x9C"};

std::string Profile(const std::string& items, const std::string& main = "<Name language='n'/>") {
    return "<Profiles><Main>" + main + "</Main><Parameter>" + items + "</Parameter></Profiles>";
}

std::string Item(const std::string& id, const std::string& value, const std::string& texts,
                 const std::string& values) {
    const auto list = [&](const std::string& view, const std::string& display) {
        return ' ' + view + "Name='" + id + "' " + view + "HasCandidates='yes' " + view + display + "='" +
               texts + "' " + view + "CandidatesValue='" + values + '\'';
    };
    return '<' + id + " Value='" + value + '\'' + list("adv", "CandidatesDisplay") +
           list("simple", "CandidatesDiaplay") + "/>";
}

// Names are bytes, as the system has them; unlike texts they need not be UTF-8.
void Write(const TemporaryFolder& folder, const std::string& name, const std::string& bytes) {
    const std::filesystem::path path = folder.SystemPath() / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    ASSERT_EQ(ReadBytes(path), bytes) << name;
}

std::string Repeat(int count, const std::string& text) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
}

const std::string kGood = Profile(Item("ab", "128", "x,y", "128,96") + Item("zoom", "1", "p,q,r", "0,1,2"));

struct OddFile {
    const char* name;
    std::string id;
    std::string bytes;
};

const OddFile kOddFiles[] = {
    {"position_looked_up_in_a_shorter_list", "a",
     Profile(Item("pf", "9", "0,1,2,3,4,5,6,7,8,9", "0,1,2,3,4,5,6,7,8,9") + Item("pf", "1", "1", "1"))},
    {"more_texts_than_values", "a", Profile(Item("ab", "1", "1,2,3", "1") + Item("pq", "3", "1,2,3", ""))},
    {"file_cut_short", "a", kGood.substr(0, 90)},
    {"depth_of_elements_is_depth_of_stack", "a", Profile(Repeat(100000, "<ab>"))},
    {"name_obeyed_by_terminal", kHostile, kGood},
    {"texts_obeyed_by_terminal", "a",
     "\xFF\xFE" + Utf16Bytes(TextFromBytes(Profile(Item("ab", kHostile, kHostile + ",b", kHostile + ",c"),
                                                   "<SName>" + kHostile + "</SName>")))},
    {"message_obeyed_by_terminal", "a" + kHostile, "<Profiles>\n<Main a='&none;'/></Profiles>"},
    {"value_of_several_lines", "a", Profile("<title Value='a&#10;b'/><ss Value='1&#13;2'/>")},
    {"numbers_beyond_64_bits", "a",
     Profile(
         Item("ab", "99999999999999999999", "x", "-99999999999999999999") +
         "<s Value='9999999999x-9999999999'/>"
         "<t Value='-9999999999999'/><zoom Value='-99999999999'/><aspect Value='1e999'/><r Value='1:0'/>")},
    {"system_profile", "a", Profile(Item("ab", "1", "x", "1"), "<IsSysProfile>yes</IsSysProfile>")},
    {"folder_named_like_a_profile", "folder", ""},
};

// Words; "@" stands for an ID.
constexpr const char* kCommands[] = {"list",
                                     "show @",
                                     "args @ --held-back",
                                     "args @ --set ab=1",
                                     "diff @ good",
                                     "estimate @ --duration 60 --source 16x16 --explain",
                                     "estimate @ --duration 60 --fit 1M",
                                     "icon @",
                                     "check @ @",
                                     "edit @",
                                     "edit @ good ab=96",
                                     "set @ --as copy",
                                     "set good --as @",
                                     "rename good @",
                                     "rename @ renamed",
                                     "delete @"};

std::vector<std::string> CommandFor(const std::string& command, const std::string& id) {
    std::vector<std::string> words = {"--folder", "p"};
    std::istringstream rest(command);
    for (std::string word; rest >> word;) {
        const std::size_t at = word.find('@');
        words.push_back(at == std::string::npos ? word : word.replace(at, 1, id));
    }
    return words;
}

void ExpectPlainText(const std::string& text, const ToolRun& run) {
    for (const char* obeyed : kObeyed) EXPECT_EQ(text.find(obeyed), std::string::npos) << run;
}

TEST(Tool, AnswersOrRefusesWhateverAFileHolds) {
    for (const OddFile& row : kOddFiles) {
        SCOPED_TRACE(row.name);
        const TemporaryFolder folder;
        Write(folder, "p/user/good.pf", kGood);
        folder.MakeFolder(KM_TEXT("p\\user\\folder.pf"));
        if (row.id != "folder") Write(folder, "p/user/" + row.id + ".pf", row.bytes);
        for (const char* command : kCommands) {
            const ToolRun run = RunTool(folder, CommandFor(command, row.id), Output::Terminal);
            EXPECT_TRUE(run.status >= 0 && run.status <= 2) << run;
            ExpectPlainText(run.output, run);
            ExpectPlainText(run.error, run);
            std::istringstream lines(run.error);
            for (std::string line; std::getline(lines, line);)
                EXPECT_TRUE(line.starts_with(run.status == 0 ? "kmprofile: warning: " : "kmprofile: "))
                    << run;
        }
    }
}

TEST(Tool, ArgumentsForAnotherProgramAreExact) {
    const TemporaryFolder folder;
    Write(folder, "p/a.pf",
          "\xFF\xFE" + Utf16Bytes(TextFromBytes(Profile("<title Value='" + kHostile + "'/>"))));
    const ToolRun run = RunTool(folder, {"args", "a", "--folder", "p"});
    EXPECT_EQ(run.output, "-title \"" + kHostile + "\"  \n") << run;
}

// A walk along everything for every question would take minutes.
TEST(Tool, CostOfShowingManySettingsIsProportional) {
    std::string list, items;
    for (int i = 0; i < 8000; ++i) items += Item("o" + std::to_string(i), "1", "x,y", "1,2");
    for (int i = 0; i < 60000; ++i) list += (i == 0 ? "v" : ",v") + std::to_string(i);
    const TemporaryFolder folder;
    Write(folder, "p/settings.pf", Profile(items));
    Write(folder, "p/choices.pf", Profile(Item("vcodec", "v9", list, list)));
    Write(folder, "p/equal.pf", Profile(Repeat(60000, "<ab/>")));
    Write(folder, "p/more.pf", Profile(Repeat(60001, "<ab/>")));
    for (const std::string id : {"settings", "choices"}) {
        const ToolRun run = RunTool(folder, {"edit", id, "--folder", "p"});
        EXPECT_EQ(run.status, 0) << id << " of a file as large";
    }
    EXPECT_EQ(RunTool(folder, {"diff", "equal", "more", "--folder", "p"}).status, 1);
}

struct Answer {
    const char* name;
    std::string command;
    int status;
    std::string part;  // of the output, or of the error
};

const Answer kAnswers[] = {
    {"text_of_another_items_list", "edit double", 0,
     "  ab    ab       2         2, 1\n  ab    ab       2         9\n"},
    {"backslash_taken_for_a_folder", "show back\\slash", 0, "ID           back\\slash\n"},
    {"folder_of_an_unreadable_file", "show folder", 1,
     "p/user/folder.pf: It is called like the file of a profile, but is a folder"},
    {"folder_of_a_saved_profile", "set good ab=96", 0, "saved \"good\" in p/user/\n"},
    {"system_profile_changed", "set system ab=96", 1, "\"system\" is a system profile; save a copy"},
    {"profile_replaced_unasked", "set good --as Double", 1, "a profile \"double\" exists"},
    {"file_replaced_unasked", "set good --as headless", 1, "headless.pf: there is such a file"},
    {"file_replaced_by_renaming", "rename good headless", 1, "headless.pf: there is such a file"},
    {"top_profile_deleted", "delete double", 1, "\"double\" is in the profiles folder itself"},
    {"hidden_id", "rename good .x", 1, "\".x\" cannot be a file name: it begins with \".\"\n"},
    {"held_back_or_blank_setting_wrong", "args double --held-back", 0, " \nss=00:00:01\n"},
    {"known_part_taken_for_all", "estimate clip --duration 60", 0,
     "at least 960 000 bytes (937.5 KiB), without"},
    {"unknown_size_is_0_bytes", "estimate clip --duration 60 --no-audio", 0, "unknown\n"},
    {"bit_rate_not_shown", "estimate good --duration 60 --explain", 0,
     "KiB)  128 kbit/s  profile  bounded\n"},
    {"size_in_thousands", "estimate clip --duration 60 --fit 6797K", 0,
     "800 kbit/s\nany        800 kbit/s\n"},
    {"nothing_fits_and_done", "estimate clip --duration 60 --fit 900K", 1, "the audio takes 960 000 bytes"},
    {"fit_without_video", "estimate good --duration 60 --fit 1M", 1, "\"good\" makes no video"},
    {"difference_not_shown", "diff good double", 1,
     "good    double\nab       Value                    128     2\n"},
    {"which_of_several_not_shown", "diff good double", 1, "ab (2)   only in the second"},
    {"equal_profiles_differ", "diff good GOOD", 0, ""},
    {"id_taken_for_a_path", "diff good user/good", 2, "no profile \"user/good\" in p/"},
    {"unreadable_profile_differs", "diff good none", 2, "no profile \"none\" in p/\n"},
    {"name_of_several_taken", "show n", 1, "several profiles are called \"n\"; give the ID: "},
    {"shown_name_not_found", "show S", 0, "ID           system\nName         s\n"},
    {"misspelt_id_unhelped", "show systme", 1, "did you mean \"system\"?"},
    {"misspelt_setting_unhelped", "set good zom=1", 1, "has no setting \"zom\"; did you mean \"zoom\"?"},
    {"misspelt_option_unhelped", "show good --jsn", 2, "show: unknown option \"--jsn\"; did you mean"},
    {"text_of_a_choice_refused", "set good zoom=R --dry-run", 0, "zoom from \"1\" to \"2\"\n"},
    {"user_file_behind_a_system_id_kept", "delete system", 0, "deleted \"system\" from p/user/\n"},
    {"missing_file_is_clean", "lint none.pf", 2, "none.pf: there is no such file or folder\n"},
    {"dry_run_saves", "set good AB=96 --dry-run", 0,
     "\"good\": ab from \"128\" to \"96\"\nwould save \"good\" in p/user/\n"},
    {"line_break_saved", "set good ab=9@6", 1, "a saved value has no line break"},
    {"odd_value_unmentioned", "set good ab=97", 0, "warning: ab=97: not among the choices of \"good\""},
    {"name_too_long_unexplained", "set good --as " + std::string(300, 'x'), 1,
     "cannot be written: the name is longer than the file system allows"},
    {"broken_file_kept", "delete cut", 0, "deleted \"cut\" from p/user/\n"},
    {"broken_file_not_renamed", "rename cut whole", 0, "warning: p/user/cut.pf: The file has no element"},
    {"left_out_unmentioned", "list", 1, "kmprofile: p/user/headless.pf: The file has no element \"Main\".\n"},
    {"filter_without_match", "list --id-filter none", 1, "no system profile matches the filter \"none\"\n"},
    {"unknown_group_unhelped", "list --group user", 1, "no group \"user\""},
    {"fault_not_found", "lint cut", 1, "p/user/cut.pf:1:2: error: "},
    {"nothing_to_lint_is_clean", "lint none", 2, "no profile \"none\""},
    {"wrong_size_accepted", "estimate clip --duration 60 --fit 1.5", 2, "--fit: \"1.5\" is no size"},
};

TEST(Tool, AnswersInItsOwnWords) {
    for (const Answer& row : kAnswers) {
        const TemporaryFolder folder;
        Write(folder, "p/user/good.pf", kGood);
        Write(folder, "p/user/headless.pf", "<Profiles/>");
        Write(folder, "p/clip.pf", Profile(Item("b", "Auto", "9,8", "900,800") + "<ab Value='128'/>"));
        folder.MakeFolder(KM_TEXT("p\\user\\folder.pf"));
        Write(folder, "p/user/back\\slash.pf", kGood);
        Write(folder, "p/user/cut.pf", "<Profiles");
        Write(folder, "p/user/system.pf", kGood);
        Write(folder, "p/system.pf",
              Profile("<ab Value='1'/>", "<Name language='^s'/><IsSysProfile>yes</IsSysProfile>"));
        Write(folder, "p/double.pf",
              Profile(Item("ab", "2", "2,1", "2,1") + Item("ab", "9", "9", "9") +
                      "<t Value=' '/><SS Value='00:00:01'/>"));
        const ToolRun run = RunTool(folder, CommandFor(row.command, "\n"));
        EXPECT_EQ(run.status, row.status) << row.name << ": " << run;
        EXPECT_NE((run.error.empty() ? run.output : run.error).find(row.part), std::string::npos)
            << row.name << " wants " << row.part << ": " << run;
        EXPECT_EQ(ReadBytes(folder.SystemPath(KM_TEXT("p\\user\\headless.pf"))), "<Profiles/>") << row.name;
    }
}

TEST(Tool, FolderOfTheUserIsFilledOnceAndFound) {
    const TemporaryFolder folder;
    ::setenv("XDG_DATA_HOME", folder.SystemPath().c_str(), 1);
    EXPECT_EQ(RunTool(folder, {"init"}).output.substr(0, 7), "copied ");
    const std::string users = (folder.SystemPath() / "kmprofile/Profiles/").string();
    Write(folder, "kmprofile/Profiles/pficon.con", "mine");
    const ToolRun again = RunTool(folder, {"init"});
    EXPECT_TRUE(again.output.starts_with("copied 0 files to " + users + ", left ")) << again;
    EXPECT_EQ(ReadBytes(folder.SystemPath(KM_TEXT("kmprofile\\Profiles\\pficon.con"))), "mine");

    ::setenv("KMPROFILE_FOLDER", users.c_str(), 1);
    const ToolRun where = RunTool(folder, {"where"});
    EXPECT_NE(where.output.find(users + "\nWhy      named by KMPROFILE_FOLDER\nExists   yes\n"),
              std::string::npos)
        << where;
    EXPECT_EQ(RunTool(folder, {"show", "Holiday Clips"}).status, 0) << "the user's subfolder was not copied";
    ::unsetenv("KMPROFILE_FOLDER");
    ::unsetenv("XDG_DATA_HOME");
}

}  // namespace

// What files promise on every system.
#include "platform/Files.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/TemporaryFolder.h"

namespace {

constexpr int kRefused = -1;

int SizeOf(const kmString& path) {
    InputFile file;
    return file.Open(path.c_str()) ? static_cast<int>(file.Size()) : kRefused;
}

TEST(Files, OpensWhatTheNameMeans) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("Profiles\\My Phone.pf"), "phone");
    folder.WriteBytes(KM_TEXT("empty.pf"), "");
    folder.MakeFolder(KM_TEXT("folder.pf"));
    // clang-format off
    const struct { const char *fault, *name; int size; } rows[] = {
        {"exact_name_missed",            "Profiles\\My Phone.pf", 5},
        {"other_case_of_file_missed",    "Profiles\\my phone.PF", 5},
        {"other_case_of_folder_missed",  "PROFILES\\My Phone.pf", 5},
        {"doubled_separator_refused",    "profiles\\\\my phone.pf", 5},
        {"slash_refused",                "profiles/my phone.pf", 5},
        {"dots_refused",                 "profiles\\.\\..\\PROFILES\\my phone.pf", 5},
        {"empty_file_refused",           "Empty.pf", 0},
        {"missing_file_opened",          "Profiles\\none.pf", kRefused},
        {"part_of_a_name_opened",        "Profiles\\My Phone", kRefused},
        {"missing_folder_ignored",       "none\\My Phone.pf", kRefused},
        {"folder_opened_as_file",        "folder.pf", kRefused},
        {"folder_in_other_case_opened",  "FOLDER.pf", kRefused},
        {"file_taken_for_a_folder",      "empty.pf\\My Phone.pf", kRefused},
        {"final_separator_ignored",      "empty.pf\\", kRefused},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(SizeOf(folder.Path(Text(row.name))), row.size) << row.fault << ": " << row.name;
    EXPECT_EQ(SizeOf({}), kRefused) << "an empty path is no file";
}

TEST(Files, ReadsOnWhereTheLastReadStopped) {
    const TemporaryFolder folder;
    const std::string_view content("a\r\n\x1A\0b", 6);  // what a text mode would change or end at
    folder.WriteBytes(KM_TEXT("f"), content);
    InputFile file;
    ASSERT_TRUE(file.Open(folder.Path(KM_TEXT("f")).c_str()));
    std::string bytes(9, '?');
    std::size_t first = 0;
    std::size_t rest = 0;
    ASSERT_TRUE(file.Read(bytes.data(), 4, first));
    ASSERT_TRUE(file.Read(bytes.data() + 4, 5, rest));
    EXPECT_EQ(bytes.substr(0, first + rest), content);
    ASSERT_TRUE(file.Read(bytes.data(), 9, rest));
    EXPECT_EQ(rest, 0u) << "behind the end";
}

// Every file in the folder with its content, temporary ones included.
std::set<std::string> State(const TemporaryFolder& folder) {
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.SystemPath()))
        files.insert(entry.path().filename().string() + ":" + ReadBytes(entry.path()));
    return files;
}

TEST(Files, StoringReplacesOrRefuses) {
    // clang-format off
    const struct {
        const char* fault; const kmChar* name; Storing storing; StoreResult expected; std::set<std::string> after;
    } rows[] = {
        {"new_file_not_made",          KM_TEXT("new"),    Storing::Replace, StoreResult::Done,       {"f:old", "new:now"}},
        {"old_file_not_replaced",      KM_TEXT("f"),      Storing::Replace, StoreResult::Done,       {"f:now"}},
        {"spelling_of_old_file_lost",  KM_TEXT("F"),      Storing::Replace, StoreResult::Done,       {"f:now"}},
        {"new_file_replaced_another",  KM_TEXT("f"),      Storing::New,     StoreResult::Exists,     {"f:old"}},
        {"replaced_in_other_case",     KM_TEXT("F"),      Storing::New,     StoreResult::Exists,     {"f:old"}},
        {"new_file_refused",           KM_TEXT("new"),    Storing::New,     StoreResult::Done,       {"f:old", "new:now"}},
        {"missing_folder_made",        KM_TEXT("no\\f"),  Storing::Replace, StoreResult::CannotOpen, {"f:old"}},
        {"made_in_a_missing_folder",   KM_TEXT("no\\f"),  Storing::New,     StoreResult::CannotOpen, {"f:old"}},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const TemporaryFolder folder;
        folder.WriteBytes(KM_TEXT("f"), "old");
        EXPECT_EQ(StoreFile(folder.Path(row.name).c_str(), "now", 3, row.storing), row.expected);
        EXPECT_EQ(State(folder), row.after);
    }
    const TemporaryFolder folder;
    folder.MakeFolder(KM_TEXT("f"));
    EXPECT_EQ(StoreFile(folder.Path(KM_TEXT("f")).c_str(), "now", 3), StoreResult::CannotOpen)
        << "a folder in the way";
}

TEST(Files, RenamingReplacesOnlyItself) {
    // clang-format off
    const struct {
        const char* fault; const kmChar *from, *to; StoreResult expected; std::set<std::string> after;
    } rows[] = {
        {"not_renamed",               KM_TEXT("f"),    KM_TEXT("n"),     StoreResult::Done,       {"n:now", "o:other"}},
        {"source_in_other_case_lost", KM_TEXT("F"),    KM_TEXT("n"),     StoreResult::Done,       {"n:now", "o:other"}},
        {"own_name_refused",          KM_TEXT("f"),    KM_TEXT("f"),     StoreResult::Done,       {"f:now", "o:other"}},
        {"another_replaced",          KM_TEXT("f"),    KM_TEXT("o"),     StoreResult::Exists,     {"f:old", "o:other"}},
        {"replaced_in_other_case",    KM_TEXT("f"),    KM_TEXT("O"),     StoreResult::Exists,     {"f:old", "o:other"}},
        {"missing_source_made",       KM_TEXT("none"), KM_TEXT("n"),     StoreResult::CannotOpen, {"f:old", "o:other"}},
        {"missing_folder_made",       KM_TEXT("f"),    KM_TEXT("no\\n"), StoreResult::CannotOpen, {"f:old", "o:other"}},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const TemporaryFolder folder;
        folder.WriteBytes(KM_TEXT("f"), "old");
        folder.WriteBytes(KM_TEXT("o"), "other");
        EXPECT_EQ(StoreRenamed(folder.Path(row.from).c_str(), folder.Path(row.to).c_str(), "now", 3),
                  row.expected);
        EXPECT_EQ(State(folder), row.after);
    }
}

TEST(Files, LeftoversOfKilledProcessesGoWhenTheyAreOld) {
    using namespace std::chrono_literals;
    const TemporaryFolder folder;
    for (const kmChar* name : {KM_TEXT(".km0123456789abcdef.tmp"), KM_TEXT(".km77-3.tmp"),
                               KM_TEXT(".km1.tmp"), KM_TEXT(".kmine"), KM_TEXT("x.tmp")})
        folder.WriteBytes(name, "x");
    const auto old = std::filesystem::file_time_type::clock::now() - 1h;
    for (const kmChar* name :
         {KM_TEXT(".km0123456789abcdef.tmp"), KM_TEXT(".km77-3.tmp"), KM_TEXT(".kmine"), KM_TEXT("x.tmp")})
        std::filesystem::last_write_time(folder.SystemPath(name), old);
    ASSERT_EQ(StoreFile(folder.Path(KM_TEXT("f")).c_str(), "now", 3), StoreResult::Done);
    EXPECT_EQ(State(folder), (std::set<std::string>{".km1.tmp:x", ".kmine:x", "f:now", "x.tmp:x"}));
}

}  // namespace

// What files promise on every system.
#include "platform/Files.h"

#include <gtest/gtest.h>

#include <chrono>

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
        {"other_case_of_folder_missed",  "PROFILES\\My Phone.pf", 5},
        {"dots_refused",                 "profiles\\.\\..\\PROFILES\\my phone.pf", 5},
        {"part_of_a_name_opened",        "Profiles\\My Phone", kRefused},
        {"missing_folder_ignored",       "none\\My Phone.pf", kRefused},
        {"folder_opened_as_file",        "folder.pf", kRefused},
        {"file_taken_for_a_folder",      "empty.pf\\My Phone.pf", kRefused},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(SizeOf(folder.Path(Text(row.name))), row.size) << row.fault << ": " << row.name;
}

TEST(Files, ReadsOnWhereTheLastReadStopped) {
    const TemporaryFolder folder;
    const std::string_view content("a\r\n\x1A\0b", 6);  // what a text mode would change or end at
    folder.WriteBytes(KM_TEXT("f"), content);
    InputFile file;
    ASSERT_TRUE(file.Open(folder.Path(KM_TEXT("f")).c_str()));
    std::string bytes(9, '?');
    std::size_t first = 0, rest = 0;
    ASSERT_TRUE(file.Read(bytes.data(), 4, first));
    ASSERT_TRUE(file.Read(bytes.data() + 4, 5, rest));
    EXPECT_EQ(bytes.substr(0, first + rest), content);
}

TEST(Files, StoringReplacesOrRefuses) {
    // clang-format off
    const struct {
        const char* fault; const kmChar* name; Storing storing; StoreResult expected; std::set<std::string> after;
    } rows[] = {
        {"new_file_not_made",          KM_TEXT("new"),    Storing::Replace, StoreResult::Done,       {"f:old", "new:now"}},
        {"spelling_of_old_file_lost",  KM_TEXT("F"),      Storing::Replace, StoreResult::Done,       {"f:now"}},
        {"replaced_in_other_case",     KM_TEXT("F"),      Storing::New,     StoreResult::Exists,     {"f:old"}},
        {"missing_folder_made",        KM_TEXT("no\\f"),  Storing::Replace, StoreResult::CannotOpen, {"f:old"}},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const TemporaryFolder folder;
        folder.WriteBytes(KM_TEXT("f"), "old");
        EXPECT_EQ(StoreFile(folder.Path(row.name).c_str(), "now", 3, row.storing), row.expected);
        EXPECT_EQ(folder.State(), row.after);
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
        EXPECT_EQ(folder.State(), row.after);
    }
}

TEST(Files, LeftoversOfKilledProcessesGoWhenTheyAreOld) {
    const TemporaryFolder folder;
    const auto now = std::filesystem::file_time_type::clock::now();
    for (const char* old : {".km0123456789abcdef.tmp", ".kmine", "x.tmp"}) {
        folder.WriteBytes(Text(old), "x");
        std::filesystem::last_write_time(folder.SystemPath(Text(old)), now - std::chrono::hours(1));
    }
    folder.WriteBytes(KM_TEXT(".km1.tmp"), "x");
    ASSERT_EQ(StoreFile(folder.Path(KM_TEXT("f")).c_str(), "now", 3), StoreResult::Done);
    EXPECT_EQ(folder.State(), (std::set<std::string>{".km1.tmp:x", ".kmine:x", "f:now", "x.tmp:x"}));
}

}  // namespace

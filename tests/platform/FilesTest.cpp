// SPDX-License-Identifier: MIT
// What files promise on every system.
#include "platform/FileFault.h"
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

struct Refusal {
    const char* name;
    FILE_FAULT fault;
    bool (*work)(const TemporaryFolder& folder);
};

bool Store(const TemporaryFolder& folder, const kmString& name, Storing storing = Storing::Replace) {
    return StoreFile(folder.Path(name).c_str(), "x", 1, storing) == StoreResult::Done;
}

const Refusal kRefusals[] = {
    {"folder_in_the_place", FILE_FAULT_NO_FILE, [](auto& f) { return Store(f, KM_TEXT("sub")); }},
    {"name_taken", FILE_FAULT_EXISTS, [](auto& f) { return Store(f, KM_TEXT("A"), Storing::New); }},
    {"new_name_taken", FILE_FAULT_EXISTS,
     [](auto& f) { return RenameFile(f.Path(KM_TEXT("b")).c_str(), f.Path(KM_TEXT("a")).c_str()); }},
    {"nothing_to_rename", FILE_FAULT_NOT_FOUND,
     [](auto& f) { return RenameFile(f.Path(KM_TEXT("c")).c_str(), f.Path(KM_TEXT("d")).c_str()); }},
    {"folder_to_remove", FILE_FAULT_NO_FILE,
     [](auto& f) { return RemoveFile(f.Path(KM_TEXT("sub")).c_str()); }},
    {"nothing_to_open", FILE_FAULT_NOT_FOUND,
     [](auto& f) { return InputFile().Open(f.Path(KM_TEXT("c")).c_str()); }},
};

TEST(Files, SayWhyTheyRefused) {
    for (const Refusal& row : kRefusals) {
        const TemporaryFolder folder;
        folder.MakeFolder(KM_TEXT("sub"));
        folder.WriteBytes(KM_TEXT("a"), "a");
        folder.WriteBytes(KM_TEXT("b"), "b");
        NoteFault(FILE_FAULT_NONE);
        EXPECT_FALSE(row.work(folder)) << row.name;
        EXPECT_EQ(kmLastFileFault(), row.fault)
            << row.name << ": " << Utf8(kmFileFaultText(kmLastFileFault()));
    }
}

}  // namespace

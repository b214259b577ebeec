#include "platform/Files.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace {

TEST(Files, OpensWhatTheNameMeans) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("Profiles\\My Phone.pf"), "phone");
    folder.WriteBytes(KM_TEXT("empty.pf"), "");
    folder.MakeFolder(KM_TEXT("folder.pf"));
    // clang-format off
    const struct { const char* fault; const kmChar* name; int size; } rows[] = {
        {"exact_name_missed", KM_TEXT("Profiles\\My Phone.pf"), 5},
        {"letter_case_of_the_file_counts", KM_TEXT("Profiles\\my phone.PF"), 5},
        {"letter_case_of_the_folder_counts", KM_TEXT("PROFILES\\My Phone.pf"), 5},
        {"double_separator_refused", KM_TEXT("profiles\\\\my phone.pf"), 5},
        {"slash_refused", KM_TEXT("profiles/my phone.pf"), 5},
        {"dots_refused", KM_TEXT("profiles\\.\\..\\PROFILES\\my phone.pf"), 5},
        {"empty_file_refused", KM_TEXT("Empty.pf"), 0},
        {"missing_file_opened", KM_TEXT("Profiles\\none.pf"), -1},
        {"beginning_of_a_name_opened", KM_TEXT("Profiles\\My Phone"), -1},
        {"missing_folder_ignored", KM_TEXT("none\\My Phone.pf"), -1},
        {"folder_opened", KM_TEXT("folder.pf"), -1},
        {"folder_in_other_case_opened", KM_TEXT("FOLDER.pf"), -1},
        {"folder_with_separator_opened", KM_TEXT(""), -1},
        {"file_taken_for_a_folder", KM_TEXT("empty.pf\\My Phone.pf"), -1},
        {"separator_behind_a_file_ignored", KM_TEXT("empty.pf\\"), -1}};
    // clang-format on
    for (const auto& row : rows) {
        InputFile file;
        EXPECT_EQ(file.Open(folder.Path(row.name).c_str()), row.size >= 0) << row.fault;
        if (row.size >= 0) {
            EXPECT_EQ(file.Size(), static_cast<std::uint64_t>(row.size)) << row.fault;
        }
    }
    EXPECT_FALSE(InputFile().Open(KM_TEXT(""))) << "an empty path is no file";
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
    EXPECT_EQ(rest, 0u);
}

}  // namespace

// What only a file system whose names are bytes, letter case and all, can hold.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/Files.h"
#include "tests/support/TemporaryFolder.h"

TEST(FilesPosix, FindsNamesByBytes) {
    // Each file holds its own name; of those on the disk one is opened, or none.
    // clang-format off
    const struct { const char* fault; std::vector<std::string> onDisk; std::string asked, opened; } rows[] = {
        {"other_case_before_the_exact_name", {"A.pf", "a.pf"}, "a.pf", "a.pf"},
        {"choice_depends_on_listing_order", {"aB.pf", "AB.pf", "Ab.pf"}, "ab.pf", "AB.pf"},
        {"name_that_is_no_utf8_lost", {"caf\xE9.pf"}, "CAF\xE9.PF", "caf\xE9.pf"},
        {"replaced_byte_matches_another", {"caf\xE8.pf"}, "caf\xE9.pf", ""},
        {"backslash_in_a_name_separates", {"a\\b.pf"}, "A\\B.pf", "a\\b.pf"},
        {"case_folded_beyond_ascii", {"\xC3\x89.pf"}, "\xC3\xA9.pf", ""},
        {"utf8_name_lost", {"\xF0\x9F\x98\x80.pf"}, "\xF0\x9F\x98\x80.PF", "\xF0\x9F\x98\x80.pf"}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const TemporaryFolder folder;
        for (const std::string& name : row.onDisk) std::ofstream(folder.SystemPath() / name) << name;
        InputFile file;
        ASSERT_EQ(file.Open((folder.Path() + TextFromBytes(row.asked)).c_str()), !row.opened.empty());
        if (row.opened.empty()) continue;
        std::string content(file.Size(), '?');
        std::size_t got = 0;
        ASSERT_TRUE(file.Read(content.data(), content.size(), got));
        EXPECT_EQ(content, row.opened);
    }
}

TEST(FilesPosix, PipeWithoutWriterDoesNotHoldTheCaller) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder.SystemPath() / "p.pf").c_str(), 0600), 0);
    InputFile file;  // whether it opens does not matter; that the call returns does
    EXPECT_TRUE(!file.Open(folder.Path(KM_TEXT("p.pf")).c_str()) || file.Size() == 0);
}

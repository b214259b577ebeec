#include "platform/Files.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

TEST(Files, OpensWhatTheNameMeans) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("Profiles\\My Phone.pf"), "phone");
    folder.WriteBytes(KM_TEXT("empty.pf"), "");
    folder.MakeFolder(KM_TEXT("folder.pf"));
    // clang-format off
    const struct { const char* name; int size; } rows[] = {
        {"Profiles\\My Phone.pf", 5}, {"Profiles\\my phone.PF", 5}, {"PROFILES\\My Phone.pf", 5},
        {"profiles\\\\my phone.pf", 5}, {"profiles/my phone.pf", 5},
        {"profiles\\.\\..\\PROFILES\\my phone.pf", 5}, {"Empty.pf", 0}, {"Profiles\\none.pf", -1},
        {"Profiles\\My Phone", -1}, {"none\\My Phone.pf", -1}, {"folder.pf", -1}, {"FOLDER.pf", -1}, {"", -1},
        {"empty.pf\\My Phone.pf", -1}, {"empty.pf\\", -1}};
    // clang-format on
    for (const auto& row : rows) {
        InputFile file;
        const bool opened = file.Open(folder.Path(Text(row.name)).c_str());
        EXPECT_EQ(opened ? static_cast<int>(file.Size()) : -1, row.size) << row.name;
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
    std::size_t first = 0, rest = 0;
    ASSERT_TRUE(file.Read(bytes.data(), 4, first) && file.Read(bytes.data() + 4, 5, rest));
    EXPECT_EQ(bytes.substr(0, first + rest), content);
    EXPECT_TRUE(file.Read(bytes.data(), 9, rest) && rest == 0);
}

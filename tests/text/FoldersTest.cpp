#include "text/Folders.h"

#include <gtest/gtest.h>

#include "tests/support/Text.h"

namespace {

TEST(Folders, Normalize) {
    // clang-format off
    const struct { const kmChar* folder; const char* normal; } rows[] = {
        {KM_TEXT("C:/x/y"), "C:\\x\\y\\"}, {KM_TEXT("C:\\x\\"), "C:\\x\\"}, {KM_TEXT("C:\\x/"), "C:\\x\\"},
        {KM_TEXT("//x"), "\\\\x\\"}, {KM_TEXT("x"), "x\\"}, {KM_TEXT("/"), "\\"}};
    // clang-format on
    for (const auto& row : rows) {
        kmString folder = row.folder;
        NormalizeFolder(folder);
        EXPECT_EQ(Utf8(folder), row.normal);
        EXPECT_EQ(Utf8(GetUserFolder(row.folder)), row.normal + std::string("user\\"));
    }
    EXPECT_EQ(Utf8(GetUserFolder(nullptr)), "");
}

TEST(Folders, DefaultIsBesideTheExecutable) {
    const kmString exe = GetExeFolder();
    ASSERT_FALSE(exe.empty());
    EXPECT_EQ(exe.back(), KM_TEXT('\\'));
    EXPECT_EQ(exe.find(KM_TEXT('/')), kmString::npos);
    EXPECT_EQ(GetDefaultProfilesFolder(), exe + KM_TEXT("Profiles\\"));
}

}  // namespace

// What only this system can do to a file: long paths, locks, read-only files, letter case.
#include <gtest/gtest.h>
#include <windows.h>

#include "text/Encoding.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace {

constexpr std::string_view kOld = "old";

StoreResult Store(const TemporaryFolder& folder, kmStringView name, std::string_view bytes = "new!") {
    return StoreFile(folder.Path(name).c_str(), bytes.data(), bytes.size());
}

std::string Content(const TemporaryFolder& folder, kmStringView name) {
    return ReadBytes(folder.SystemPath(name));
}

// Every name in the folder, temporary files included.
std::vector<std::wstring> Names(const TemporaryFolder& folder) {
    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.SystemPath()))
        names.push_back(entry.path().filename().wstring());
    return names;
}

TEST(FilesWindows, HeldFileStaysWhole) {
    // clang-format off
    const struct { const char* fault; DWORD access, sharing; } rows[] = {
        {"written_through_an_exclusive_lock", GENERIC_READ | GENERIC_WRITE, 0},
        {"written_past_a_reader_that_forbids_writing", GENERIC_READ, FILE_SHARE_READ},
        {"replaced_under_an_ordinary_reader", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const TemporaryFolder folder;
        folder.WriteBytes(L"a.pf", kOld);
        const kmString path = folder.Path(L"a.pf");
        const HANDLE hold =
            CreateFileW(path.c_str(), row.access, row.sharing, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(hold, INVALID_HANDLE_VALUE);
        EXPECT_EQ(Store(folder, L"A.pf"), StoreResult::CannotOpen);
        EXPECT_FALSE(RemoveFile(path.c_str()) || RenameFile(path.c_str(), folder.Path(L"b.pf").c_str()));
        CloseHandle(hold);
        EXPECT_TRUE(Content(folder, L"a.pf") == kOld && Names(folder) == std::vector<std::wstring>{L"a.pf"});
        EXPECT_EQ(Store(folder, L"a.pf"), StoreResult::Done) << "the hold has ended";
        EXPECT_EQ(Content(folder, L"a.pf"), "new!");
    }
}

TEST(FilesWindows, ReadOnlyFileStays) {
    const TemporaryFolder folder;
    folder.WriteBytes(L"a.pf", kOld);
    const kmString path = folder.Path(L"a.pf");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(Store(folder, L"A.pf"), StoreResult::CannotOpen);
    EXPECT_FALSE(RemoveFile(path.c_str()));
    EXPECT_TRUE(Content(folder, L"a.pf") == kOld && Names(folder) == std::vector<std::wstring>{L"a.pf"});
    EXPECT_TRUE(RenameFile(path.c_str(), folder.Path(L"b.pf").c_str()));
    SetFileAttributesW(folder.Path(L"b.pf").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(FilesWindows, RenamingNeverReplaces) {
    const TemporaryFolder folder;
    folder.WriteBytes(L"a.pf", kOld);
    folder.WriteBytes(L"b.pf", "other");
    const auto rename = [&folder](kmStringView from, kmStringView to) {
        return RenameFile(folder.Path(from).c_str(), folder.Path(to).c_str());
    };
    for (const kmChar* to : {L"B.pf", L"none\\c.pf"})
        EXPECT_FALSE(rename(L"a.pf", to)) << Utf8(to);
    EXPECT_EQ(Content(folder, L"a.pf") + Content(folder, L"b.pf"), "oldother");
    EXPECT_TRUE(rename(L"A.pf", L"c.pf"));
    EXPECT_EQ(Content(folder, L"c.pf"), kOld);
}

TEST(FilesWindows, PathsMayBeLong) {
    const TemporaryFolder folder;
    kmString deep = folder.Path();
    while (deep.size() < 400) {
        deep += kmString(60, L'd') + L"\\";
        CreateFolder(deep.c_str());
    }
    const kmString path = deep + L"a.pf", other = deep + L"b.pf";
    ASSERT_EQ(StoreFile(path.c_str(), "old", 3), StoreResult::Done);
    ASSERT_EQ(StoreFile((deep + L"x\\..\\A.PF").c_str(), "new!", 4), StoreResult::Done);
    ASSERT_TRUE(RenameFile(path.c_str(), other.c_str()));
    EXPECT_FALSE(EntryExists(path.c_str()));
    std::vector<kmString> names;
    EXPECT_TRUE(InputFolder(deep).List(L".pf", names));
    EXPECT_EQ(names, std::vector<kmString>{L"b.pf"});
    // Not every library removes such folders.
    EXPECT_TRUE(RemoveFile(other.c_str()));
    for (; deep.size() > folder.Path().size(); deep.erase(deep.rfind(L'\\', deep.size() - 2) + 1))
        EXPECT_TRUE(RemoveDirectoryW((L"\\\\?\\" + deep).c_str()));
}

TEST(ProcessWindows, PrintsReadableTextInOrder) {
    testing::internal::CaptureStdout();
    std::printf("before ");
    PrintText(L"caf\u00E9 \u65E5\u672C \U0001F600\n");
    std::printf("after");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "before caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80\nafter");
}

TEST(EncodingWindows, Utf16IsRecognisedAsTheSystemDoes) {
    int files = 0;
    const std::filesystem::path samples = std::filesystem::path(KM_SOURCE_DIR) / "samples/Profiles";
    for (const auto& entry : std::filesystem::recursive_directory_iterator(samples)) {
        if (!entry.is_regular_file()) continue;
        const std::string bytes = ReadBytes(entry.path()), mark = "\xFF\xFE";
        const std::string wide = bytes.starts_with(mark) ? bytes.substr(2) : Utf16Bytes(TextFromBytes(bytes));
        for (const std::string& text : {bytes, wide, mark + wide}) {
            const int theirs = IsTextUnicode(text.data(), static_cast<int>(text.size()), nullptr);
            const auto* data = reinterpret_cast<const unsigned char*>(text.data());
            EXPECT_EQ(IsUtf16Text(data, text.size()), theirs != 0) << entry.path();
        }
        ++files;
    }
    EXPECT_GT(files, 60);
}

}  // namespace

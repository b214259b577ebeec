// What only this system does: locks, read-only files, long paths, the order of its listings, its console and
// its test for UTF-16.
#include <gtest/gtest.h>
#include <windows.h>

#include <set>

#include "kmManager.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"
#include "text/Encoding.h"

static void PrintTo(StoreResult result, std::ostream* out) {
    constexpr const char* kNames[] = {"Done", "CannotOpen", "CannotWrite", "Exists"};
    *out << kNames[static_cast<std::size_t>(result)];
}

namespace {

// "a.pf:old" and so on, temporary files included.
std::set<std::string> State(const TemporaryFolder& folder) {
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.SystemPath()))
        files.insert(Utf8(entry.path().filename().wstring()) + ":" + ReadBytes(entry.path()));
    return files;
}

StoreResult Store(const TemporaryFolder& folder, kmStringView name) {
    return StoreFile(folder.Path(name).c_str(), "new!", 4);
}

bool Rename(const TemporaryFolder& folder, kmStringView from, kmStringView to) {
    return RenameFile(folder.Path(from).c_str(), folder.Path(to).c_str());
}

TEST(WindowsFiles, HeldFileStaysWhole) {
    // clang-format off
    const struct { const char* fault; DWORD access, sharing; } rows[] = {
        {"written_through_an_exclusive_lock", GENERIC_READ | GENERIC_WRITE, 0},
        {"written_past_a_reader_that_forbids_writing", GENERIC_READ, FILE_SHARE_READ},
        {"replaced_under_an_ordinary_reader", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const TemporaryFolder folder;
        folder.WriteBytes(L"a.pf", "old");
        const kmString path = folder.Path(L"a.pf");
        const HANDLE hold =
            CreateFileW(path.c_str(), row.access, row.sharing, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(hold, INVALID_HANDLE_VALUE);
        EXPECT_EQ(Store(folder, L"A.pf"), StoreResult::CannotOpen);
        EXPECT_FALSE(RemoveFile(path.c_str()));
        EXPECT_FALSE(Rename(folder, L"a.pf", L"b.pf"));
        CloseHandle(hold);
        EXPECT_EQ(State(folder), std::set<std::string>{"a.pf:old"});
        EXPECT_EQ(Store(folder, L"a.pf"), StoreResult::Done) << "the hold has ended";
        EXPECT_EQ(State(folder), std::set<std::string>{"a.pf:new!"});
    }
}

TEST(WindowsFiles, ReadOnlyFileIsOnlyRenamed) {
    const TemporaryFolder folder;
    folder.WriteBytes(L"a.pf", "old");
    const kmString path = folder.Path(L"a.pf");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(Store(folder, L"A.pf"), StoreResult::CannotOpen);
    EXPECT_FALSE(RemoveFile(path.c_str()));
    EXPECT_EQ(State(folder), std::set<std::string>{"a.pf:old"});
    EXPECT_TRUE(Rename(folder, L"a.pf", L"b.pf"));
    EXPECT_EQ(State(folder), std::set<std::string>{"b.pf:old"});
    SetFileAttributesW(folder.Path(L"b.pf").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(WindowsFiles, RenamingNeverReplaces) {
    const std::set<std::string> kept = {"a.pf:old", "b.pf:other"};
    // clang-format off
    const struct { const char* fault; const kmChar *from, *to; bool isDone; std::set<std::string> after; } rows[] = {
        {"another_replaced",               L"a.pf", L"b.pf",       false, kept},
        {"another_replaced_in_other_case", L"a.pf", L"B.pf",       false, kept},
        {"missing_folder_made",            L"a.pf", L"none\\c.pf", false, kept},
        {"source_in_other_case_missed",    L"A.pf", L"c.pf",       true,  {"b.pf:other", "c.pf:old"}},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const TemporaryFolder folder;
        folder.WriteBytes(L"a.pf", "old");
        folder.WriteBytes(L"b.pf", "other");
        EXPECT_EQ(Rename(folder, row.from, row.to), row.isDone);
        EXPECT_EQ(State(folder), row.after);
    }
}

TEST(WindowsFiles, PathsMayBeLong) {
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
        EXPECT_TRUE(RemoveDirectoryW((L"\\\\?\\" + deep).c_str())) << Utf8(deep);
}

std::vector<kmString> ListedBySystem(const kmString& pattern) {
    std::vector<kmString> names;
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(pattern.c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return names;
    do names.emplace_back(entry.cFileName);
    while (FindNextFileW(search, &entry));
    FindClose(search);
    return names;
}

struct TestManager : kmManager {};

// Names whose order depends on what is folded to which case, and that are not made in any order.
TEST(WindowsFiles, RecordsFollowTheSystemsListing) {
    const TemporaryFolder folder;
    for (const kmChar* id : {L"a_b", L"aB", L"a b", L"\u00E9", L"\u00CA", L"Z", L"[x]", L"9", L"10"})
        folder.WriteBytes(kmString(id) + L".pf", "<Profiles><Main/></Profiles>");
    const CapturedMessages messages;
    TestManager manager;
    manager.Load(folder.Path());
    std::vector<kmString> names;
    for (const kmProfileInfo& info : manager.GetProfiles()) names.push_back(info.GetID() + L".pf");
    EXPECT_EQ(Joined(names), Joined(ListedBySystem(folder.Path(L"*.pf"))));
    EXPECT_EQ(names.size(), 9u);
}

TEST(WindowsOutput, PrintsReadableTextInOrder) {
    testing::internal::CaptureStdout();
    std::printf("before ");
    PrintText(L"caf\u00E9 \u65E5\u672C \U0001F600\n");
    std::printf("after");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "before caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80\nafter");
}

TEST(WindowsEncoding, Utf16IsRecognisedAsTheSystemDoes) {
    int files = 0;
    const std::filesystem::path samples = std::filesystem::path(KM_SOURCE_DIR) / "samples/Profiles";
    for (const auto& entry : std::filesystem::recursive_directory_iterator(samples)) {
        if (!entry.is_regular_file()) continue;
        const std::string bytes = ReadBytes(entry.path()), mark = "\xFF\xFE";
        const std::string wide = bytes.starts_with(mark) ? bytes.substr(2) : Utf16Bytes(TextFromBytes(bytes));
        const std::pair<const char*, std::string> forms[] = {
            {"as it is", bytes}, {"UTF-16", wide}, {"UTF-16 with its mark", mark + wide}};
        for (const auto& [form, text] : forms) {
            const bool theirs = IsTextUnicode(text.data(), static_cast<int>(text.size()), nullptr) != 0;
            const auto* data = reinterpret_cast<const unsigned char*>(text.data());
            EXPECT_EQ(IsUtf16Text(data, text.size()), theirs) << entry.path() << ", " << form;
        }
        ++files;
    }
    EXPECT_GT(files, 60);
}

}  // namespace

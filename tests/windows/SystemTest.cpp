// SPDX-License-Identifier: MIT
// What only this system does: locks, read-only files, access lists, long paths, the order of its listings,
// its console and its test for UTF-16. The tests that only the other system has, and what stands for them
// here:
//   names by bytes                RecordsFollowTheSystemsListing; renaming is tested on every system
//   odd entries of a folder       none: folders here hold neither pipes nor sockets nor devices
//   a full disk                   the fault tests, which run here too: a process cannot limit its files here
//   links                         none: making them is a privilege here, which an ordinary account lacks
//   permissions, access lists     ReplacedFileKeepsItsAccessList, ReadOnlyFileIsOnlyRenamed
//   what may not be written       HeldFileStaysWhole, ReadOnlyFileIsOnlyRenamed
//   rights of another group       ReplacedFileKeepsItsAccessList: an access list is carried over whole or not
//   several processes             HeldFileStaysWhole: what one holds open the other cannot replace
//   the tool on odd files         the library's tests of the same files; names and terminals are not to be
//   had
#include <aclapi.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>
#include <sddl.h>
#include <windows.h>

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
        EXPECT_EQ(folder.State(), std::set<std::string>{"a.pf:old"});
        EXPECT_EQ(Store(folder, L"a.pf"), StoreResult::Done) << "the hold has ended";
        EXPECT_EQ(folder.State(), std::set<std::string>{"a.pf:new!"});
    }
}

TEST(WindowsFiles, ReadOnlyFileIsOnlyRenamed) {
    const TemporaryFolder folder;
    folder.WriteBytes(L"a.pf", "old");
    const kmString path = folder.Path(L"a.pf");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(Store(folder, L"A.pf"), StoreResult::CannotOpen);
    EXPECT_FALSE(RemoveFile(path.c_str()));
    EXPECT_EQ(folder.State(), std::set<std::string>{"a.pf:old"});
    EXPECT_TRUE(Rename(folder, L"a.pf", L"b.pf"));
    EXPECT_EQ(folder.State(), std::set<std::string>{"b.pf:old"});
    SetFileAttributesW(folder.Path(L"b.pf").c_str(), FILE_ATTRIBUTE_NORMAL);
}

// The access list as text, or why it cannot be read.
std::wstring AccessListOf(const kmString& path) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const DWORD error = GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                              nullptr, nullptr, nullptr, nullptr, &descriptor);
    if (error != ERROR_SUCCESS) return L"error " + std::to_wstring(error);
    wchar_t* text = nullptr;
    ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1,
                                                         DACL_SECURITY_INFORMATION, &text, nullptr);
    const std::wstring list = text == nullptr ? L"none" : text;
    LocalFree(text);
    LocalFree(descriptor);
    return list;
}

// Leaves the file to its owner alone.
bool Narrow(const kmString& path) {
    HANDLE token = nullptr;
    alignas(TOKEN_USER) std::byte user[256];
    DWORD size = 0;
    wchar_t* owner = nullptr;
    const bool isKnown = OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) != 0 &&
                         GetTokenInformation(token, TokenUser, user, sizeof user, &size) != 0 &&
                         ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(user)->User.Sid, &owner) != 0;
    CloseHandle(token);
    if (!isKnown) return false;
    const std::wstring text = std::wstring(L"D:P(A;;FA;;;") + owner + L")";
    LocalFree(owner);
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(text.c_str(), SDDL_REVISION_1, &descriptor, nullptr);
    const bool isDone = SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor) != 0;
    LocalFree(descriptor);
    return isDone;
}

TEST(WindowsFiles, ReplacedFileKeepsItsAccessList) {
    const TemporaryFolder folder;
    folder.WriteBytes(L"a.pf", "old");
    const kmString path = folder.Path(L"a.pf");
    const std::wstring wide = AccessListOf(path);
    ASSERT_TRUE(Narrow(path)) << GetLastError();
    const std::wstring narrow = AccessListOf(path);
    ASSERT_NE(Utf8(narrow), Utf8(wide)) << "nothing to keep";
    EXPECT_EQ(Store(folder, L"a.pf"), StoreResult::Done);
    EXPECT_EQ(Utf8(AccessListOf(path)), Utf8(narrow));
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

// Names whose order depends on what is folded to which case, and that are not made in any order.
TEST(WindowsFiles, RecordsFollowTheSystemsListing) {
    const TemporaryFolder folder;
    for (const kmChar* id : {L"a_b", L"aB", L"a b", L"\u00E9", L"\u00CA", L"Z", L"[x]", L"9", L"10"})
        folder.WriteBytes(kmString(id) + L".pf", "<Profiles><Main/></Profiles>");
    const CapturedMessages messages;
    struct : kmManager {
    } manager;
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

// An application may have set its output to wide text, and a user may have sent it to a file.
TEST(WindowsOutput, SurvivesAnOutputOfWideText) {
    const TemporaryFolder folder;
    const kmString path = folder.Path(L"out");
    std::fflush(stdout);
    const int saved = _dup(_fileno(stdout));
    const int file = _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_BINARY, _S_IWRITE);
    _dup2(file, _fileno(stdout));
    const int mode = _setmode(_fileno(stdout), _O_U16TEXT);
    PrintText(L"caf\u00E9 \u65E5\U0001F600\n");
    std::fflush(stdout);
    _setmode(_fileno(stdout), mode);
    _dup2(saved, _fileno(stdout));
    _close(saved);
    _close(file);
    EXPECT_EQ(ReadBytes(folder.SystemPath(L"out")), Utf16Bytes(L"caf\u00E9 \u65E5\U0001F600\r\n"));
}

TEST(WindowsEncoding, Utf16IsRecognisedAsTheSystemDoes) {
    const std::filesystem::path samples = std::filesystem::path(KM_SOURCE_DIR) / "samples/Profiles";
    for (const auto& entry : std::filesystem::recursive_directory_iterator(samples)) {
        if (!entry.is_regular_file() || entry.path().extension() == ".bmp") continue;
        const std::string bytes = ReadBytes(entry.path()), mark = "\xFF\xFE";
        const std::string wide = bytes.starts_with(mark) ? bytes.substr(2) : Utf16Bytes(TextFromBytes(bytes));
        const std::pair<const char*, std::string> forms[] = {
            {"as it is", bytes}, {"UTF-16", wide}, {"UTF-16 with its mark", mark + wide}};
        for (const auto& [form, text] : forms) {
            const bool theirs = IsTextUnicode(text.data(), static_cast<int>(text.size()), nullptr) != 0;
            const auto* data = reinterpret_cast<const unsigned char*>(text.data());
            EXPECT_EQ(IsUtf16Text(data, text.size()), theirs) << entry.path() << ", " << form;
        }
    }
}

}  // namespace

// What only this system can do to a file: long paths, locks, read-only files, letter case.
#include <gtest/gtest.h>
#include <windows.h>

#include "kmProfile.h"
#include "platform/Encoding.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace {

constexpr std::string_view kOld = "old";

WriteResult Store(const TemporaryFolder& folder, kmStringView name, std::string_view bytes = "new!") {
    return StoreFile(folder.Path(name).c_str(), bytes.data(), bytes.size());
}

std::string Content(const TemporaryFolder& folder, kmStringView name) {
    InputFile file;
    if (!file.Open(folder.Path(name).c_str())) return "(cannot be opened)";
    std::string bytes(file.Size(), '?');
    std::size_t got = 0;
    return file.Read(bytes.data(), bytes.size(), got) ? bytes.substr(0, got) : "(cannot be read)";
}

// Every name in the folder, temporary files included.
std::vector<std::wstring> Names(const TemporaryFolder& folder) {
    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.SystemPath())) {
        names.push_back(entry.path().filename().wstring());
    }
    return names;
}

// Another program's hold on a file.
class Hold {
public:
    Hold(const kmString& path, DWORD access, DWORD sharing)
        : m_handle(CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(m_handle, INVALID_HANDLE_VALUE);
    }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() { CloseHandle(m_handle); }

private:
    HANDLE m_handle;
};

TEST(FilesWindows, HeldFileStaysWhole) {
    const struct {
        const char* fault;
        DWORD access;
        DWORD sharing;
    } rows[] = {
        {"written_through_an_exclusive_lock", GENERIC_READ | GENERIC_WRITE, 0},
        {"written_past_a_reader_that_forbids_writing", GENERIC_READ, FILE_SHARE_READ},
        {"replaced_under_an_ordinary_reader", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const TemporaryFolder folder;
        folder.WriteBytes(L"a.pf", kOld);
        {
            const Hold hold(folder.Path(L"a.pf"), row.access, row.sharing);
            EXPECT_EQ(Store(folder, L"a.pf"), WriteResult::CannotOpen);
            EXPECT_FALSE(RemoveFile(folder.Path(L"a.pf").c_str()));
            EXPECT_FALSE(RenameFile(folder.Path(L"a.pf").c_str(), folder.Path(L"b.pf").c_str()));
        }
        EXPECT_EQ(Content(folder, L"a.pf"), kOld);
        EXPECT_EQ(Names(folder), std::vector<std::wstring>{L"a.pf"});
        EXPECT_EQ(Store(folder, L"a.pf"), WriteResult::Done) << "the hold has ended";
        EXPECT_EQ(Content(folder, L"a.pf"), "new!");
    }
}

TEST(FilesWindows, FileThatAnybodyMayReplaceIsOldOrNew) {
    const TemporaryFolder folder;
    folder.WriteBytes(L"a.pf", kOld);
    {
        InputFile reader;
        ASSERT_TRUE(reader.Open(folder.Path(L"a.pf").c_str()));
        const bool replaced = Store(folder, L"a.pf") == WriteResult::Done;
        EXPECT_EQ(Content(folder, L"a.pf"), replaced ? "new!" : kOld);
    }
    EXPECT_EQ(Names(folder), std::vector<std::wstring>{L"a.pf"});
}

TEST(FilesWindows, ReadOnlyFileStays) {
    const TemporaryFolder folder;
    folder.WriteBytes(L"a.pf", kOld);
    const kmString path = folder.Path(L"a.pf");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(Store(folder, L"A.pf"), WriteResult::CannotOpen);
    EXPECT_FALSE(RemoveFile(path.c_str()));
    EXPECT_EQ(Content(folder, L"a.pf"), kOld);
    EXPECT_EQ(Names(folder), std::vector<std::wstring>{L"a.pf"});
    EXPECT_TRUE(RenameFile(path.c_str(), folder.Path(L"b.pf").c_str()));
    SetFileAttributesW(folder.Path(L"b.pf").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(FilesWindows, StoringKeepsSpellingAndRespellingChangesIt) {
    const TemporaryFolder folder;
    folder.WriteBytes(L"My Phone.pf", kOld);
    EXPECT_EQ(Store(folder, L"MY PHONE.PF"), WriteResult::Done);
    EXPECT_EQ(Names(folder), std::vector<std::wstring>{L"My Phone.pf"});
    EXPECT_EQ(Content(folder, L"my phone.pf"), "new!");
    RespellFile(folder.Path(L"MY phone.pf").c_str());
    // A stand-in for this system may answer that it has renamed the file and do nothing.
    EXPECT_TRUE(EqualNoCase(Names(folder).front(), L"My Phone.pf"));
    EXPECT_EQ(Content(folder, L"My Phone.pf"), "new!");
}

TEST(FilesWindows, RenamingNeverReplaces) {
    const TemporaryFolder folder;
    folder.WriteBytes(L"a.pf", kOld);
    folder.WriteBytes(L"b.pf", "other");
    const auto rename = [&folder](kmStringView from, kmStringView to) {
        return RenameFile(folder.Path(from).c_str(), folder.Path(to).c_str());
    };
    EXPECT_FALSE(rename(L"a.pf", L"B.pf"));
    EXPECT_FALSE(rename(L"a.pf", L"a.pf"));
    EXPECT_FALSE(rename(L"a.pf", L"A.pf"));
    EXPECT_FALSE(rename(L"a.pf", L"none\\c.pf"));
    EXPECT_FALSE(rename(L"none.pf", L"c.pf"));
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
    const kmString path = deep + L"a.pf";
    const kmString other = deep + L"b.pf";
    ASSERT_EQ(StoreFile(path.c_str(), "old", 3), WriteResult::Done);
    ASSERT_EQ(StoreFile((deep + L"x\\..\\A.PF").c_str(), "new!", 4), WriteResult::Done);
    ASSERT_TRUE(RenameFile(path.c_str(), other.c_str()));
    EXPECT_FALSE(EntryExists(path.c_str()));
    std::vector<kmString> names;
    ListFiles(deep, L".pf", names);
    EXPECT_EQ(names, std::vector<kmString>{L"b.pf"});
    {
        InputFile file;
        ASSERT_TRUE(file.Open(other.c_str()));
        EXPECT_EQ(file.Size(), 4u);
    }

    // Not every library removes such folders.
    EXPECT_TRUE(RemoveFile(other.c_str()));
    for (; deep.size() > folder.Path().size(); deep.erase(deep.rfind(L'\\', deep.size() - 2) + 1)) {
        EXPECT_TRUE(RemoveDirectoryW((L"\\\\?\\" + deep).c_str()));
    }
}

TEST(FilesWindows, DeviceIsWrittenInPlace) {
    const TemporaryFolder folder;
    EXPECT_EQ(StoreFile(L"NUL", "x", 1), WriteResult::Done);
    EXPECT_EQ(Store(folder, L"a?.pf"), WriteResult::CannotOpen);
    EXPECT_TRUE(Names(folder).empty());
}

TEST(FilesWindows, SaveOfAHeldProfileIsAFileError) {
    const TemporaryFolder folder;
    const std::string text = "<Profiles><Main><Name language='a'/></Main><Parameter/></Profiles>";
    folder.WriteBytes(L"a.pf", text);
    kmProfile profile;
    profile.SetID(L"a");
    ASSERT_TRUE(profile.Load(folder.Path()));
    {
        const Hold hold(folder.Path(L"a.pf"), GENERIC_READ, FILE_SHARE_READ);
        EXPECT_EQ(profile.Save(L"a", true), PROFILE_ERROR_FILE);
        EXPECT_EQ(profile.ReName(L"b"), PROFILE_ERROR_FILE);
    }
    EXPECT_EQ(Content(folder, L"a.pf"), text);
    EXPECT_EQ(Names(folder), std::vector<std::wstring>{L"a.pf"});
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
    const auto check = [](const std::string& bytes, bool isUtf16, const std::string& what) {
        const auto size = static_cast<int>(bytes.size());
        EXPECT_EQ(IsUtf16Text(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()), isUtf16)
            << what;
        EXPECT_EQ(IsTextUnicode(bytes.data(), size, nullptr) != 0, isUtf16) << what;
    };
    const std::filesystem::path samples = std::filesystem::path(KM_SOURCE_DIR) / "samples/Profiles";
    for (const auto& entry : std::filesystem::recursive_directory_iterator(samples)) {
        if (!entry.is_regular_file()) continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        kmString text;
        if (bytes.starts_with("\xFF\xFE")) {
            for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
                text += static_cast<kmChar>(static_cast<unsigned char>(bytes[i]) |
                                            static_cast<unsigned char>(bytes[i + 1]) << 8);
            }
        } else {
            text = TextFromBytes(bytes.substr(bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0));
        }
        const std::string name = entry.path().filename().string();
        check("\xFF\xFE" + Utf16Bytes(text), true, name + ", UTF-16 with mark");
        check(Utf16Bytes(text), true, name + ", UTF-16");
        check("\xEF\xBB\xBF" + Utf8(text), false, name + ", UTF-8 with mark");
        check(Utf8(text), false, name + ", UTF-8");
        ++files;
    }
    EXPECT_GT(files, 60);
}

}  // namespace

// SPDX-License-Identifier: MIT
// What only a file system whose names are bytes, letter case and all, can hold; and what is no regular file.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>

#include "kmManager.h"
#include "platform/Files.h"
#include "tests/support/Messages.h"
#include "tests/support/ProfilesFolder.h"

namespace {

TEST(FilesPosix, FindsNamesByBytes) {
    // Each file holds its own name; of those on the disk one is opened, or none.
    // clang-format off
    const struct { const char* fault; std::vector<std::string> onDisk; std::string asked, opened; } rows[] = {
        {"other_case_before_the_exact_name", {"A.pf", "a.pf"},            "a.pf",            "a.pf"},
        {"choice_depends_on_listing_order",  {"aB.pf", "AB.pf", "Ab.pf"}, "ab.pf",           "AB.pf"},
        {"name_that_is_no_utf8_lost",        {"caf\xE9.pf"},             "CAF\xE9.PF",       "caf\xE9.pf"},
        {"replaced_byte_matches_another",    {"caf\xE8.pf"},             "caf\xE9.pf",       ""},
        {"backslash_in_a_name_separates",    {"a\\b.pf"},                "A\\B.pf",          "a\\b.pf"},
        {"case_folded_beyond_ascii",         {"\xC3\x89.pf"},            "\xC3\xA9.pf",      ""},
    };
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

// A pipe, a socket, a device behind a link, links that lead nowhere, a folder, a file that may not be read.
void FillWithOddEntries(const TemporaryFolder& folder) {
    const std::filesystem::path root = folder.SystemPath();
    ASSERT_EQ(mkfifo((root / "pipe.pf").c_str(), 0600), 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string socketPath = (root / "socket.pf").string();
    ASSERT_LT(socketPath.size(), sizeof address.sun_path);
    std::copy(socketPath.begin(), socketPath.end(), address.sun_path);
    const int socketFile = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(socketFile, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(socketFile);
    std::filesystem::create_symlink("/dev/zero", root / "device.pf");
    std::filesystem::create_symlink("/dev/tty", root / "terminal.pf");
    std::filesystem::create_symlink("nothing.pf", root / "dangling.pf");
    std::filesystem::create_symlink("circle.pf", root / "circle.pf");
    std::filesystem::create_directory(root / "folder.pf");
    std::ofstream(root / "sparse.pf") << "x";
    std::filesystem::resize_file(root / "sparse.pf", std::uintmax_t{3} << 30);
    std::ofstream(root / "no \xE9 utf8.pf") << "<Profiles><Main/></Profiles>";
    std::ofstream(root / "good.pf") << "<Profiles><Main/></Profiles>";
}

TEST(FilesPosix, OddEntriesOfAFolderAreNeitherOpenedNorLoaded) {
    const TemporaryFolder folder;
    FillWithOddEntries(folder);
    const CapturedMessages messages;
    struct : kmManager {
    } manager;
    manager.Load(folder.Path());
    EXPECT_EQ(Records(manager.GetProfiles()), "|good|no \xE9 utf8");
    // Whoever waits to write into the pipe is not woken.
    EXPECT_EQ(open(folder.SystemPath(KM_TEXT("pipe.pf")).c_str(), O_WRONLY | O_NONBLOCK), -1)
        << "something still reads from the pipe";
    for (const kmChar* name : {KM_TEXT("pipe.pf"), KM_TEXT("device.pf"), KM_TEXT("socket.pf")}) {
        InputFile file;
        EXPECT_FALSE(file.Open(folder.Path(name).c_str())) << Utf8(name);
        EXPECT_EQ(StoreFile(folder.Path(name).c_str(), "now", 3), StoreResult::CannotOpen) << Utf8(name);
        EXPECT_FALSE(RemoveFile(folder.Path(name).c_str())) << Utf8(name);
    }
}

}  // namespace

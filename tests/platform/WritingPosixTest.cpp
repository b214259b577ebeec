// SPDX-License-Identifier: MIT
// Writing where the disk, the permissions or the kind of the target stand in the way.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>

#include "platform/Files.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Files = std::set<std::string>;

int ModeOf(const TemporaryFolder& folder, kmStringView name) {
    return static_cast<int>(status(folder.SystemPath(name)).permissions());
}

// While it lives no file can grow beyond `size` bytes, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t size) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limit{size, m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_old{};
    void (*m_handler)(int);
};

StoreResult Store(const TemporaryFolder& folder, kmStringView name) {
    return StoreFile(folder.Path(name).c_str(), "new text", 8);
}

StoreResult Rename(const TemporaryFolder& folder, kmStringView from, kmStringView to) {
    return StoreRenamed(folder.Path(from).c_str(), folder.Path(to).c_str(), "new text", 8);
}

TEST(WritingPosix, OldFileOutlivesAFullDisk) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("f"), "old");
    for (rlim_t size = 0; size < 8; ++size) {
        SCOPED_TRACE(size);
        const FullDisk full(size);
        EXPECT_EQ(Store(folder, KM_TEXT("f")), StoreResult::CannotWrite);
        EXPECT_EQ(kmLastFileFault(), FILE_FAULT_DISK_FULL);
        EXPECT_EQ(Store(folder, KM_TEXT("new")), StoreResult::CannotWrite);
        EXPECT_EQ(Rename(folder, KM_TEXT("f"), KM_TEXT("n")), StoreResult::CannotWrite);
        EXPECT_EQ(folder.State(), Files{"f:old"});
    }
}

TEST(WritingPosix, LinksStayAndTheirTargetsAreReplaced) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("real"), "old");
    for (const auto& [to, from] : {std::pair("real", "link"), {"later", "dangling"}, {"circle", "circle"}})
        std::filesystem::create_symlink(to, folder.SystemPath() / from);
    EXPECT_EQ(Store(folder, KM_TEXT("LINK")), StoreResult::Done);
    EXPECT_EQ(Store(folder, KM_TEXT("dangling")), StoreResult::Done);
    EXPECT_EQ(Store(folder, KM_TEXT("circle")), StoreResult::CannotOpen);
    EXPECT_EQ(folder.State(),
              (Files{"circle:", "dangling:new text", "later:new text", "link:new text", "real:new text"}));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.SystemPath(KM_TEXT("link")))) << "the link was replaced";

    folder.WriteBytes(KM_TEXT("real"), "old");
    EXPECT_EQ(Rename(folder, KM_TEXT("link"), KM_TEXT("moved")), StoreResult::Done);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.SystemPath(KM_TEXT("moved")))) << "the link became a file";
    EXPECT_EQ(ReadBytes(folder.SystemPath(KM_TEXT("real"))), "new text");
}

// An access list as the system stores it: version 2, then tag, permissions and ID of each entry.
std::string AccessList(unsigned char groupPermissions, unsigned char mask) {
    const auto entry = [](unsigned char tag, unsigned char permissions, std::string id) {
        return std::string{static_cast<char>(tag), 0, static_cast<char>(permissions), 0} + std::move(id);
    };
    const std::string nobody = "\xFF\xFF\xFF\xFF";
    const std::string user(std::string_view("\x34\x12\0\0", 4));
    return std::string(std::string_view("\x02\0\0\0", 4)) + entry(0x01, 6, nobody) + entry(0x02, 6, user) +
           entry(0x04, groupPermissions, nobody) + entry(0x10, mask, nobody) + entry(0x20, 0, nobody);
}

TEST(WritingPosix, ReplacedFileKeepsAccessListAndAttributes) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("f"), "old");
    const std::string path = folder.SystemPath(KM_TEXT("f")).string();
    const std::string list = AccessList(/*groupPermissions=*/0, /*mask=*/6);
    if (setxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size(), 0) != 0 ||
        setxattr(path.c_str(), "user.note", "kept", 4, 0) != 0)
        GTEST_SKIP() << "this file system has no access lists or attributes";
    ASSERT_EQ(ModeOf(folder, KM_TEXT("f")), 0660) << "the group's bits are the mask's";
    EXPECT_EQ(Store(folder, KM_TEXT("f")), StoreResult::Done);
    std::string kept(list.size(), '?');
    EXPECT_EQ(getxattr(path.c_str(), "system.posix_acl_access", kept.data(), kept.size()),
              static_cast<ssize_t>(list.size()));
    EXPECT_EQ(kept, list) << "the group may do more than before";
    char note[8] = {};
    EXPECT_EQ(getxattr(path.c_str(), "user.note", note, sizeof note), 4);
    EXPECT_STREQ(note, "kept");
}

// In a process of its own: the superuser, who may write everything, has to become somebody else for good.
// True when `act` says so there.
template <class Act>
int AsOrdinaryUser(Act act) {
    if (geteuid() == 0 && setuid(65534) != 0) _exit(9);
    _exit(act() ? 0 : 1);
}

TEST(WritingPosixDeathTest, WhatMayNotBeWrittenStaysWhole) {
    const auto store = [](const TemporaryFolder& folder) { return Store(folder, KM_TEXT("f")); };
    const auto rename = [](const TemporaryFolder& folder) {
        return Rename(folder, KM_TEXT("f"), KM_TEXT("n"));
    };
    const struct {
        const char* fault;
        mode_t folderMode, fileMode;
        StoreResult (*act)(const TemporaryFolder& folder);
    } rows[] = {
        {"write_protected_file_replaced", 0777, 0444, store},
        {"write_protected_file_renamed", 0777, 0444, rename},
        {"unreadable_file_renamed", 0777, 0000, rename},
        {"read_only_folder_written", 0555, 0666, store},
        {"renamed_in_read_only_folder", 0555, 0666, rename},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const TemporaryFolder folder;
        folder.WriteBytes(KM_TEXT("f"), "old");
        ASSERT_EQ(chmod(folder.SystemPath(KM_TEXT("f")).c_str(), row.fileMode), 0);
        ASSERT_EQ(chmod(folder.SystemPath().c_str(), row.folderMode), 0);
        EXPECT_EXIT(AsOrdinaryUser([&] { return row.act(folder) == StoreResult::CannotOpen; }),
                    testing::ExitedWithCode(0), "");
        chmod(folder.SystemPath().c_str(), 0777);
        chmod(folder.SystemPath(KM_TEXT("f")).c_str(), 0666);
        EXPECT_EQ(folder.State(), Files{"f:old"});
    }
}

// The group of a file that somebody else owns cannot always be passed on; then nobody else gets its rights.
TEST(WritingPosixDeathTest, RightsOfAnotherGroupAreNotPassedOn) {
    if (geteuid() != 0) GTEST_SKIP() << "needs a file of another group";
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("f"), "old");
    const std::string path = folder.SystemPath(KM_TEXT("f")).string();
    ASSERT_EQ(chown(path.c_str(), 65533, 65533), 0);
    ASSERT_EQ(chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(chmod(folder.SystemPath().c_str(), 0777), 0);
    EXPECT_EXIT(AsOrdinaryUser([&] { return Store(folder, KM_TEXT("f")) == StoreResult::Done; }),
                testing::ExitedWithCode(0), "");
    EXPECT_EQ(ModeOf(folder, KM_TEXT("f")), 0606);
}

}  // namespace

// Writing where the disk, the permissions or the kind of the target stand in the way.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <set>

#include "platform/Files.h"
#include "tests/support/TemporaryFolder.h"
#include "xml/XMLNode.h"

namespace {

using Files = std::set<std::string>;

// What every name in the folder leads to.
Files State(const TemporaryFolder& folder) {
    Files files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.SystemPath()))
        files.insert(entry.path().filename().string() + ":" + ReadBytes(entry.path()));
    return files;
}
// On a disk that takes no more than `size` bytes of a file.
StoreResult StoreNew(const TemporaryFolder& folder, kmStringView name, rlim_t size = 100) {
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const rlimit limit{size, old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    const StoreResult result = StoreFile(folder.Path(name).c_str(), "new text", 8);
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, handler);
    return result;
}

TEST(WritingPosix, OldFileOutlivesAFullDisk) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("f"), "old");
    for (rlim_t size = 0; size < 8; ++size) {
        for (const kmChar* name : {KM_TEXT("f"), KM_TEXT("new")})
            EXPECT_EQ(StoreNew(folder, name, size), StoreResult::CannotWrite) << size;
        EXPECT_EQ(State(folder), Files{"f:old"}) << size;
    }
    const XMLNode node = XMLNode::CreateRoot(KM_TEXT("a"), false);
    EXPECT_EQ(node.SaveToFile(KM_TEXT("\\dev\\full"), nullptr, true), XML_ERROR_OPEN_FOR_WRITING);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full")) << "the device was replaced by a file";
}

TEST(WritingPosix, TargetKeepsItsKindAndPermissions) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("real"), "old");
    ASSERT_EQ(chmod(folder.SystemPath(KM_TEXT("real")).c_str(), 0640), 0);
    for (const auto& [to, from] : {std::pair("real", "link"), {"later", "dangling"}, {"circle", "circle"}})
        std::filesystem::create_symlink(to, folder.SystemPath() / from);
    EXPECT_EQ(StoreNew(folder, KM_TEXT("LINK")), StoreResult::Done);
    EXPECT_EQ(StoreNew(folder, KM_TEXT("dangling")), StoreResult::Done);
    EXPECT_EQ(StoreNew(folder, KM_TEXT("circle")), StoreResult::CannotOpen);
    EXPECT_EQ(State(folder),
              (Files{"circle:", "dangling:new text", "later:new text", "link:new text", "real:new text"}));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.SystemPath(KM_TEXT("link")))) << "the link was replaced";
    EXPECT_EQ(static_cast<int>(status(folder.SystemPath(KM_TEXT("real"))).permissions()), 0640);
}

// In a process of its own: the superuser, who may write everything, has to become somebody else for good.
TEST(WritingPosixDeathTest, WriteProtectedFileIsNotReplaced) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("f"), "old");
    ASSERT_EQ(chmod(folder.SystemPath().c_str(), 0777), 0);
    ASSERT_EQ(chmod(folder.SystemPath(KM_TEXT("f")).c_str(), 0444), 0);
    const auto store = [&folder] {
        if (geteuid() == 0 && setuid(65534) != 0) _exit(9);
        _exit(StoreNew(folder, KM_TEXT("f")) == StoreResult::CannotOpen ? 0 : 1);
    };
    EXPECT_EXIT(store(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(State(folder), Files{"f:old"});
}

}  // namespace

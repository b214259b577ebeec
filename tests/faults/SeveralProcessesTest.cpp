// SPDX-License-Identifier: MIT
// Two processes save, rename and delete in one folder while a third loads it: nobody ever sees half a file,
// and nothing is left behind. (Not on Windows, where it would take a program of its own to start; that a file
// which another process holds is never damaged is tested there by holding it.)
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>

#include "kmManager.h"
#include "kmProfile.h"
#include "kmProfileFile.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kDuration{2};

kmString RandomID(std::mt19937& random) {
    return kmString(1, static_cast<kmChar>(KM_TEXT('a') + random() % 6));
}

kmProfile Load(const TemporaryFolder& folder, const kmString& id) {
    kmProfile profile;
    profile.SetID(id);
    profile.Load(folder.Path());
    return profile;
}

// One change of some profile; that it may fail, because the other process was faster, is no matter.
void ChangeSomething(const TemporaryFolder& folder, std::mt19937& random) {
    kmManager& manager = kmManager::GetInstance();
    manager.Load(folder.Path());
    kmProfile profile = Load(folder, RandomID(random));
    switch (random() % 4) {
        case 0:
            static_cast<void>(profile.Save(RandomID(random), true));
            break;
        case 1:
            static_cast<void>(profile.ReName(RandomID(random)));
            break;
        case 2:
            static_cast<void>(kmSaveAsNew(profile, RandomID(random)));
            break;
        default:
            if (random() % 3 == 0) manager.DeleteProfile(RandomID(random));
    }
}

pid_t StartChanging(const TemporaryFolder& folder, unsigned seed) {
    const pid_t child = fork();
    if (child != 0) return child;
    const CapturedMessages messages;
    std::mt19937 random(seed);
    for (const auto end = Clock::now() + kDuration; Clock::now() < end;) ChangeSomething(folder, random);
    _exit(0);
}

TEST(SeveralProcesses, NobodySeesHalfAFile) {
    const TemporaryFolder folder;
    const std::string items(20000, ' ');  // large enough not to be written by chance in one piece
    for (const kmChar* name : {KM_TEXT("user\\a.pf"), KM_TEXT("user\\b.pf"), KM_TEXT("user\\c.pf")})
        folder.WriteBytes(name, "<Profiles><Main><SName>whole</SName></Main><Parameter><b Value='1" + items +
                                    "'/></Parameter></Profiles>");
    folder.WriteBytes(
        KM_TEXT("Sys.pf"),
        "<Profiles><Main><SName>whole</SName><IsSysProfile>yes</IsSysProfile></Main></Profiles>");
    const pid_t children[] = {StartChanging(folder, 1), StartChanging(folder, 2)};
    struct : kmManager {
    } manager;
    int loads = 0;
    for (const auto end = Clock::now() + kDuration; Clock::now() < end; ++loads) {
        const CapturedMessages messages;
        manager.Load(folder.Path());
        for (const kmProfileInfo& info : manager.GetProfiles()) {
            const kmProfile profile = Load(folder, info.GetID());
            // A profile may be gone since the folder was listed; one that is there is whole.
            if (profile.GetSName().empty()) continue;
            EXPECT_EQ(Utf8(profile.GetSName()), "whole") << Utf8(info.GetID());
        }
        for (const CapturedMessage& message : messages.All())
            EXPECT_EQ(message.code, XML_ERROR_FILE_NOT_FOUND) << message.path << ": " << message.text;
    }
    EXPECT_GT(loads, 3);
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << "a process that changed profiles failed";
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder.SystemPath(KM_TEXT("user"))))
        EXPECT_NE(entry.path().extension(), ".tmp") << entry.path() << " was left";
}

TEST(SmallDisk, AFullDiskKeepsEveryProfile) {
    const TemporaryFolder folder;
    folder.MakeFolder(KM_TEXT("d"));
    const std::string mounted = folder.SystemPath(KM_TEXT("d")).string();
    if (mount("tmpfs", mounted.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "this process may not mount a small file system";
    const CapturedMessages messages;
    const std::string mine = "<Profiles><Main><SName>old</SName></Main></Profiles>";
    folder.WriteBytes(KM_TEXT("d\\user\\Mine.pf"), mine);
    kmManager::GetInstance().Load(folder.Path(KM_TEXT("d")));
    kmProfile profile;
    profile.SetID(KM_TEXT("Mine"));
    EXPECT_TRUE(profile.Load(folder.Path(KM_TEXT("d"))));
    const std::string fill(100, 'x');
    for (std::ofstream all(mounted + "/fill"); all << fill << std::flush;) continue;
    EXPECT_EQ(profile.Save(KM_TEXT("Mine"), true), PROFILE_ERROR_FILE);
    EXPECT_EQ(profile.Save(KM_TEXT("New"), true), PROFILE_ERROR_FILE);
    EXPECT_EQ(profile.ReName(KM_TEXT("Renamed")), PROFILE_ERROR_FILE);
    EXPECT_EQ(ReadBytes(folder.SystemPath(KM_TEXT("d\\user\\Mine.pf"))), mine);
    std::filesystem::remove(mounted + "/fill");
    EXPECT_EQ(profile.ReName(KM_TEXT("Renamed")), PROFILE_ERROR_NONE) << "with room again";
    EXPECT_EQ(umount(mounted.c_str()), 0);
}

TEST(LargeFolder, AHundredThousandEntriesAreListedQuickly) {
    const TemporaryFolder folder;
    for (int i = 0; i < 100000; ++i) std::ofstream(folder.SystemPath() / (std::to_string(i) + ".jpg"));
    folder.WriteBytes(KM_TEXT("a.pf"), "<Profiles><Main/></Profiles>");
    const CapturedMessages messages;
    struct : kmManager {
    } manager;
    const auto begin = Clock::now();
    manager.Load(folder.Path());
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(2));
    EXPECT_EQ(manager.GetProfiles().size(), 1u);
}

}  // namespace

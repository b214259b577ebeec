// SPDX-License-Identifier: MIT
// Every operation that writes, with a fault at each of its steps on the disk in turn, and at each allocation.
// Whatever happens, every file is the old one or the new one, whole; the result is honest; the catalogue says
// what a new load would say; and the second attempt succeeds.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <new>
#include <ostream>
#include <set>

#include "kmIconParser.h"
#include "kmManager.h"
#include "kmProfile.h"
#include "kmProfileFile.h"
#include "tests/faults/FailingAllocations.h"
#include "tests/faults/MemoryFileSystem.h"
#include "tests/support/Messages.h"

namespace {

using memory::Fault;

const kmString kFolder = KM_TEXT("\\p\\");

// Profiles by the names of their files: the system's Sys, and of the user Mine and Other. Sys has an icon.
void MakeDisk(bool hasUserFolder) {
    memory::Format();
    memory::WriteFile(KM_TEXT("\\p\\pficon.con"),
                      "<items><profiles><i id='Sys' image='s' index='3'/></profiles></items>");
    memory::WriteFile(
        KM_TEXT("\\p\\Sys.pf"),
        "<Profiles><Main><Name language='Sys'/><IsSysProfile>yes</IsSysProfile></Main></Profiles>");
    if (!hasUserFolder) return;
    memory::WriteFile(KM_TEXT("\\p\\user\\userpf.con"),
                      "<items><user_pf><item id='Mine' index='1' image='m'/></user_pf></items>");
    memory::WriteFile(KM_TEXT("\\p\\user\\Mine.pf"),
                      "<Profiles><Main><Name language='Own'/></Main><Parameter><b Value='1'/></Parameter>"
                      "<Extra/></Profiles>");
    memory::WriteFile(KM_TEXT("\\p\\user\\Other.pf"), "<Profiles><Main/></Profiles>");
}

// The profile of an ID that may have changed already, as a second attempt finds it.
kmProfile LoadProfile(const kmString& id) {
    kmProfile profile;
    profile.SetID(id);
    profile.Load(kFolder);
    return profile;
}

struct Operation {
    const char* name;
    bool hasUserFolder;
    const kmChar* profile;  // that is loaded before
    const char* promised;   // the files that the result speaks of end in this
    // Whether the operation says that it is done.
    std::function<bool(kmProfile&)> run;
};

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

auto Save(const kmChar* id, bool overwrite) {
    return [=](kmProfile& profile) { return profile.Save(id, overwrite) == PROFILE_ERROR_NONE; };
}

const Operation kOperations[] = {
    {"save_as_new_profile", true, KM_TEXT("Mine"), ".pf", Save(KM_TEXT("New"), false)},
    {"save_over_another", true, KM_TEXT("Mine"), ".pf", Save(KM_TEXT("Other"), true)},
    {"save_over_another_in_other_case", true, KM_TEXT("Mine"), ".pf", Save(KM_TEXT("OTHER"), true)},
    {"save_under_own_id", true, KM_TEXT("Mine"), ".pf", Save(KM_TEXT("Mine"), false)},
    {"save_copy_of_system_profile", true, KM_TEXT("Sys"), ".pf", Save(KM_TEXT("Copy"), false)},
    {"save_first_user_profile", false, KM_TEXT("Sys"), ".pf", Save(KM_TEXT("Copy"), false)},
    {"save_without_replacing", true, KM_TEXT("Mine"), ".pf",
     [](kmProfile& profile) { return kmSaveAsNew(profile, KM_TEXT("New")) == PROFILE_ERROR_NONE; }},
    {"rename", true, KM_TEXT("Mine"), ".pf",
     [](kmProfile& profile) { return profile.ReName(KM_TEXT("Renamed")) == PROFILE_ERROR_NONE; }},
    {"copy_icon", true, KM_TEXT("Mine"), ".con",
     [](kmProfile&) { return kmIconParser::GetInstance().CopyIconFrom(KM_TEXT("Other"), KM_TEXT("Sys")); }},
    {"delete", true, KM_TEXT("Mine"), ".pf",
     [](kmProfile&) { return kmManager::GetInstance().DeleteProfile(KM_TEXT("Mine")); }},
};

using Files = std::map<std::string, std::string>;

// A file in another spelling than was asked for is found all the same, so letter case does not count here.
std::string Folded(std::string text) {
    for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    return text;
}

Files FilesNow() {
    Files files;
    for (const auto& [path, bytes] : memory::Files()) files[Folded(path)] = bytes;
    return files;
}

bool IsTemporary(const std::string& path) { return path.find("\\.km") != std::string::npos; }

// What the catalogue says, without an order.
std::set<std::string> Told(kmManager& manager) {
    std::set<std::string> told;
    for (const kmProfileInfo& info : manager.GetProfiles())
        told.insert(
            Folded("record " + Joined({info.GetID(), info.GetName()}) + (info.IsSystem() ? " system" : "")));
    for (const kmString& id : manager.GetUserGroup().GetProfileIDs())
        told.insert(Folded("user's " + Utf8(id)));
    return told;
}

std::set<std::string> ToldByNewLoad() {
    struct : kmManager {
    } manager;
    manager.Load(kFolder);
    return Told(manager);
}

class Faults : public testing::TestWithParam<Operation> {
protected:
    void SetUp() override {
        Begin();
        m_before = FilesNow();
        kmProfile profile = LoadProfile(GetParam().profile);
        ASSERT_TRUE(GetParam().run(profile)) << "without any fault";
        m_after = FilesNow();
    }

    void Begin() const {
        MakeDisk(GetParam().hasUserFolder);
        kmManager::GetInstance().Load(kFolder);
    }

    // Of all files those that the operation's result speaks of.
    static Files Promised(const Files& files) {
        Files promised;
        for (const auto& [path, bytes] : files)
            if (path.ends_with(GetParam().promised)) promised[path] = bytes;
        return promised;
    }

    // Each file is the old or the new one, and a profile is gone only where it was to go.
    void ExpectWholeFiles() const {
        const Files now = FilesNow();
        for (const auto& [path, bytes] : now) {
            if (IsTemporary(path)) continue;
            const bool isOld = m_before.count(path) != 0 && m_before.at(path) == bytes;
            const bool isNew = m_after.count(path) != 0 && m_after.at(path) == bytes;
            EXPECT_TRUE(isOld || isNew)
                << path << " holds neither the old nor the new content: " << testing::PrintToString(bytes);
        }
        for (const auto& [path, bytes] : m_before) {
            if (now.count(path) != 0) continue;
            EXPECT_EQ(m_after.count(path), 0u) << path << " is gone";
            for (const auto& [newPath, newBytes] : m_after)
                EXPECT_TRUE(m_before.count(newPath) != 0 || now.count(newPath) != 0)
                    << path << " is gone before " << newPath << " is there";
        }
    }

    void ExpectNoTemporaryFiles() const {
        for (const auto& [path, bytes] : FilesNow()) EXPECT_FALSE(IsTemporary(path)) << path << " is left";
    }

    void ExpectSecondAttemptSucceeds(kmProfile& profile) const {
        memory::Plan(0, Fault::Fail);
        const bool wasDone = Promised(FilesNow()) == Promised(m_after);
        EXPECT_TRUE(GetParam().run(profile) || wasDone) << "the second attempt fails too";
        EXPECT_EQ(Promised(FilesNow()), Promised(m_after)) << "after the second attempt";
    }

    // With one operation of the disk failing. False when there were not that many.
    bool RunWithFault(std::size_t operation, Fault fault) {
        Begin();
        kmProfile profile = LoadProfile(GetParam().profile);
        memory::Plan(operation, fault);
        const bool isDone = GetParam().run(profile);
        const std::string hit = memory::HitOperation();
        memory::Plan(0, Fault::Fail);
        if (hit.empty()) return false;
        SCOPED_TRACE("operation " + std::to_string(operation) + ", " + hit + ", failed");
        ExpectWholeFiles();
        // When a removal fails, there is nothing that could be done about it before the next call.
        if (hit != "Remove") ExpectNoTemporaryFiles();
        EXPECT_EQ(Promised(FilesNow()), Promised(isDone ? m_after : m_before)) << "said " << isDone;
        // What was stored but could not be read back at once is not in the catalogue until the next load.
        const bool wasReadBack = !isDone || (hit != "OpenFile" && hit != "Read");
        if (wasReadBack) {
            EXPECT_EQ(Told(kmManager::GetInstance()), ToldByNewLoad());
        }
        if (!isDone) ExpectSecondAttemptSucceeds(profile);
        return true;
    }

    // With the process stopped before one operation of the disk.
    bool RunAndStop(std::size_t operation) {
        Begin();
        kmProfile profile = LoadProfile(GetParam().profile);
        memory::Plan(operation, Fault::Stop);
        try {
            GetParam().run(profile);
        } catch (const memory::ProcessStopped&) {
            // That it ended is asked below, since a destructor cannot throw it.
        }
        const std::string hit = memory::HitOperation();
        memory::Restart();
        if (hit.empty()) return false;
        SCOPED_TRACE("stopped at operation " + std::to_string(operation) + ", " + hit);
        ExpectWholeFiles();
        kmManager::GetInstance().Load(kFolder);
        kmProfile next = LoadProfile(GetParam().profile);
        const bool hasBoth = Promised(FilesNow()).size() > Promised(m_after).size();
        // A rename that was stopped between its two names leaves both, and the new one is then taken.
        if (hasBoth || Promised(FilesNow()) == Promised(m_after)) return true;
        EXPECT_TRUE(GetParam().run(next)) << "cannot be done any more";
        EXPECT_EQ(Promised(FilesNow()), Promised(m_after)) << "after the second attempt";
        return true;
    }

    bool RunWithoutMemory(std::size_t allocation) {
        Begin();
        kmProfile profile = LoadProfile(GetParam().profile);
        bool hasFailed = false;
        PlanAllocationFailure(allocation);
        try {
            GetParam().run(profile);
        } catch (const std::bad_alloc&) {
            hasFailed = true;
        }
        PlanAllocationFailure(0);
        if (!hasFailed) return false;
        SCOPED_TRACE("allocation " + std::to_string(allocation) + " failed");
        ExpectWholeFiles();
        ExpectNoTemporaryFiles();
        kmManager::GetInstance().Load(kFolder);
        if (Promised(FilesNow()) == Promised(m_before)) ExpectSecondAttemptSucceeds(profile);
        return true;
    }

    CapturedMessages m_messages;
    Files m_before;
    Files m_after;
};

TEST_P(Faults, FailureAtEveryStepOfTheDisk) {
    for (const Fault fault : {Fault::Fail, Fault::Short}) {
        std::size_t operation = 1;
        while (!HasFailure() && RunWithFault(operation, fault)) ++operation;
        EXPECT_GT(operation, 5u) << "nothing was tested";
    }
}

TEST_P(Faults, StopAtEveryStepOfTheDisk) {
    std::size_t operation = 1;
    while (!HasFailure() && RunAndStop(operation)) ++operation;
    EXPECT_GT(operation, 5u) << "nothing was tested";
}

TEST_P(Faults, FailureOfEveryAllocation) {
    std::size_t allocation = 1;
    while (!HasFailure() && RunWithoutMemory(allocation)) ++allocation;
    EXPECT_GT(allocation, 5u) << "nothing was tested";
}

INSTANTIATE_TEST_SUITE_P(Operations, Faults, testing::ValuesIn(kOperations),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace

// SPDX-License-Identifier: MIT
// A folder with profiles that a test saves and renames.
#pragma once

#include <gtest/gtest.h>

#include <map>

#include "kmManager.h"
#include "kmProfile.h"
#include "tests/support/Messages.h"
#include "tests/support/ProfilesFolder.h"
#include "tests/support/TreeDump.h"

// The catalogue holds the system profile Sys, shown as "Shown", and the user profiles Mine, with an icon, and
// Other.
struct Saving : testing::Test {
    Saving() {
        folder.WriteBytes(KM_TEXT("pficon.con"),
                          "<items><profiles><i id='Mine' image='m' index='3'/></profiles></items>");
        folder.AddProfile("Sys",
                          "<Profiles><Main><Name language='^Shown'/><Desc language='d'/>"
                          "<IsSysProfile>yes</IsSysProfile></Main></Profiles>");
        folder.AddProfile("user\\Mine",
                          "<Profiles x='1'><!--c--><Main><Name language='Own'/></Main><Extra/></Profiles>");
        folder.AddProfile("user\\Other", UserProfile());
        manager.Load(folder.Path());
    }
    kmProfile Load(const char* id) const {
        kmProfile profile;
        profile.SetID(Text(id));
        EXPECT_TRUE(profile.Load(folder.Path())) << id;
        return profile;
    }
    std::string Catalogue() const { return Records(manager.GetProfiles()); }
    std::string Saved(const char* id) const {
        const kmString path = folder.Path(KM_TEXT("user\\") + Text(id) + KM_TEXT(".pf"));
        return Dump(XMLNode::OpenDocument(path.c_str(), KM_TEXT("Profiles")));
    }
    // The user's files by name.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(folder.SystemPath(KM_TEXT("user"))))
            files[entry.path().filename().string()] = is_directory(entry) ? "" : ReadText(entry.path());
        return files;
    }

    const ProfilesFolder folder;
    const CapturedMessages messages;
    kmManager& manager = kmManager::GetInstance();
};

// SPDX-License-Identifier: MIT
#include "Folders.h"

#include <algorithm>

#include "Environment.h"
#include "Failure.h"
#include "kmFileFault.h"
#include "kmFolders.h"
#include "kmProfileID.h"
#include "kmText.h"

namespace {

kmString AsFolder(const std::string& path) {
    kmString folder = kmPathFromUtf8(path);
    if (!folder.empty() && folder.back() != KM_TEXT('\\')) folder += KM_TEXT('\\');
    return folder;
}

// The folder's own folder.
kmString ParentOf(const kmString& folder) {
    return folder.substr(0, folder.rfind(KM_TEXT('\\'), folder.size() - 2) + 1);
}

// False when there is no such folder.
bool AppendIDs(const kmString& folder, std::vector<kmString>& ids) {
    std::vector<kmString> found;
    const bool isListed = kmListProfileIDs(folder, found);
    if (!isListed && kmLastFileFault() != FILE_FAULT_NOT_FOUND)
        throw Failure(kmUtf8FromPath(folder) +
                      ": the folder cannot be read: " + kmUtf8FromText(kmFileFaultText(kmLastFileFault())));
    ids.insert(ids.end(), found.begin(), found.end());
    return isListed;
}

}  // namespace

ProfilesFolder FindProfilesFolder(const std::string& argument) {
    if (!argument.empty()) return {AsFolder(argument), FolderSource::Argument};
    const std::string variable = EnvironmentVariable(kFolderVariable);
    if (!variable.empty()) return {AsFolder(variable), FolderSource::Environment};
    const kmString besideProgram = kmDefaultProfilesFolder();
    const kmString users = UsersProfilesFolder();
    if (users.empty() || FolderExists(besideProgram)) return {besideProgram, FolderSource::Program};
    return {users, FolderSource::User};
}

const char* WhyThatFolder(FolderSource source) {
    switch (source) {
        case FolderSource::Argument:
            return "given with --folder";
        case FolderSource::Environment:
            return "named by KMPROFILE_FOLDER";
        case FolderSource::Program:
            return "beside the program";
        case FolderSource::User:
            break;
    }
    return "the user's own";
}

kmString UsersProfilesFolder() {
    const std::string data = UserDataFolder();
    return data.empty() ? kmString() : AsFolder(data) + KM_TEXT("kmprofile\\Profiles\\");
}

kmString InstalledProfilesFolder() {
    const kmString besideProgram = kmDefaultProfilesFolder();
    if (FolderExists(besideProgram)) return besideProgram;
    return ParentOf(besideProgram) + AsFolder(KM_INSTALLED_PROFILES);
}

void RequireFolder(const kmString& folder) {
    std::vector<kmString> ids;
    if (!AppendIDs(folder, ids))
        throw Failure(kmUtf8FromPath(folder) + ": no such folder (see kmprofile where and kmprofile init)");
}

std::vector<kmString> ListIDs(const kmString& folder) {
    RequireFolder(folder);
    std::vector<kmString> ids;
    AppendIDs(folder, ids);
    AppendIDs(kmUserFolder(folder), ids);
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

bool FolderExists(const kmString& folder) {
    std::vector<kmString> ids;
    return kmListProfileIDs(folder, ids) || kmLastFileFault() != FILE_FAULT_NOT_FOUND;
}

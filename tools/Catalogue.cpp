// SPDX-License-Identifier: MIT
#include "Catalogue.h"

#include <algorithm>
#include <vector>

#include "Failure.h"
#include "Paths.h"
#include "kmFolders.h"

namespace {

// The library takes a folder that it cannot read for an empty one.
void RequireReadable(const kmString& folder) {
    if (!IsReadableFolder(folder)) throw Failure(kmUtf8FromPath(folder) + ": the folder cannot be read");
}

}  // namespace

kmManager& LoadCatalogue(const kmString& folder) {
    if (!PathExists(folder)) throw Failure(kmUtf8FromPath(folder) + ": no such folder");
    RequireReadable(folder);
    const kmString userFolder = kmUserFolder(folder);
    if (PathExists(userFolder)) RequireReadable(userFolder);
    kmManager& catalogue = kmManager::GetInstance();
    catalogue.Load(folder);
    return catalogue;
}

bool IsProfile(kmManager& catalogue, const kmString& id) {
    const std::vector<kmProfileInfo>& profiles = catalogue.GetProfiles();
    return std::any_of(profiles.begin(), profiles.end(),
                       [&id](const kmProfileInfo& info) { return info.GetID() == id; });
}

kmString KnownID(kmManager& catalogue, const kmString& id) {
    if (IsProfile(catalogue, id)) return id;
    const kmProfileInfo* info = catalogue.GetProfileInfo(id.c_str());
    return info == nullptr ? id : info->GetID();
}

const char* OwnerName(bool isSystem) { return isSystem ? "system" : "user"; }

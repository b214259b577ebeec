// SPDX-License-Identifier: MIT
#include "Catalogue.h"

#include <algorithm>
#include <vector>

#include "Console.h"
#include "Folders.h"
#include "Printable.h"
#include "kmIconParser.h"

kmManager& LoadCatalogue(const kmString& folder) {
    ListIDs(folder);  // the library takes a folder that it cannot read for an empty one
    kmManager& catalogue = kmManager::GetInstance();
    catalogue.Load(folder);
    return catalogue;
}

bool IsUsers(kmManager& catalogue, const kmString& id) {
    const std::vector<kmProfileInfo>& profiles = catalogue.GetProfiles();
    return std::any_of(profiles.begin(), profiles.end(),
                       [&id](const kmProfileInfo& info) { return !info.IsSystem() && info.GetID() == id; });
}

const char* OwnerName(bool isSystem) { return isSystem ? "system" : "user"; }

ProfileIcon IconOf(kmManager& catalogue, const kmString& id) {
    const kmIconParser& icons = *catalogue.GetIconParser();
    return {icons.GetImageFileName(id.c_str(), false), icons.GetIconIndex(id.c_str(), false)};
}

void WarnOfLostIcon(kmManager& catalogue, const kmString& id, const ProfileIcon& wanted) {
    if (IconOf(catalogue, id) == wanted) return;
    PrintWarning(QuotedID(id) + " did not get its icon: the user's file of icons cannot be read or written");
}

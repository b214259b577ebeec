// SPDX-License-Identifier: MIT
#include "Catalogue.h"

#include <algorithm>
#include <string>
#include <vector>

#include "Console.h"
#include "Findings.h"
#include "Folders.h"
#include "Printable.h"
#include "kmFileFault.h"
#include "kmFolders.h"
#include "kmIconParser.h"

namespace {

// Of the files of icons, as far as it keeps them from being read; empty when there is none, or no such file.
std::string FaultOfIcons(const kmString& folder) {
    for (const kmString& path :
         {folder + KM_TEXT("pficon.con"), kmUserFolder(folder) + KM_TEXT("userpf.con")}) {
        for (const kmLintFinding& finding : kmLintFile(path)) {
            const bool isUnreadable =
                finding.code == LINT_UNREADABLE_FILE && kmLastFileFault() != FILE_FAULT_NOT_FOUND;
            if (isUnreadable || finding.code == LINT_XML_ERROR) return Describe(finding);
        }
    }
    return {};
}

}  // namespace

kmManager& LoadCatalogue(const kmString& folder) {
    RequireFolder(folder);  // the library takes a folder that it cannot read for an empty one
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

void WarnOfLostIcon(kmManager& catalogue, const kmString& folder, const kmString& id,
                    const ProfileIcon& wanted) {
    const std::string fault = FaultOfIcons(folder);
    if (fault.empty() && IconOf(catalogue, id) == wanted) return;
    PrintWarning(QuotedID(id) + " did not get its icon: " +
                 (fault.empty() ? "the user's file of icons cannot be written" : fault));
}

// SPDX-License-Identifier: MIT
// Hears of every change to the catalogue, and of files that cannot be read.
//   notifications [FOLDER]    writes into FOLDER/user
#include <iostream>

#include "kmFolders.h"
#include "kmManager.h"
#include "kmMessages.h"
#include "kmProfile.h"
#include "kmText.h"

namespace {

// The texts live as long as the call. What is behind the pointer lives for the rest of the process, since a
// callback stays registered.
void OnChange(PROFILE_CHANGED_TYPE type, const kmChar* first, const kmChar* second, void* userData) {
    int& changes = *static_cast<int*>(userData);
    std::cout << ++changes << ": " << kmUtf8FromText(first);
    if (type == PROFILE_SAVED) std::cout << " was saved\n";
    if (type == PROFILE_RENAMED) std::cout << " is the new ID of " << kmUtf8FromText(second) << '\n';
    if (type == PROFILE_RECENT_ADDED) std::cout << " was used\n";
    if (type == PROFILE_DELETED) std::cout << " was deleted\n";
}

// Without a handler such messages go to standard output.
void OnMessage(const kmMessage& message, void*) {
    std::cout << kmUtf8FromText(message.path) << ": " << kmUtf8FromText(message.text) << '\n';
}

int changeCount = 0;

}  // namespace

int main(int argc, char* argv[]) {
    const kmString folder = argc > 1 ? kmPathFromUtf8(argv[1]) : kmDefaultProfilesFolder();
    kmSetMessageHandler(OnMessage, nullptr);
    kmManager& catalogue = kmManager::GetInstance();
    catalogue.RegisterChangedCallback(OnChange, &changeCount);
    catalogue.Load(folder);

    kmProfile profile;
    profile.SetID(KM_TEXT("Nobody's"));
    if (profile.Load(folder)) return 1;  // looked for in the folder, then among the user's

    profile.SetID(KM_TEXT("PSP H264 480x272"));
    if (!profile.Load(folder)) return 1;
    if (profile.Save(KM_TEXT("My PSP"), /*overwrite=*/false) != PROFILE_ERROR_NONE) return 1;

    kmProfile copy;
    copy.SetID(KM_TEXT("My PSP"));
    if (!copy.Load(kmUserFolder(folder))) return 1;
    if (copy.ReName(KM_TEXT("Train")) != PROFILE_ERROR_NONE) return 1;

    // The user took it for a conversion.
    catalogue.AddRecentProfile(copy.GetID().c_str());

    // The catalogue looks for the file once more, and says so, before it tells of the deletion.
    return catalogue.DeleteProfile(copy.GetID()) ? 0 : 1;
}

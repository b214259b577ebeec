// SPDX-License-Identifier: MIT
// Changes a value that a user has typed, and saves the result as a profile of the user's own.
//   edit_and_save [FOLDER]    writes into FOLDER/user
#include <iostream>

#include "kmFolders.h"
#include "kmManager.h"
#include "kmProfile.h"
#include "kmProfileFile.h"
#include "kmText.h"

namespace {

// Every typed value is checked before it is stored: the profile itself takes any text.
bool Enter(kmProfile& profile, const kmChar* id, const kmString& typed) {
    kmString message;
    if (!kmProfileItem::Check(message, id, typed.c_str())) {
        std::cout << kmUtf8FromText(typed) << ": " << kmUtf8FromText(message) << '\n';
        return false;
    }
    return profile.SetItemValue(id, typed.c_str());
}

}  // namespace

int main(int argc, char* argv[]) {
    const kmString folder = argc > 1 ? kmPathFromUtf8(argv[1]) : kmDefaultProfilesFolder();

    // Saving asks the catalogue which IDs are taken, so that it has to be loaded.
    kmManager::GetInstance().Load(folder);

    kmProfile profile;
    profile.SetID(KM_TEXT("PSP H264 480x272"));
    if (!profile.Load(folder)) return 1;

    Enter(profile, KM_TEXT("s"), KM_TEXT("481x272"));  // refused: nothing changes
    if (!Enter(profile, KM_TEXT("s"), KM_TEXT("320x240")) || !Enter(profile, KM_TEXT("b"), KM_TEXT("512")))
        return 1;

    // The system's profiles are never written; a copy becomes the user's.
    if (profile.Save(profile.GetID(), /*overwrite=*/true) == PROFILE_ERROR_SYSTEM)
        std::cout << "a system profile: saving a copy\n";

    const kmString newID = KM_TEXT("My PSP");
    const PROFILE_EERROR error = kmSaveAsNew(profile, newID);  // never replaces a file
    if (error != PROFILE_ERROR_NONE) {
        std::cerr << "not saved, for reason " << error << '\n';
        return 1;
    }

    // The object did not become the copy, which is loaded like any other profile. Load(folder) finds it too,
    // after a message that it is not in the folder itself.
    kmProfile copy;
    copy.SetID(newID);
    if (!copy.Load(kmUserFolder(folder))) return 1;
    std::cout << kmUtf8FromText(copy.GetID()) << ": " << kmUtf8FromText(copy.GetItemValue(KM_TEXT("s")))
              << " at " << kmUtf8FromText(copy.GetItemValue(KM_TEXT("b"))) << " kbit/s\n";
}

// SPDX-License-Identifier: MIT
// Shows two profiles as one, changes both, and saves them.
//   batch_edit [FOLDER]    writes into FOLDER/user
#include <iostream>
#include <vector>

#include "kmFolders.h"
#include "kmManager.h"
#include "kmProfileList.h"
#include "kmText.h"

int main(int argc, char* argv[]) {
    const kmString folder = argc > 1 ? kmPathFromUtf8(argv[1]) : kmDefaultProfilesFolder();
    kmManager::GetInstance().Load(folder);

    kmProfile clips, phone;
    clips.SetID(KM_TEXT("Holiday Clips"));
    phone.SetID(KM_TEXT("Phone 240p"));
    const kmString userFolder = kmUserFolder(folder);
    if (!clips.Load(userFolder) || !phone.Load(userFolder)) return 1;

    // The list borrows the profiles; the first one decides order and spelling.
    const std::vector<kmProfile*> both = {&clips, &phone};

    // What both have in the simple view, with the choices that both offer. A position in these is what the
    // list takes and gives; -1 stands for profiles that differ.
    for (const kmProfileItem& item : kmProfileList::GetSimpleItems(both)) {
        const int index = kmProfileList::GetSimpleItemValue(both, item.GetID().c_str());
        std::cout << kmUtf8FromText(item.GetSimpleName()) << (index < 0 ? " (differs):" : ":");
        for (const kmString& choice : item.GetSimpleCandidatesDisplay())
            std::cout << ' ' << kmUtf8FromText(choice);
        std::cout << '\n';
    }

    // One choice, and what it means for each of them.
    kmProfileList::SetSimpleItemValue(both, KM_TEXT("b"), 0);
    for (const kmProfile* profile : both) {
        std::cout << kmUtf8FromText(profile->GetID())
                  << ": b=" << kmUtf8FromText(profile->GetItemValue(KM_TEXT("b"))) << '\n';
    }

    // One value for all, checked first; an option that one of them lacks is refused too.
    kmString message;
    if (!kmProfileList::IsValidValue(message, both, KM_TEXT("t"), KM_TEXT("5 minutes")))
        std::cout << kmUtf8FromText(message) << '\n';
    if (!kmProfileList::IsValidValue(message, both, KM_TEXT("t"), KM_TEXT("00:05:00"))) return 1;
    kmProfileList::SetItemValue(both, KM_TEXT("t"), KM_TEXT("00:05:00"));

    for (kmProfile* profile : both) {
        if (profile->Save(profile->GetID(), /*overwrite=*/true) != PROFILE_ERROR_NONE) return 1;
        std::cout << "saved " << kmUtf8FromText(profile->GetID()) << '\n';
    }
}

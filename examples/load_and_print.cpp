// SPDX-License-Identifier: MIT
// Lists a folder of profiles, then loads one and prints what an application would want to know of it.
//   load_and_print [FOLDER]
#include <cstdint>
#include <iostream>
#include <vector>

#include "kmFolders.h"
#include "kmManager.h"
#include "kmProfile.h"
#include "kmText.h"

int main(int argc, char* argv[]) {
    const kmString folder = argc > 1 ? kmPathFromUtf8(argv[1]) : kmDefaultProfilesFolder();

    // The catalogue is one object a process. It knows which profiles there are, not what they hold.
    kmManager& catalogue = kmManager::GetInstance();
    catalogue.Load(folder);
    for (const kmGroup& group : catalogue.GetSystemGroups())
        std::cout << kmUtf8FromText(group.GetName()) << ": " << group.GetProfileIDs().size() << '\n';

    // Groups hold IDs; the record of an ID has the name for the user.
    std::cout << "\nThe user's own:\n";
    for (const kmString& id : catalogue.GetUserGroup().GetProfileIDs()) {
        const kmProfileInfo* info = catalogue.GetProfileInfo(id.c_str());
        if (info == nullptr) continue;
        std::cout << "  " << kmUtf8FromText(info->GetName()) << " (" << kmUtf8FromText(info->GetDesc())
                  << ")\n";
    }

    // A profile finds its file by its ID, the file's name without ".pf".
    kmProfile profile;
    profile.SetID(KM_TEXT("PSP H264 480x272"));
    if (!profile.Load(folder)) {
        std::cerr << "there is no such profile\n";
        return 1;
    }
    std::cout << '\n'
              << kmUtf8FromText(profile.GetID()) << ", ." << kmUtf8FromText(profile.GetExtName()) << ":\n";

    // Some settings are also meant for users who know nothing of codecs.
    for (const kmProfileItem& item : profile.GetSimpleItems()) {
        std::cout << "  " << kmUtf8FromText(item.GetSimpleName()) << ": " << kmUtf8FromText(item.GetValue())
                  << '\n';
    }

    // What the encoder is to be told. The call may correct a bit rate or a sample rate in the profile.
    std::cout << "  options: " << kmUtf8FromText(profile.GetAvcString(/*withAudio=*/true)) << '\n';

    const std::int64_t tenMinutes = 600'000'000;  // microseconds
    const std::int64_t bytes = profile.CalcOutputFileSize(tenMinutes, /*withAudio=*/true, /*sourceWidth=*/0,
                                                          /*sourceHeight=*/0);
    std::cout << "  ten minutes: about " << bytes << " bytes\n";
}

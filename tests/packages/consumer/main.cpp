// SPDX-License-Identifier: MIT
// consumer PROFILES ID: prints the encoder's options of a profile.
#include <iostream>

#include "kmFolders.h"
#include "kmProfile.h"
#include "kmText.h"

int main(int argc, char* argv[]) {
    if (argc != 3) return 2;
    kmProfile profile;
    profile.SetID(kmTextFromUtf8(argv[2]));
    if (!profile.Load(kmPathFromUtf8(argv[1]))) return 1;
    std::cout << kmUtf8FromText(profile.GetAvcString(/*withAudio=*/true)) << '\n';
}

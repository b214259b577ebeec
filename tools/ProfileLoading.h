// Loading the profile that a command was asked for.
#pragma once

#include <string>

#include "kmProfile.h"

// The subfolder of the user's profiles.
inline constexpr const char* kUserFolder = "user/";

// The profile `id` of `folder`, both UTF-8 in the system's own form; an empty `folder` means the default one.
// Throws a Failure that names the file and its fault.
kmProfile LoadProfile(const std::string& folder, const std::string& id);

struct LoadedProfile {
    kmProfile profile;
    std::string folder;  // that of its file, with a separator at the end
};

// The same, for commands that write.
LoadedProfile LoadProfileFile(const std::string& folder, const std::string& id);

// The folder with a separator at the end, the default one for an empty `folder`.
std::string ProfilesFolder(const std::string& folder);

// Whether there is anything of that UTF-8 path.
bool FileExists(const std::string& path);

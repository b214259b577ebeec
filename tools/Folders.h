// SPDX-License-Identifier: MIT
// Where profiles are. Folders and paths are the library's: "\" separates, and folders end with it.
#pragma once

#include <string>
#include <vector>

#include "kmTypes.h"

// What decided on the profiles folder.
enum class FolderSource { Argument, Environment, Program, User };

struct ProfilesFolder {
    kmString path;
    FolderSource source = FolderSource::Program;
};

// The environment variable that names a profiles folder.
inline constexpr const char* kFolderVariable = "KMPROFILE_FOLDER";

// The profiles folder: that of the command line, of the environment, beside the program where there is one,
// or the user's. The path is absolute, or as it was given.
ProfilesFolder FindProfilesFolder(const std::string& argument);

// Why it is that one, for people.
const char* WhyThatFolder(FolderSource source);

// The user's own, and the one that was installed with the program; empty where the machine has no such place.
kmString UsersProfilesFolder();
kmString InstalledProfilesFolder();

// Throws a Failure that tells why a profiles folder cannot be listed.
void RequireFolder(const kmString& folder);

// The IDs of the profiles in the folder and in its "user" subfolder, by the names of their files alone, each
// once, sorted. Throws a Failure that tells why one of the two cannot be listed.
std::vector<kmString> ListIDs(const kmString& folder);

// Whether there is such a folder, listable or not.
bool FolderExists(const kmString& folder);

// SPDX-License-Identifier: MIT
// The folders of profiles, and paths between the library and the system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kmExport.h"
#include "kmFileFault.h"
#include "kmTypes.h"

// The folder that an operation means when it is given none: "Profiles" beside the running executable. With a
// final "\".
KM_EXPORT kmString kmDefaultProfilesFolder();

// The subfolder of the user's profiles in a profiles folder, with a final "\"; empty for an empty folder. "/"
// counts as "\".
KM_EXPORT kmString kmUserFolder(const kmString& profilesFolder);

// A path or a file name that the system gives (a program's argument, a listing), as UTF-8, becomes one that
// the library takes, and back. Every name of a file system comes back as it was: bytes that are no UTF-8 are
// kept as lone surrogates, and so is a "\" where names may hold one, since the library separates folders by
// it. Library paths with "\" become the system's own form, with its separator.
KM_EXPORT kmString kmPathFromUtf8(std::string_view path);
KM_EXPORT std::string kmUtf8FromPath(const kmString& path);

// A file or folder that could not be read or made, and why.
struct kmFailedFile {
    kmString path;                       // of the file or folder that could not be read or made
    FILE_FAULT fault = FILE_FAULT_NONE;  // the machine's reason
};

// What became of the files that were to be copied; their paths.
struct kmCopiedFiles {
    std::vector<kmString> copied;      // as they are called in the new place
    std::vector<kmString> kept;        // there was something of that name in the new place, which stays
    std::vector<kmFailedFile> failed;  // nothing of them stands in the new place
};

// Copies a profiles folder with its "user" subfolder: profiles, icons and every other file that is no folder
// and does not begin with ".". Makes the new folder, and those that lead to it. Never replaces anything, and
// leaves no part of a file behind. A folder that is not there has no files; one that cannot be listed or made
// fails as such.
KM_EXPORT kmCopiedFiles kmCopyProfilesFolder(const kmString& from, const kmString& to);

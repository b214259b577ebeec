// SPDX-License-Identifier: MIT
// A profile and the file that it came from.
#pragma once

#include "kmExport.h"
#include "kmProfile.h"
#include "kmProfileHeader.h"

// The folder in which the profile was looked for last, with a final "\": that of its file after a load that
// succeeded. Empty for a profile that was never loaded.
KM_EXPORT kmString kmFolderOf(const kmProfile& profile);

// The profile's header, with name and description as users see them: those of a system profile without
// leading "^". The header of a loaded profile is that of its file; a save keeps it.
KM_EXPORT kmProfileHeader kmHeaderOf(const kmProfile& profile);

// Makes `file` what the profile's file says now: that of the profile's ID in its folder, and in no other one.
// The two may be one object. False, with `file` as it was, when the profile was never loaded or the file is
// gone or cannot be read; messages as for a load.
KM_EXPORT bool kmReadFileOf(const kmProfile& profile, kmProfile& file);

// Saves the profile under an ID that nobody has: like kmProfile::Save without overwriting, but where that
// asks the catalogue alone, here the file system decides, in the step that gives the file its name. So
// nothing is ever replaced, not even a file that is no profile or that another process has just made:
// PROFILE_ERROR_EXIST then, as for the profile's own ID.
KM_EXPORT PROFILE_EERROR kmSaveAsNew(kmProfile& profile, const kmString& newID);

// Deletes the file of that ID in `folder`, for good, whether it can be read or not: for files that no
// catalogue has. Icons and catalogue stay as they are; kmManager::DeleteProfile is for everything else.
// False, with the file still there, when there is none, it is no regular file, or it may not be removed;
// kmLastFileFault tells why. An ID is never a path.
KM_EXPORT bool kmDeleteProfileFile(const kmString& folder, const kmString& id);

// Whether there is anything called like the file of that ID in `folder`, in any letter case, a profile or
// not. True also when that cannot be told.
KM_EXPORT bool kmProfileFileExists(const kmString& folder, const kmString& id);

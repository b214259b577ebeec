// Why the library refused to write a profile, in words.
#pragma once

#include <string>

#include "kmTypes.h"

// A profile and the ID that it was to get. All UTF-8.
struct WriteAttempt {
    std::string id;
    std::string newID;
    std::string folder;          // where the file was to be written, with a separator at the end
    bool isSystem = false;       // of the profile itself
    bool targetExisted = false;  // there was a file of the new ID

    std::string Path() const { return folder + newID + ".pf"; }
};

// Why the ID cannot be a file name; empty when it can.
std::string WhyNoFileName(const std::string& id);

// Why kmProfile::Save or kmProfile::ReName refused.
std::string WhyNotSaved(PROFILE_EERROR error, const WriteAttempt& attempt);
std::string WhyNotRenamed(PROFILE_EERROR error, const WriteAttempt& attempt);

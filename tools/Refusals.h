// SPDX-License-Identifier: MIT
// Why the library refused to write a profile, in words.
#pragma once

#include <string>

#include "kmTypes.h"

// A profile and the ID that it was to get.
struct WriteAttempt {
    kmString id;
    kmString newID;
    kmString folder;             // where the file was to be written, with a separator at the end
    bool isSystem = false;       // of the profile itself
    bool targetExisted = false;  // there was a file of the new ID
};

// Why kmProfile::Save, kmSaveAsNew or kmProfile::ReName refused.
std::string WhyNotSaved(PROFILE_EERROR error, const WriteAttempt& attempt);
std::string WhyNotRenamed(PROFILE_EERROR error, const WriteAttempt& attempt);

// What saving would answer, as far as that can be told without doing it.
PROFILE_EERROR ForeseeSave(const WriteAttempt& attempt, bool mayReplace);

// SPDX-License-Identifier: MIT
// Settings as the command line gives them: name=value.
#pragma once

#include <string>

#include "kmProfile.h"

struct Setting {
    kmString name;
    kmString value;
};

// All three throw a Failure that begins with `where`, the name of the option that took the text, if any.

Setting ReadSetting(const std::string& text, const std::string& where = {});

// Refuses a setting that the profile lacks or a value that is not acceptable.
void RequireAcceptable(const kmProfile& profile, const Setting& setting, const std::string& where = {});

// Reads it, and sets it in the profile if it is acceptable.
void ApplySetting(kmProfile& profile, const std::string& text, const std::string& where = {});

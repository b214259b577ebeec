// SPDX-License-Identifier: MIT
// Settings as the command line gives them: name=value.
#pragma once

#include <string>

#include "kmProfile.h"

struct Setting {
    kmString name;
    kmString value;
};

// All of these throw a Failure that begins with `where`, the name of the option that took the text, if any.

Setting ReadSetting(const std::string& text, const std::string& where = {});

// What the setting means in that profile: a name in any letter case becomes the profile's own, and a text
// that a view shows for a choice becomes the choice's value. Refuses a setting that the profile
// lacks and a value that is not acceptable.
Setting Interpret(const kmProfile& profile, const Setting& setting, const std::string& where = {});

// Reads it, interprets it and sets it in the profile.
Setting ApplySetting(kmProfile& profile, const std::string& text, const std::string& where = {});

// Refuses a value that line-oriented programs would take for several.
void RequireOneLine(const Setting& setting);

// Prints what the setting changes in the profile, if anything.
void PrintChange(const kmProfile& profile, const Setting& setting);

// Warns of a value that is not among the choices, and of a setting that editors show read-only.
void WarnAbout(const kmProfile& profile, const Setting& setting);

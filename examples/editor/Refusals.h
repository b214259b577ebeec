// SPDX-License-Identifier: MIT
// Why the library refused to write a profile, in words for the user.
#pragma once

#include <QString>

#include "kmProfile.h"

// What saving the profile as `newID`, or renaming it so, gave. Empty for PROFILE_ERROR_NONE.
QString WhyRefused(PROFILE_EERROR error, const kmProfile& profile, const kmString& newID);

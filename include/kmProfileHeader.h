// SPDX-License-Identifier: MIT
// What a profile's file says of the profile as a whole.
#pragma once

#include "kmTypes.h"

// The fields of the header; a plain structure that owns its texts.
struct kmProfileHeader {
    kmString name;          // display name; of system profiles with the "^" that the display leaves out
    kmString desc;          // description, likewise
    kmString sName;         // short name
    kmString format;        // output container format
    kmString extName;       // output file extension
    bool isSystem = false;  // one of the system's profiles, which are never overwritten
};

// SPDX-License-Identifier: MIT
// What the reading of the icon files says to those who want to know.
#pragma once

#include "kmTypes.h"
#include "xml/Messages.h"

// One of the two files.
struct IconFileNotes {
    kmString path;
    bool wasTried = false;  // false: not read, because the other file could not be
    XMLParseResult result;
    int entriesLeftOut = 0;  // those without an ID or an image
};

struct IconNotes {
    bool isSilent = false;  // set by the caller: no messages about the files
    IconFileNotes index;
    IconFileNotes user;
};

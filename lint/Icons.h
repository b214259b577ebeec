// SPDX-License-Identifier: MIT
// The files of icons, and whether they fit the profiles and groups.
#pragma once

#include <map>

#include "lint/Elements.h"
#include "lint/Findings.h"
#include "lint/SourceFile.h"

// Where the IDs of one file of icons stand, the first of each.
struct IconEntries {
    bool areRead = false;  // false: the file cannot be read
    std::map<kmString, TextPlace> profiles;
    std::map<kmString, TextPlace> groups;
};

// Reads the file and says what is wrong in it by itself. `isUserFile`: it has the form of "userpf.con".
IconEntries LintIconFile(const kmString& path, bool isUserFile, Findings& findings);

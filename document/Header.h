// SPDX-License-Identifier: MIT
// The header of a profile file, read and written by one table.
#pragma once

#include <vector>

#include "kmProfileHeader.h"
#include "text/Ascii.h"
#include "xml/XMLNode.h"

// Reads the fields that "Main" has; the others stay as they are, but without its mark a profile is no system
// profile.
void ReadHeader(const XMLNode& main, kmProfileHeader& header);

// Puts a new display name into the "Main" of a file; nothing happens where it has none.
void SetHeaderName(const XMLNode& main, const kmString& name);

// Writes them into a new "Main". The mark of a system profile is never written.
void WriteHeader(const kmProfileHeader& header, XMLNode main);

// One field as a file has it; a mark that is not set is an empty text.
struct HeaderField {
    kmStringView name;  // of the element
    kmString text;
    bool isKept;  // saving takes it from here: not "Name", which becomes the ID, nor the mark
};

// In the order in which files have them.
std::vector<HeaderField> HeaderFieldsOf(const kmProfileHeader& header);

// Copies the field of exactly that name. False when none of that name is kept.
bool CopyHeaderField(kmProfileHeader& to, const kmProfileHeader& from, kmStringView name);

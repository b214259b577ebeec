// The header of a profile file, read and written by one table.
#pragma once

#include "kmProfileHeader.h"
#include "xml/XMLNode.h"

// Reads the fields that "Main" has; the others stay as they are, but without its mark a profile is no system
// profile.
void ReadHeader(const XMLNode& main, kmProfileHeader& header);

// Puts a new display name into the "Main" of a file; nothing happens where it has none.
void SetHeaderName(const XMLNode& main, const kmString& name);

// Writes them into a new "Main". The mark of a system profile is never written.
void WriteHeader(const kmProfileHeader& header, XMLNode main);

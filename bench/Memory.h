// SPDX-License-Identifier: MIT
// What a document in memory takes.
#pragma once

#include "bench/Folder.h"

// The bytes that the heap holds for all documents of a folder at once, divided by the size of their files;
// the heap's own bookkeeping included. Names and values of the documents are whatever the reader keeps.
double LibraryBytesPerFileByte(const ProfileFolder& folder);
double PugixmlBytesPerFileByte(const ProfileFolder& folder);

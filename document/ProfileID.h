// Which texts can be profile IDs.
#pragma once

#include "text/Ascii.h"

// Whether a file named `id` and ".pf" can exist on every system that the library runs on, and comes back with
// the same ID when a folder is listed: not empty, no separators or wildcards, no device name, no "." in
// front, which listings skip.
bool IsUsableProfileID(kmStringView id);

// The name of a profile's file in `folder`, which ends with "\".
kmString ProfilePath(const kmString& folder, kmStringView id);

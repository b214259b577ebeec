// SPDX-License-Identifier: MIT
// How IDs become file names and back. Whether a text can be an ID at all tells kmFindIDFault.
#pragma once

#include "document/Format.h"

// The path of a profile's file in `folder`, which ends with "\". An ID ends at its first null unit.
kmString ProfilePath(const kmString& folder, const kmString& id);

// Whether the file of that ID lies in the folder itself, and not wherever a path in the ID leads.
bool StaysInItsFolder(const kmString& id);

// The ID of a profile whose file has that name: what stands in front of the last ".".
kmString ProfileIDOf(const kmString& fileName);

// SPDX-License-Identifier: MIT
// The catalogue of the profiles folder, for the commands that need more than one profile.
#pragma once

#include <string>

#include "kmManager.h"

// The library's catalogue, loaded from `folder`. Throws a Failure for a folder that cannot be read.
kmManager& LoadCatalogue(const kmString& folder);

// Whether the catalogue has a profile of exactly this ID.
bool IsProfile(kmManager& catalogue, const kmString& id);

// The ID as the catalogue spells it: where file names ignore letter case, a save under another spelling would
// rename the file. One that the catalogue does not know stays as it is.
kmString KnownID(kmManager& catalogue, const kmString& id);

const char* OwnerName(bool isSystem);

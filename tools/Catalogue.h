// The catalogue of the profiles folder, for the commands that need more than one profile.
#pragma once

#include <string>

#include "kmManager.h"

// The library's catalogue, loaded from `folder`, UTF-8 in the system's own form; an empty one means the
// default. Throws a Failure for a folder that cannot be read.
kmManager& LoadCatalogue(const std::string& folder);

// Whether the catalogue has a profile of exactly this ID.
bool IsProfile(kmManager& catalogue, const std::string& id);

// The ID as the catalogue spells it: where file names ignore letter case, a save under another spelling would
// rename the file. One that the catalogue does not know stays as it is.
std::string KnownID(kmManager& catalogue, const std::string& id);

const char* OwnerName(bool isSystem);

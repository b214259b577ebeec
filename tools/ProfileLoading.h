// Loading the profile that a command was asked for.
#pragma once

#include <string>

#include "kmProfile.h"

// The profile `id` of `folder`, both UTF-8 in the system's own form; an empty `folder` means the default one.
// Throws a Failure that names the file and its fault.
kmProfile LoadProfile(const std::string& folder, const std::string& id);

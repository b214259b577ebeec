// SPDX-License-Identifier: MIT
// Loading the profile that a command was asked for.
#pragma once

#include <string>

#include "kmProfile.h"

// The profile `id` of `folder`, or the one that a person means by `name`. Throws a Failure that names the
// file and its fault.
kmProfile LoadProfile(const kmString& folder, const kmString& id);
kmProfile LoadNamedProfile(const kmString& folder, const std::string& name);

// Why that ID's file cannot be loaded, with its path.
std::string WhyNotLoaded(const kmString& folder, const kmString& id);

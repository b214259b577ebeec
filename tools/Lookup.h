// SPDX-License-Identifier: MIT
// Which profile a person means.
#pragma once

#include <string>

#include "kmTypes.h"

// The ID, as its file spells it, of the profile that `name` stands for: its ID or else the name that it
// shows, in any letter case. A file of that ID counts whether it can be read or not. Throws a Failure when
// there is none, or several share what was given; an ID is never a path.
kmString FindProfileID(const kmString& folder, const std::string& name);

// Whether the folder itself has a file of exactly that ID.
bool IsListed(const kmString& folder, const kmString& id);

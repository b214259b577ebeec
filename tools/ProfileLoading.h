// SPDX-License-Identifier: MIT
// Loading the profile that a command was asked for.
#pragma once

#include "kmProfile.h"

// The profile `id` of `folder`. Throws a Failure that names the file and its fault.
kmProfile LoadProfile(const kmString& folder, const kmString& id);

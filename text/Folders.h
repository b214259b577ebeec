// SPDX-License-Identifier: MIT
// The forms of folder paths. Paths use "\"; every folder that is returned ends with it.
#pragma once

#include "kmTypes.h"

// Turns every "/" into "\" and adds a final "\" when there is none. An empty path stays empty.
void NormalizeFolder(kmString& folder);

// The folder of the user's profiles inside a profiles folder; empty for a null or empty `folder`.
kmString GetUserFolder(const kmChar* folder);

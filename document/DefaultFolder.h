// SPDX-License-Identifier: MIT
// Where the profiles are when the application names no folder.
#pragma once

#include "kmTypes.h"

// The folder of the running program's executable, with its final "\"; empty when it cannot be told.
kmString GetExeFolder();

// The folder "Profiles" beside the running program's executable, with its final "\".
kmString GetDefaultProfilesFolder();

// A profile and the file that it came from.
#pragma once

#include "kmExport.h"
#include "kmProfile.h"

// The folder in which the profile was looked for last, with a final "\": that of its file after a load that
// succeeded. Empty for a profile that was never loaded.
KM_EXPORT kmString kmFolderOf(const kmProfile& profile);

// SPDX-License-Identifier: MIT
#include "document/DefaultFolder.h"

#include "platform/Process.h"

kmString GetExeFolder() {
    kmString path = ExecutablePath();
    path.erase(path.rfind(KM_TEXT('\\')) + 1);
    return path;
}

kmString GetDefaultProfilesFolder() { return GetExeFolder() + KM_TEXT("Profiles\\"); }

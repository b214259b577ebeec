#include "text/Folders.h"

#include <algorithm>

#include "platform/Process.h"

namespace {
constexpr kmChar kSeparator = KM_TEXT('\\');
}

void NormalizeFolder(kmString& folder) {
    if (folder.empty()) return;
    std::replace(folder.begin(), folder.end(), KM_TEXT('/'), kSeparator);
    if (folder.back() != kSeparator) folder += kSeparator;
}

kmString GetExeFolder() {
    kmString path = ExecutablePath();
    path.erase(path.rfind(kSeparator) + 1);
    return path;
}

kmString GetDefaultProfilesFolder() { return GetExeFolder() + KM_TEXT("Profiles\\"); }

kmString GetUserFolder(const kmChar* folder) {
    if (folder == nullptr || *folder == 0) return {};
    kmString path = folder;
    NormalizeFolder(path);
    return path + KM_TEXT("user\\");
}

// SPDX-License-Identifier: MIT
#include "text/Folders.h"

#include <algorithm>

namespace {
constexpr kmChar kSeparator = KM_TEXT('\\');
}

void NormalizeFolder(kmString& folder) {
    if (folder.empty()) return;
    std::replace(folder.begin(), folder.end(), KM_TEXT('/'), kSeparator);
    if (folder.back() != kSeparator) folder += kSeparator;
}

kmString GetUserFolder(const kmChar* folder) {
    if (folder == nullptr || *folder == 0) return {};
    kmString path = folder;
    NormalizeFolder(path);
    return path + KM_TEXT("user\\");
}

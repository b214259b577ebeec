// SPDX-License-Identifier: MIT
#include "kmFolders.h"

#include <algorithm>
#include <filesystem>

#include "document/DefaultFolder.h"
#include "kmText.h"
#include "text/Encoding.h"
#include "text/Folders.h"

namespace {

constexpr kmChar kSeparator = KM_TEXT('\\');
constexpr bool kNamesMayHoldBackslashes = std::filesystem::path::preferred_separator == '/';

}  // namespace

kmString kmDefaultProfilesFolder() { return GetDefaultProfilesFolder(); }

kmString kmUserFolder(const kmString& profilesFolder) { return GetUserFolder(profilesFolder.c_str()); }

kmString kmPathFromUtf8(std::string_view path) {
    kmString text = kNamesMayHoldBackslashes ? TextFromBytes(path) : kmTextFromUtf8(path);
    std::replace(text.begin(), text.end(), KM_TEXT('/'), kSeparator);
    return text;
}

std::string kmUtf8FromPath(const kmString& path) {
    if (!kNamesMayHoldBackslashes) return BytesFromText(path);
    kmString text = path;
    std::replace(text.begin(), text.end(), kSeparator, KM_TEXT('/'));
    return BytesFromText(text);
}

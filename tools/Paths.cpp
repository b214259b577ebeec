// SPDX-License-Identifier: MIT
#include "Paths.h"

#include <system_error>

#include "kmFolders.h"
#include "kmText.h"

namespace {

// The standard's own conversions refuse names that are no valid text.
template <typename Path>
constexpr bool kTakesBytes = sizeof(typename Path::value_type) == 1;

template <typename Path>
Path FromUtf8(const std::string& bytes) {
    if constexpr (kTakesBytes<Path>)
        return bytes;
    else
        return kmTextFromUtf8(bytes);
}

template <typename Path>
std::string ToUtf8(const Path& path) {
    if constexpr (kTakesBytes<Path>)
        return path.native();
    else
        return kmUtf8FromText(path.native());
}

std::filesystem::path PathOf(const kmString& path) { return SystemPath(kmUtf8FromPath(path)); }

}  // namespace

kmString ProfilesFolder(const std::string& argument) {
    if (argument.empty()) return kmDefaultProfilesFolder();
    kmString folder = kmPathFromUtf8(argument);
    if (folder.back() != KM_TEXT('\\')) folder += KM_TEXT('\\');
    return folder;
}

std::filesystem::path SystemPath(const std::string& path) { return FromUtf8<std::filesystem::path>(path); }

std::string Utf8FromSystemPath(const std::filesystem::path& path) { return ToUtf8(path); }

bool PathExists(const kmString& path) {
    std::error_code ignored;
    return std::filesystem::exists(PathOf(path), ignored);
}

bool IsReadableFolder(const kmString& path) {
    std::error_code error;
    const std::filesystem::directory_iterator files(PathOf(path), error);
    return !error;
}

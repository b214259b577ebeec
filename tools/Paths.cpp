#include "Paths.h"

#include <filesystem>
#include <system_error>

#include "kmFolders.h"

namespace {

std::filesystem::path SystemPath(const kmString& path) {
    const std::string bytes = kmUtf8FromPath(path);
    return std::u8string(bytes.begin(), bytes.end());
}

}  // namespace

kmString ProfilesFolder(const std::string& argument) {
    if (argument.empty()) return kmDefaultProfilesFolder();
    kmString folder = kmPathFromUtf8(argument);
    if (folder.back() != KM_TEXT('\\')) folder += KM_TEXT('\\');
    return folder;
}

bool PathExists(const kmString& path) {
    std::error_code ignored;
    return std::filesystem::exists(SystemPath(path), ignored);
}

bool IsReadableFolder(const kmString& path) {
    std::error_code error;
    const std::filesystem::directory_iterator files(SystemPath(path), error);
    return !error;
}

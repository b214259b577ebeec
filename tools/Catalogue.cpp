#include "Catalogue.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "Failure.h"
#include "ProfileLoading.h"
#include "Texts.h"

namespace {

// The library takes a folder that it cannot read for an empty one.
void RequireReadable(const std::string& folder) {
    std::error_code error;
    const std::filesystem::directory_iterator files(std::u8string(folder.begin(), folder.end()), error);
    if (error) throw Failure(folder + ": the folder cannot be read");
}

}  // namespace

kmManager& LoadCatalogue(const std::string& folder) {
    const std::string path = ProfilesFolder(folder);
    if (!FileExists(path)) throw Failure(path + ": no such folder");
    RequireReadable(path);
    if (FileExists(path + kUserFolder)) RequireReadable(path + kUserFolder);
    kmManager& catalogue = kmManager::GetInstance();
    catalogue.Load(NameFromUtf8(folder));
    return catalogue;
}

bool IsProfile(kmManager& catalogue, const std::string& id) {
    const kmString wanted = NameFromUtf8(id);
    const std::vector<kmProfileInfo>& profiles = catalogue.GetProfiles();
    return std::any_of(profiles.begin(), profiles.end(),
                       [&wanted](const kmProfileInfo& info) { return info.GetID() == wanted; });
}

std::string KnownID(kmManager& catalogue, const std::string& id) {
    if (IsProfile(catalogue, id)) return id;
    const kmProfileInfo* info = catalogue.GetProfileInfo(NameFromUtf8(id).c_str());
    return info == nullptr ? id : Utf8FromText(info->GetID());
}

const char* OwnerName(bool isSystem) { return isSystem ? "system" : "user"; }

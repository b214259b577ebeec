#include "ProfileLoading.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <vector>

#include "Failure.h"
#include "LibraryMessages.h"
#include "Texts.h"

namespace {

// The library looks in the folder and then in its "user" subfolder, so that one load leaves two messages when
// both fail. `messages` are those of one load.
using Messages = std::vector<LibraryMessage>;

const LibraryMessage* FindParseError(const Messages& messages) {
    const auto found = std::find_if(messages.begin(), messages.end(), [](const LibraryMessage& message) {
        return !message.IsWarning() && !message.IsFileNotFound();
    });
    return found == messages.end() ? nullptr : &*found;
}

bool Exists(const LibraryMessage& message) { return FileExists(Utf8FromPath(message.path)); }

std::string FolderOf(const kmString& path, const kmString& id) {
    constexpr std::size_t kSuffixLength = 3;  // ".pf"
    return Utf8FromPath(path.substr(0, path.size() - id.size() - kSuffixLength));
}

// A file that was read and is sound XML left no message, so that its path has to be put together.
std::string PathOfSoundFile(const Messages& messages, const std::string& folder, const kmString& id) {
    const std::string name = Utf8FromText(id) + ".pf";
    if (messages.empty()) return folder.empty() ? name : folder + '/' + name;
    const LibraryMessage& last = messages.back();
    if (last.IsWarning()) return Utf8FromPath(last.path);
    return FolderOf(last.path, id) + "user/" + name;
}

std::string WhyNotLoaded(const Messages& messages, const std::string& folder, const kmString& id) {
    if (const LibraryMessage* error = FindParseError(messages)) return Describe(*error);
    const auto notFound = std::count_if(messages.begin(), messages.end(), [](const LibraryMessage& message) {
        return message.IsFileNotFound();
    });
    if (notFound < 2) return PathOfSoundFile(messages, folder, id) + ": no header (\"Main\" is missing)";
    const auto unreadable = std::find_if(messages.begin(), messages.end(), Exists);
    if (unreadable != messages.end()) return Utf8FromPath(unreadable->path) + ": cannot be read";
    return "no profile " + Quoted(Utf8FromText(id)) + " in " + FolderOf(messages.front().path, id);
}

}  // namespace

std::string ProfilesFolder(const std::string& folder) {
    constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);
    if (!folder.empty())
        return folder.back() == '/' || folder.back() == kSeparator ? folder : folder + kSeparator;
    // Only a message tells where the default folder is, so there has to be one: no profile has this ID.
    const std::size_t earlier = LibraryMessages().size();
    kmProfile().Load({});
    return earlier < LibraryMessages().size() ? FolderOf(LibraryMessages()[earlier].path, {}) : std::string();
}

LoadedProfile LoadProfileFile(const std::string& folder, const std::string& id) {
    const std::size_t earlier = LibraryMessages().size();
    kmProfile profile;
    profile.SetID(NameFromUtf8(id));
    const bool isLoaded = profile.Load(NameFromUtf8(folder));
    const auto first = LibraryMessages().begin() + static_cast<std::ptrdiff_t>(earlier);
    const Messages messages(first, LibraryMessages().end());
    if (!isLoaded) throw Failure(WhyNotLoaded(messages, folder, profile.GetID()));
    const bool isFirstFile = std::all_of(messages.begin(), messages.end(),
                                         [](const LibraryMessage& message) { return message.IsWarning(); });
    return {profile, ProfilesFolder(folder) + (isFirstFile ? "" : kUserFolder)};
}

kmProfile LoadProfile(const std::string& folder, const std::string& id) {
    return LoadProfileFile(folder, id).profile;
}

bool FileExists(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::exists(std::u8string(path.begin(), path.end()), ignored);
}

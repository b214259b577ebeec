// SPDX-License-Identifier: MIT
#include "ProfileLoading.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "Failure.h"
#include "LibraryMessages.h"
#include "Paths.h"
#include "Printable.h"
#include "kmFolders.h"
#include "kmProfileFile.h"
#include "kmProfileID.h"

namespace {

// Those of one load. The library looks in the folder and then in that of the user's profiles, so that there
// are two when there is no such profile.
using Messages = std::vector<LibraryMessage>;

std::string WhyNotLoaded(const Messages& messages, const kmString& folder, const kmProfile& profile) {
    const auto find = [&messages](auto isWanted) {
        return std::find_if(messages.begin(), messages.end(), isWanted);
    };
    const auto parseError = find([](const LibraryMessage& message) {
        return !kmIsWarning(message.code) && message.code != XML_ERROR_FILE_NOT_FOUND;
    });
    if (parseError != messages.end()) return Describe(*parseError);
    const kmString lastPath = kmProfilePath(kmFolderOf(profile), profile.GetID());
    const auto lastNotFound = find([&lastPath](const LibraryMessage& message) {
        return message.code == XML_ERROR_FILE_NOT_FOUND && message.path == lastPath;
    });
    if (lastNotFound == messages.end()) return kmUtf8FromPath(lastPath) + ": no header (\"Main\" is missing)";
    const auto unreadable = find([](const LibraryMessage& message) { return PathExists(message.path); });
    if (unreadable != messages.end()) return kmUtf8FromPath(unreadable->path) + ": cannot be read";
    return "no profile " + QuotedID(profile.GetID()) + " in " + kmUtf8FromPath(folder);
}

}  // namespace

kmProfile LoadProfile(const kmString& folder, const kmString& id) {
    const auto earlier = static_cast<std::ptrdiff_t>(LibraryMessages().size());
    kmProfile profile;
    profile.SetID(id);
    if (profile.Load(folder)) return profile;
    const Messages messages(LibraryMessages().begin() + earlier, LibraryMessages().end());
    throw Failure(WhyNotLoaded(messages, folder, profile));
}

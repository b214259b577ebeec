// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Folders.h"
#include "Lookup.h"
#include "Printable.h"
#include "kmFileFault.h"
#include "kmFolders.h"
#include "kmProfileFile.h"
#include "kmProfileID.h"
#include "kmText.h"

namespace {

std::string WhyNotDeleted(kmManager& catalogue, const kmString& id, const kmString& folder) {
    const kmString userFolder = kmUserFolder(folder);
    const kmString path = kmProfilePath(userFolder, id);
    if (kmProfileFileExists(userFolder, id))
        return kmUtf8FromPath(path) +
               ": cannot be deleted: " + kmUtf8FromText(kmFileFaultText(kmLastFileFault()));
    const kmProfileInfo* info = catalogue.GetProfileInfo(id.c_str());
    if (info != nullptr && info->IsSystem())
        return QuotedID(id) + " is a system profile, which is never deleted";
    return QuotedID(id) +
           " is in the profiles folder itself; only those in its \"user\" subfolder are deleted";
}

// The catalogue deletes its own profiles, with their icons. What no load takes is but a file, and so is one
// that look-ups do not find because a system profile has its ID.
bool DeleteOne(kmManager& catalogue, const kmString& id, const kmString& folder) {
    if (IsUsers(catalogue, id) && catalogue.DeleteProfile(id)) return true;
    return kmProfileFileExists(kmUserFolder(folder), id) && kmDeleteProfileFile(kmUserFolder(folder), id);
}

void Delete(const std::string& name, const kmString& folder) {
    kmManager& catalogue = LoadCatalogue(folder);
    const kmString id = FindProfileID(folder, name);
    if (!DeleteOne(catalogue, id, folder)) throw Failure(WhyNotDeleted(catalogue, id, folder));
    Print("deleted " + QuotedID(id) + " from " + Printable(kmUtf8FromPath(kmUserFolder(folder))) + '\n');
}

}  // namespace

void AddDeleteCommand(CLI::App& app, const GlobalOptions& global) {
    auto id = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("delete", "Delete a user profile");
    command->add_option("ID", *id, "The user profile")->required();
    command->footer(R"(The file is gone for good. One that cannot be read is deleted too.

Example:
  kmprofile delete "Holiday Clips")");
    command->callback([id, &global] { Delete(*id, FindProfilesFolder(global.folder).path); });
}

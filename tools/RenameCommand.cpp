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
#include "ProfileLoading.h"
#include "Refusals.h"
#include "kmFolders.h"
#include "kmProfileFile.h"
#include "kmProfileID.h"

namespace {

struct RenameArguments {
    std::string id;
    std::string newID;
};

// What the library reports as a failure, because the new ID could not be written into a file that it cannot
// read, is all that can be done for such a file.
bool WasBrokenRenamed(PROFILE_EERROR error, const WriteAttempt& attempt) {
    return error == PROFILE_ERROR_FILE && !attempt.targetExisted &&
           kmProfileFileExists(attempt.folder, attempt.newID);
}

void Rename(const RenameArguments& arguments, const kmString& folder) {
    kmManager& catalogue = LoadCatalogue(folder);
    kmProfile profile;
    profile.SetID(FindProfileID(folder, arguments.id));
    const kmString id = profile.GetID();
    const kmString newID = kmPathFromUtf8(arguments.newID);
    const std::string fault = profile.Load(folder) ? "" : WhyNotLoaded(folder, id);
    const kmString itsFolder = kmFolderOf(profile);
    if (!fault.empty() && !kmProfileFileExists(itsFolder, id)) throw Failure(fault);
    const WriteAttempt attempt = {id, newID, itsFolder, profile.IsSystem(),
                                  kmProfileFileExists(itsFolder, newID)};
    const ProfileIcon icon = IconOf(catalogue, id);
    const PROFILE_EERROR error = profile.ReName(newID);
    const bool isDone = error == PROFILE_ERROR_NONE || (!fault.empty() && WasBrokenRenamed(error, attempt));
    if (!isDone) throw Failure(WhyNotRenamed(error, attempt));
    if (fault.empty()) {
        WarnOfLostIcon(catalogue, folder, newID, icon);
    } else {
        PrintWarning(fault);
    }
    Print("renamed " + QuotedID(id) + " to " + QuotedID(newID) + " in " +
          Printable(kmUtf8FromPath(itsFolder)) + '\n');
}

}  // namespace

void AddRenameCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<RenameArguments>();
    CLI::App* command = app.add_subcommand("rename", "Give a user profile another ID");
    command->add_option("ID", arguments->id, "The user profile")->required();
    command->add_option("NEWID", arguments->newID, "Its new ID, which no profile may have")->required();
    command->footer(R"(A file that cannot be read is renamed too. IDs are never paths.

Example:
  kmprofile rename "Holiday Clips" "Clips from Grandma")");
    command->callback([arguments, &global] { Rename(*arguments, FindProfilesFolder(global.folder).path); });
}

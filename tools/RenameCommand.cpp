// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Paths.h"
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

void Rename(const RenameArguments& arguments, const kmString& folder) {
    const kmString id = KnownID(LoadCatalogue(folder), kmPathFromUtf8(arguments.id));
    const kmString newID = kmPathFromUtf8(arguments.newID);
    kmProfile profile = LoadProfile(folder, id);
    const kmString itsFolder = kmFolderOf(profile);
    const WriteAttempt attempt = {id, newID, itsFolder, profile.IsSystem(),
                                  PathExists(kmProfilePath(itsFolder, newID))};
    const PROFILE_EERROR error = profile.ReName(newID);
    if (error != PROFILE_ERROR_NONE) throw Failure(WhyNotRenamed(error, attempt));
    Print("renamed " + QuotedID(id) + " to " + QuotedID(newID) + " in " +
          Printable(kmUtf8FromPath(itsFolder)) + '\n');
}

}  // namespace

void AddRenameCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<RenameArguments>();
    CLI::App* command = app.add_subcommand("rename", "Give a user profile another ID");
    command->add_option("ID", arguments->id, "The user profile")->required();
    command->add_option("NEWID", arguments->newID, "Its new ID, which no profile may have")->required();
    command->footer(R"(Example:
  kmprofile rename "Holiday Clips" "Clips from Grandma")");
    command->callback([arguments, &global] { Rename(*arguments, ProfilesFolder(global.folder)); });
}

// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Paths.h"
#include "Printable.h"
#include "ProfileLoading.h"
#include "Refusals.h"
#include "Settings.h"
#include "kmFolders.h"
#include "kmProfileFile.h"

namespace {

struct SetArguments {
    std::string id;
    std::vector<std::string> settings;
    std::string newID;
    bool overwrite = false;
};

PROFILE_EERROR Save(kmProfile& profile, const kmString& newID, bool overwrite) {
    const bool mayReplace = overwrite || newID == profile.GetID();
    return mayReplace ? profile.Save(newID, overwrite) : kmSaveAsNew(profile, newID);
}

void Set(const SetArguments& arguments, bool isCopy, const kmString& folder) {
    if (arguments.settings.empty() && !isCopy) throw UsageFailure("nothing to do: give name=value or --as");
    const kmString id = KnownID(LoadCatalogue(folder), kmPathFromUtf8(arguments.id));
    kmProfile profile = LoadProfile(folder, id);
    for (const std::string& setting : arguments.settings) ApplySetting(profile, setting);
    const kmString itsFolder = kmFolderOf(profile);
    const WriteAttempt attempt = {id, isCopy ? kmPathFromUtf8(arguments.newID) : id,
                                  profile.IsSystem() ? kmUserFolder(itsFolder) : itsFolder,
                                  profile.IsSystem()};
    const PROFILE_EERROR error = Save(profile, attempt.newID, arguments.overwrite);
    if (error != PROFILE_ERROR_NONE) throw Failure(WhyNotSaved(error, attempt));
    Print("saved " + QuotedID(attempt.newID) + " in " + Printable(kmUtf8FromPath(attempt.folder)) + '\n');
}

}  // namespace

void AddSetCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<SetArguments>();
    CLI::App* command = app.add_subcommand("set", "Change settings of a profile, or save a copy of it");
    command->add_option("ID", arguments->id, "The profile")->required();
    command->add_option("NAME=VALUE", arguments->settings, "What to change; without any it is a plain copy")
        ->type_name("");
    CLI::Option* as =
        command->add_option("--as", arguments->newID, "Save a copy under this ID")->type_name("NEWID");
    command->add_flag("--overwrite", arguments->overwrite, "Replace another user profile of that ID");
    command->footer(
        R"(Nothing is saved unless every value is acceptable. System profiles are never changed; a copy of one
becomes a user profile, in the "user" subfolder.

Examples:
  kmprofile set "Holiday Clips" b=1500 s=720x576
  kmprofile set "Holiday Clips" ab=192 --as "Holiday Clips Loud" --overwrite)");
    command->callback(
        [arguments, as, &global] { Set(*arguments, as->count() != 0, ProfilesFolder(global.folder)); });
}

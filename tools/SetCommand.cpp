// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Folders.h"
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
    bool dryRun = false;
};

void ChangeSettings(const SetArguments& arguments, kmProfile& profile) {
    for (const std::string& text : arguments.settings) {
        const Setting setting = Interpret(profile, ReadSetting(text));
        RequireOneLine(setting);
        if (arguments.dryRun) PrintChange(profile, setting);
        WarnAbout(profile, setting);
        profile.SetItemValue(setting.name.c_str(), setting.value.c_str());
    }
}

PROFILE_EERROR Save(const SetArguments& arguments, kmProfile& profile, const WriteAttempt& attempt) {
    const bool mayReplace = arguments.overwrite || attempt.newID == attempt.id;
    if (arguments.dryRun) return ForeseeSave(attempt, mayReplace);
    return mayReplace ? profile.Save(attempt.newID, arguments.overwrite)
                      : kmSaveAsNew(profile, attempt.newID);
}

void Set(const SetArguments& arguments, bool isCopy, const kmString& folder) {
    if (arguments.settings.empty() && !isCopy) throw UsageFailure("nothing to do: give name=value or --as");
    kmManager& catalogue = LoadCatalogue(folder);  // a save asks it which IDs are taken
    kmProfile profile = LoadNamedProfile(folder, arguments.id);
    ChangeSettings(arguments, profile);
    const kmString id = profile.GetID();
    const kmString itsFolder = kmFolderOf(profile);
    const WriteAttempt attempt = {id, isCopy ? kmPathFromUtf8(arguments.newID) : id,
                                  profile.IsSystem() ? kmUserFolder(itsFolder) : itsFolder,
                                  profile.IsSystem()};
    const ProfileIcon icon = IconOf(catalogue, id);
    const PROFILE_EERROR error = Save(arguments, profile, attempt);
    if (error != PROFILE_ERROR_NONE) throw Failure(WhyNotSaved(error, attempt));
    if (!arguments.dryRun) WarnOfLostIcon(catalogue, folder, attempt.newID, icon);
    Print((arguments.dryRun ? "would save " : "saved ") + QuotedID(attempt.newID) + " in " +
          Printable(kmUtf8FromPath(attempt.folder)) + '\n');
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
    command->add_flag("--dry-run", arguments->dryRun, "Say what would change, and save nothing");
    command->footer(
        R"(NAME is a setting in any letter case; VALUE is checked, and may be the text that is shown for a choice
("High Quality"). Nothing is saved unless every value is acceptable. System profiles are never changed; a copy of one
becomes a user profile, in the "user" subfolder.

Examples:
  kmprofile set "Holiday Clips" b=1500 --dry-run
  kmprofile set "Holiday Clips" b=1500 s=720x576
  kmprofile set "Holiday Clips" ab=192 --as "Holiday Clips Loud" --overwrite)");
    command->callback([arguments, as, &global] {
        Set(*arguments, as->count() != 0, FindProfilesFolder(global.folder).path);
    });
}

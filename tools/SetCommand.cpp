#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "ProfileLoading.h"
#include "Refusals.h"
#include "Settings.h"
#include "Texts.h"

namespace {

struct SetArguments {
    std::string id;
    std::vector<std::string> settings;
    std::string newID;
    bool overwrite = false;
};

// A file that is no profile is unknown to the catalogue, which would let it be replaced unasked.
void RequireNoOtherFile(const WriteAttempt& attempt, kmManager& catalogue) {
    if (attempt.newID == attempt.id || !WhyNoFileName(attempt.newID).empty()) return;
    if (catalogue.ProfileExist(NameFromUtf8(attempt.newID).c_str()) || !FileExists(attempt.Path())) return;
    throw Failure(attempt.Path() +
                  ": there is such a file, though it is no profile; replace it with --overwrite");
}

void Set(const SetArguments& arguments, bool isCopy, const std::string& folder) {
    if (arguments.settings.empty() && !isCopy) throw UsageFailure("nothing to do: give name=value or --as");
    kmManager& catalogue = LoadCatalogue(folder);
    const std::string id = KnownID(catalogue, arguments.id);
    LoadedProfile loaded = LoadProfileFile(folder, id);
    for (const std::string& setting : arguments.settings) ApplySetting(loaded.profile, setting);
    const bool isSystem = loaded.profile.IsSystem();
    const WriteAttempt attempt = {id, isCopy ? arguments.newID : id,
                                  loaded.folder + (isSystem ? kUserFolder : ""), isSystem};
    if (!arguments.overwrite) RequireNoOtherFile(attempt, catalogue);
    const PROFILE_EERROR error = loaded.profile.Save(NameFromUtf8(attempt.newID), arguments.overwrite);
    if (error != PROFILE_ERROR_NONE) throw Failure(WhyNotSaved(error, attempt));
    Print("saved " + Quoted(attempt.newID) + " in " + Printable(attempt.folder) + '\n');
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
    command->callback([arguments, as, &global] { Set(*arguments, as->count() != 0, global.folder); });
}

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "ProfileLoading.h"
#include "Refusals.h"
#include "Texts.h"

namespace {

struct RenameArguments {
    std::string id;
    std::string newID;
};

void Rename(const RenameArguments& arguments, const std::string& folder) {
    const std::string id = KnownID(LoadCatalogue(folder), arguments.id);
    LoadedProfile loaded = LoadProfileFile(folder, id);
    WriteAttempt attempt = {id, arguments.newID, loaded.folder, loaded.profile.IsSystem()};
    attempt.targetExisted = FileExists(attempt.Path());
    const PROFILE_EERROR error = loaded.profile.ReName(NameFromUtf8(arguments.newID));
    if (error != PROFILE_ERROR_NONE) throw Failure(WhyNotRenamed(error, attempt));
    Print("renamed " + Quoted(id) + " to " + Quoted(arguments.newID) + " in " + Printable(loaded.folder) +
          '\n');
}

}  // namespace

void AddRenameCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<RenameArguments>();
    CLI::App* command = app.add_subcommand("rename", "Give a user profile another ID");
    command->add_option("ID", arguments->id, "The user profile")->required();
    command->add_option("NEWID", arguments->newID, "Its new ID, which no profile may have")->required();
    command->footer(R"(Example:
  kmprofile rename "Holiday Clips" "Clips from Grandma")");
    command->callback([arguments, &global] { Rename(*arguments, global.folder); });
}

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "ProfileLoading.h"
#include "Texts.h"

namespace {

std::string WhyNotDeleted(kmManager& catalogue, const std::string& id, const std::string& folder) {
    const kmProfileInfo* info = catalogue.GetProfileInfo(NameFromUtf8(id).c_str());
    if (info == nullptr) {
        LoadProfile(folder, id);  // throws with the reason, unless the ID is a path to a profile
        return "no profile " + Quoted(id) + " in the catalogue";
    }
    if (info->IsSystem()) return Quoted(id) + " is a system profile, which is never deleted";
    const std::string path = ProfilesFolder(folder) + kUserFolder + id + ".pf";
    if (FileExists(path)) return path + ": cannot be deleted";
    return Quoted(id) + " is in the profiles folder itself; only those in its \"user\" subfolder are deleted";
}

void Delete(const std::string& wanted, const std::string& folder) {
    kmManager& catalogue = LoadCatalogue(folder);
    const std::string id = KnownID(catalogue, wanted);
    if (!catalogue.DeleteProfile(NameFromUtf8(id))) throw Failure(WhyNotDeleted(catalogue, id, folder));
    Print("deleted " + Quoted(id) + " from " + Printable(ProfilesFolder(folder) + kUserFolder) + '\n');
}

}  // namespace

void AddDeleteCommand(CLI::App& app, const GlobalOptions& global) {
    auto id = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("delete", "Delete a user profile");
    command->add_option("ID", *id, "The user profile")->required();
    command->footer(R"(The file is gone for good.

Example:
  kmprofile delete "Holiday Clips")");
    command->callback([id, &global] { Delete(*id, global.folder); });
}

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
#include "kmFolders.h"
#include "kmProfileID.h"

namespace {

std::string WhyNotDeleted(kmManager& catalogue, const kmString& id, const kmString& folder) {
    const kmProfileInfo* info = catalogue.GetProfileInfo(id.c_str());
    if (info == nullptr) {
        LoadProfile(folder, id);  // throws with the reason, unless the ID is a path to a profile
        return "no profile " + QuotedID(id) + " in the catalogue";
    }
    if (info->IsSystem()) return QuotedID(id) + " is a system profile, which is never deleted";
    const kmString path = kmProfilePath(kmUserFolder(folder), id);
    if (PathExists(path)) return kmUtf8FromPath(path) + ": cannot be deleted";
    return QuotedID(id) +
           " is in the profiles folder itself; only those in its \"user\" subfolder are deleted";
}

void Delete(const kmString& wanted, const kmString& folder) {
    kmManager& catalogue = LoadCatalogue(folder);
    const kmString id = KnownID(catalogue, wanted);
    if (!catalogue.DeleteProfile(id)) throw Failure(WhyNotDeleted(catalogue, id, folder));
    Print("deleted " + QuotedID(id) + " from " + Printable(kmUtf8FromPath(kmUserFolder(folder))) + '\n');
}

}  // namespace

void AddDeleteCommand(CLI::App& app, const GlobalOptions& global) {
    auto id = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("delete", "Delete a user profile");
    command->add_option("ID", *id, "The user profile")->required();
    command->footer(R"(The file is gone for good.

Example:
  kmprofile delete "Holiday Clips")");
    command->callback([id, &global] { Delete(kmPathFromUtf8(*id), ProfilesFolder(global.folder)); });
}

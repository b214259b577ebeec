// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "Commands.h"
#include "Folders.h"
#include "Json.h"
#include "Table.h"
#include "kmFolders.h"

namespace {

void ShowWhere(const std::string& argument, bool asJson) {
    const ProfilesFolder folder = FindProfilesFolder(argument);
    const bool exists = FolderExists(folder.path);
    if (asJson)
        return PrintJson({{"folder", JsonPath(folder.path)},
                          {"why", WhyThatFolder(folder.source)},
                          {"exists", exists},
                          {"installed", JsonPath(InstalledProfilesFolder())}});
    PrintTable({{{"Folder", kmUtf8FromPath(folder.path)}},
                {{"Why", WhyThatFolder(folder.source)}},
                {{"Exists", exists ? "yes"
                            : folder.source == FolderSource::Program
                                ? "no"
                                : "no; \"kmprofile init\" makes it, with the sample profiles"}},
                {{"Samples", kmUtf8FromPath(InstalledProfilesFolder())}}},
               0);
}

}  // namespace

void AddWhereCommand(CLI::App& app, const GlobalOptions& global) {
    auto asJson = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("where", "Say which profiles folder is used, and why");
    AddJsonFlag(*command, *asJson);
    command->footer(R"(The first of these is used:
  the folder given with --folder;
  the one that the environment variable KMPROFILE_FOLDER names;
  "Profiles" beside the program, where it exists;
  the user's own: kmprofile/Profiles in $XDG_DATA_HOME or ~/.local/share, on Windows in %APPDATA%.

Example:
  kmprofile where)");
    command->callback([asJson, &global] { ShowWhere(global.folder, *asJson); });
}

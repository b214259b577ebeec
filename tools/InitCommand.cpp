// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Folders.h"
#include "Printable.h"
#include "kmFileFault.h"
#include "kmFolders.h"
#include "kmText.h"

namespace {

// The folder beside a program belongs to whoever installed it.
kmString FolderToFill(const std::string& argument) {
    const ProfilesFolder chosen = FindProfilesFolder(argument);
    if (chosen.source != FolderSource::Program) return chosen.path;
    const kmString users = UsersProfilesFolder();
    if (users.empty()) throw Failure("there is no folder for the user's data; name one with --folder");
    return users;
}

void Fill(const std::string& argument) {
    const kmString from = InstalledProfilesFolder();
    const kmString to = FolderToFill(argument);
    const kmCopiedFiles files = kmCopyProfilesFolder(from, to);
    for (const kmFailedFile& failed : files.failed)
        PrintError(kmUtf8FromPath(failed.path) + ": " + kmUtf8FromText(kmFileFaultText(failed.fault)));
    if (files.copied.empty() && files.kept.empty() && files.failed.empty())
        throw Failure(kmUtf8FromPath(from) + ": no sample profiles");
    Print("copied " + std::to_string(files.copied.size()) + " files to " + Printable(kmUtf8FromPath(to)) +
          (files.kept.empty() ? "" : ", left " + std::to_string(files.kept.size()) + " as they were") + '\n');
    if (!files.failed.empty()) throw Failure("");
}

}  // namespace

void AddInitCommand(CLI::App& app, const GlobalOptions& global) {
    CLI::App* command =
        app.add_subcommand("init", "Fill the user's profiles folder with the sample profiles");
    command->footer(
        R"(Fills the folder given with --folder or KMPROFILE_FOLDER, else the user's own (see kmprofile where). A file
that is there stays as it is.

Examples:
  kmprofile init
  kmprofile init --folder ~/profiles)");
    command->callback([&global] { Fill(global.folder); });
}

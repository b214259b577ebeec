// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Findings.h"
#include "Folders.h"
#include "Json.h"
#include "Lookup.h"
#include "Printable.h"
#include "kmFileFault.h"
#include "kmFolders.h"
#include "kmText.h"

namespace {

using LintFindings = std::vector<kmLintFinding>;

struct LintArguments {
    std::vector<std::string> names;
    bool asJson = false;
};

kmString FolderPath(const std::string& name) {
    kmString path = kmPathFromUtf8(name);
    if (!path.empty() && path.back() != KM_TEXT('\\')) path += KM_TEXT('\\');
    return path;
}

bool LooksLikePath(const std::string& name) {
    return name.find_first_of("/\\") != std::string::npos || name.ends_with(".pf") || name.ends_with(".con");
}

LintFindings LintPath(const std::string& name) {
    if (FolderExists(FolderPath(name))) return kmLintFolder(FolderPath(name));
    LintFindings findings = kmLintFile(kmPathFromUtf8(name));
    const bool isMissing = !findings.empty() && findings.front().code == LINT_UNREADABLE_FILE &&
                           kmLastFileFault() == FILE_FAULT_NOT_FOUND;
    if (isMissing) throw Failure(name + ": there is no such file or folder");
    return findings;
}

bool IsProfile(const kmString& folder, const std::string& name) {
    const std::vector<kmString> ids = FolderExists(folder) ? ListIDs(folder) : std::vector<kmString>();
    return std::any_of(ids.begin(), ids.end(),
                       [id = kmPathFromUtf8(name)](const kmString& each) { return kmSameName(each, id); });
}

// A path, a profile's ID, a folder here or the name that a profile shows, in that order.
LintFindings Lint(const std::string& name, const kmString& folder) {
    const bool isPath = LooksLikePath(name) || (!IsProfile(folder, name) && FolderExists(FolderPath(name)));
    return isPath ? LintPath(name) : kmLintProfile(folder, FindProfileID(folder, name));
}

LintFindings LintAll(const LintArguments& arguments, const kmString& folder) {
    if (arguments.names.empty()) {
        ListIDs(folder);  // a folder that cannot be listed is no folder without faults
        return kmLintFolder(folder);
    }
    LintFindings all;
    for (const std::string& name : arguments.names) {
        const LintFindings found = Lint(name, folder);
        all.insert(all.end(), found.begin(), found.end());
    }
    return all;
}

Json JsonOf(const kmLintFinding& finding) {
    return {{"code", finding.code},
            {"name", finding.name},
            {"severity", SeverityName(finding.severity)},
            {"path", JsonPath(finding.path)},
            {"line", JsonPosition(finding.line)},
            {"column", JsonPosition(finding.column)},
            {"subject", JsonText(finding.subject)},
            {"suggestion", JsonText(finding.suggestion)},
            {"what", JsonText(finding.what)},
            {"advice", JsonText(finding.advice)}};
}

void PrintAsJson(const LintFindings& findings) {
    Json all = Json::array();
    for (const kmLintFinding& finding : findings) all.push_back(JsonOf(finding));
    PrintJson({{"findings", std::move(all)}});
}

std::string CountText(const LintFindings& findings, LINT_SEVERITY severity) {
    const auto count =
        std::count_if(findings.begin(), findings.end(),
                      [severity](const kmLintFinding& finding) { return finding.severity == severity; });
    return std::to_string(count) + ' ' + SeverityName(severity) + (count == 1 ? "" : "s");
}

void PrintLines(const LintFindings& findings) {
    for (const kmLintFinding& finding : findings) Print(Printable(Describe(finding)) + '\n');
    if (findings.empty()) return;
    Print(CountText(findings, LINT_ERROR) + ", " + CountText(findings, LINT_WARNING) + ", " +
          CountText(findings, LINT_NOTE) + '\n');
}

// Whatever keeps it from looking must not look like what it found.
LintFindings LintOrGiveUp(const LintArguments& arguments, const kmString& folder) {
    try {
        return LintAll(arguments, folder);
    } catch (const Failure& failure) {
        throw UsageFailure(failure.what());
    }
}

void Lint(const LintArguments& arguments, const kmString& folder) {
    const LintFindings findings = LintOrGiveUp(arguments, folder);
    (arguments.asJson ? PrintAsJson : PrintLines)(findings);
    const bool hasErrors = std::any_of(findings.begin(), findings.end(), [](const kmLintFinding& finding) {
        return finding.severity == LINT_ERROR;
    });
    if (hasErrors) throw Failure("");
}

}  // namespace

void AddLintCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<LintArguments>();
    CLI::App* command =
        app.add_subcommand("lint", "Say what is wrong with profiles, and what to do about it");
    command
        ->add_option("PROFILE|FILE|FOLDER", arguments->names,
                     "What to look at (default: the whole profiles folder)")
        ->type_name("");
    AddJsonFlag(*command, arguments->asJson);
    command->footer(
        R"(A line for each finding: file, line and column, severity, what it is, what to do, and the rule's name. An
"error" is left out by the library or refused by its checks; a "warning" is used, but hardly as it was meant; a
"note" is good to know. Nothing is changed. What has a "/" or "\" or ends in ".pf" or ".con" is a file.

Exit status: 0 without errors; 1 with errors; 2 wrong arguments, or no such file, folder or profile.

Examples:
  kmprofile lint
  kmprofile lint "Holiday Clips" samples/Profiles/pficon.con)");
    command->callback([arguments, &global] { Lint(*arguments, FindProfilesFolder(global.folder).path); });
}

// SPDX-License-Identifier: MIT
#include "Arguments.h"

#include <CLI/CLI.hpp>

#include "Failure.h"
#include "Printable.h"
#include "ProfileLoading.h"
#include "Settings.h"
#include "kmText.h"

namespace {

struct DialectName {
    const char* name;
    KM_DIALECT dialect;
};

constexpr DialectName kDialects[] = {{"own", KM_DIALECT_OWN}, {"ffmpeg", KM_DIALECT_FFMPEG}};

bool IsHarmless(char byte) {
    const bool isAlphanumeric =
        (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    return isAlphanumeric || std::string_view("-_=+:,./@%").find(byte) != std::string_view::npos;
}

}  // namespace

void AddArgumentChoices(CLI::App& command, ArgumentChoices& choices) {
    command.add_option("ID", choices.id, "The profile")->required();
    command.add_flag("--no-audio", choices.noAudio, "Leave the audio options out");
    command
        .add_option("--set", choices.settings,
                    "Change a setting first, for this call alone; may be given several times")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
}

void AddDialectOption(CLI::App& command, ArgumentChoices& choices) {
    command
        .add_option("--for", choices.dialect,
                    "The encoder: \"own\" (whose options profiles hold) or \"ffmpeg\" (5.1 and newer)")
        ->type_name("ENCODER");
}

kmProfile LoadChosenProfile(const ArgumentChoices& choices, const kmString& folder) {
    kmProfile profile = LoadNamedProfile(folder, choices.id);
    for (const std::string& setting : choices.settings) ApplySetting(profile, setting, "--set");
    return profile;
}

kmArgumentRequest RequestFor(const ArgumentChoices& choices) {
    kmArgumentRequest request;
    request.withAudio = !choices.noAudio;
    if (choices.dialect.empty()) return request;
    for (const DialectName& each : kDialects) {
        if (choices.dialect != each.name) continue;
        request.dialect = each.dialect;
        return request;
    }
    throw UsageFailure("--for: " + Quoted(choices.dialect) + " is neither \"own\" nor \"ffmpeg\"");
}

std::string ShellQuoted(const std::string& argument) {
    if (!argument.empty() && std::all_of(argument.begin(), argument.end(), IsHarmless)) return argument;
    std::string quoted = "'";
    for (const char byte : argument) quoted += byte == '\'' ? "'\\''" : std::string(1, byte);
    return quoted + '\'';
}

std::string ShellLine(const std::vector<kmString>& arguments) {
    std::string line;
    for (const kmString& argument : arguments)
        line += (line.empty() ? "" : " ") + ShellQuoted(kmUtf8FromText(argument));
    return line;
}

// SPDX-License-Identifier: MIT
// A profile's argument list, as the commands ask for it.
#pragma once

#include <string>
#include <vector>

#include "kmArguments.h"

namespace CLI {
class App;
}

// What the commands that build arguments have in common.
struct ArgumentChoices {
    std::string id;
    std::vector<std::string> settings;  // name=value
    std::string dialect;                // empty: not given
    bool noAudio = false;
};

// Adds the profile, --set and --no-audio; and --for.
void AddArgumentChoices(CLI::App& command, ArgumentChoices& choices);
void AddDialectOption(CLI::App& command, ArgumentChoices& choices);

// The profile with its settings changed. Throws a Failure.
kmProfile LoadChosenProfile(const ArgumentChoices& choices, const kmString& folder);

// The request without what is held back and without the output format. Throws a Failure for no dialect.
kmArgumentRequest RequestFor(const ArgumentChoices& choices);

// The argument for a POSIX shell, in ' where it holds anything that a shell could read as more than text.
std::string ShellQuoted(const std::string& argument);

// The arguments, quoted likewise, with spaces between them.
std::string ShellLine(const std::vector<kmString>& arguments);

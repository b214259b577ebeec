// SPDX-License-Identifier: MIT
// The command-line tool as a user starts it.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

struct ToolRun {
    std::string given;  // the command line
    int status = 0;     // the exit status; 128 + the signal that ended it
    std::string output;
    std::string error;
};

std::ostream& operator<<(std::ostream& stream, const ToolRun& run);

enum class Output { File, Terminal };

// Runs it in the folder. A run that takes ten seconds of the processor is ended by a signal, and so is one
// that a sanitizer stops.
ToolRun RunTool(const TemporaryFolder& folder, const std::vector<std::string>& arguments,
                Output output = Output::File);

// SPDX-License-Identifier: MIT
// Converting a file with an encoder program.
#pragma once

#include <string>

#include "kmProfile.h"

// Texts are UTF-8.
struct ConversionRequest {
    std::string encoder;  // a program that takes ffmpeg's arguments
    std::string input;
    std::string output;
    bool withAudio = true;
    bool mayReplace = false;  // the output
    bool keepsHalf = false;   // what was written by the time that it failed
};

// Throws a Failure, with the encoder's exit status where it has one, and otherwise leaves the whole output.
void Convert(const kmProfile& profile, const ConversionRequest& request);

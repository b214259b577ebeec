// SPDX-License-Identifier: MIT
// The whole command line of the encoder.
#pragma once

#include <string>
#include <vector>

#include "kmProfile.h"

// The profile's part of it, UTF-8: what stands between the input and the output. Throws a Failure for
// settings that no argument can hold.
std::vector<std::string> ProfileArguments(const kmProfile& profile, bool withAudio);

// Whether these arguments make the encoder write numbered pictures.
bool MakesPictures(const std::vector<std::string>& profileArguments);

// All of it. `input` and `output` are names of files whatever they look like.
std::vector<std::string> EncoderArguments(const std::vector<std::string>& profileArguments,
                                          const std::string& input, const std::string& output);

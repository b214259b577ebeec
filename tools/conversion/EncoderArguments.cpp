// SPDX-License-Identifier: MIT
#include "conversion/EncoderArguments.h"

#include <algorithm>

#include "Failure.h"
#include "Printable.h"
#include "kmArguments.h"
#include "kmText.h"

namespace {

// The level of each message tells errors from the rest, to which the input's duration belongs. The output is
// always replaced: there is an empty file of its temporary name.
const std::vector<std::string> kBefore = {"-hide_banner", "-nostdin", "-loglevel", "level+info", "-progress",
                                          "pipe:1",       "-nostats", "-y",        "-i"};

// Without it a name that begins with "-" is an option, and the part before a ":" a protocol.
std::string AsFile(const std::string& name) { return "file:" + name; }

std::string AsArgument(const kmString& text) {
    const std::string argument = kmUtf8FromText(text);
    if (argument.find('\0') != std::string::npos)
        throw Failure("a setting holds a null character: " + Quoted(argument));
    return argument;
}

}  // namespace

std::vector<std::string> ProfileArguments(const kmProfile& profile, bool withAudio) {
    kmArgumentRequest request;
    request.dialect = KM_DIALECT_FFMPEG;
    request.withAudio = withAudio;
    request.withHeldBack = true;
    request.withContainer = true;
    std::vector<std::string> arguments;
    for (const kmString& argument : kmBuildArguments(profile, request).arguments)
        arguments.push_back(AsArgument(argument));
    return arguments;
}

bool MakesPictures(const std::vector<std::string>& profileArguments) {
    const std::vector<std::string> format = {"-f", "image2"};
    return std::search(profileArguments.begin(), profileArguments.end(), format.begin(), format.end()) !=
           profileArguments.end();
}

std::vector<std::string> EncoderArguments(const std::vector<std::string>& profileArguments,
                                          const std::string& input, const std::string& output) {
    std::vector<std::string> all = kBefore;
    all.push_back(AsFile(input));
    all.insert(all.end(), profileArguments.begin(), profileArguments.end());
    all.push_back(AsFile(output));
    return all;
}

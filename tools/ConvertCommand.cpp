// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "Arguments.h"
#include "Commands.h"
#include "Folders.h"
#include "conversion/Conversion.h"

namespace {

struct ConvertArguments {
    ArgumentChoices choices;
    ConversionRequest request = {.encoder = "ffmpeg", .input = {}, .output = {}};
};

void ConvertFile(const ConvertArguments& arguments, const kmString& folder) {
    ConversionRequest request = arguments.request;
    request.withAudio = !arguments.choices.noAudio;
    Convert(LoadChosenProfile(arguments.choices, folder), request);
}

constexpr const char* kFooter =
    R"(The encoder gets the profile's settings as ffmpeg takes them, start, duration, frame size and frame rate
included. On a terminal a bar shows how far it is.

The output gets its name when it is whole; until then the file beside it is called ".km..." and is removed when
the conversion fails or Ctrl-C stops it. For a picture series OUTPUT has a number such as "%03d" in the file's
name, and the encoder writes the pictures themselves: what a failed conversion has written is removed, but with
--force, pictures that were there before may have been replaced by then.

Exit status: that of the encoder when it fails, 128 + the signal's number when a signal stops the conversion.

Examples:
  kmprofile convert "Holiday Clips" tape.avi clip.mp4
  kmprofile convert "Holiday Clips" tape.avi clip.mp4 --set ss=00:01:00 --no-audio --force
  kmprofile convert "Pictures" tape.avi "picture%03d.jpg")";

}  // namespace

void AddConvertCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<ConvertArguments>();
    ConversionRequest& request = arguments->request;
    CLI::App* command = app.add_subcommand("convert", "Convert a file with an encoder program");
    AddArgumentChoices(*command, arguments->choices);
    command->add_option("INPUT", request.input, "The file to convert")->required();
    command->add_option("OUTPUT", request.output, "The file to write")->required();
    command
        ->add_option("--encoder", request.encoder,
                     "The encoder, ffmpeg or a program that takes its arguments (default: ffmpeg, from PATH)")
        ->type_name("PROGRAM");
    command->add_flag("--force", request.mayReplace, "Replace an output that exists");
    command->add_flag("--keep", request.keepsHalf, "Keep what a failed conversion has written");
    command->footer(kFooter);
    command->callback(
        [arguments, &global] { ConvertFile(*arguments, FindProfilesFolder(global.folder).path); });
}

// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <charconv>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Commands.h"
#include "Console.h"
#include "EstimateViews.h"
#include "Failure.h"
#include "Folders.h"
#include "Json.h"
#include "Printable.h"
#include "ProfileLoading.h"
#include "Sizes.h"
#include "kmText.h"

namespace {

constexpr std::int64_t kMicroseconds = 1'000'000;

constexpr const char* kFooter =
    R"(The estimate follows the profile's own settings. Pictures are counted over the profile's recording time
(pt) instead of the input's duration. A stream without a bit rate ("Auto", lossless codecs), and pictures
over the whole input ("Full"), are unknown.

--explain shows the bit rate that counted for each stream, where it came from, and what the size is worth:
"exact" is fixed by numbers, "bounded" a bit rate that the encoder keeps to on average, "rough" a guess,
because nothing holds the encoder to it.

--fit prints the highest of the profile's candidates for "b", the highest bit rate of any, and what the size
is then worth. SIZE is in bytes, or in units of 1024 bytes (K), 1024 K (M) or 1024 M (G). Exit status 1 when
nothing fits.

Examples:
  kmprofile estimate "Holiday Clips" --duration 00:10:00 --explain
  kmprofile estimate "Holiday Clips" --duration 600 --no-audio
  kmprofile estimate "Holiday Clips" --duration 01:30:00 --fit 700M)";

struct EstimateArguments {
    std::string id;
    std::string duration;
    std::optional<std::string> source;
    std::optional<std::string> fit;
    bool explain = false;
    bool noAudio = false;
    bool asJson = false;
};

struct FrameSize {
    int width = 0;
    int height = 0;
};

// Digits and nothing else, or -1.
template <typename Integer>
Integer ReadDigits(std::string_view text) {
    Integer number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end && text.front() != '-' ? number : Integer{-1};
}

std::int64_t ReadDuration(const std::string& text) {
    int seconds = 0;
    if (text.find(':') != std::string::npos) {
        if (kmProfileItem::IsValidTime(kmTextFromUtf8(text).c_str(), &seconds) == 1)
            return seconds * kMicroseconds;
    } else if (const auto whole = ReadDigits<std::int64_t>(text);
               whole >= 0 && whole <= std::numeric_limits<std::int64_t>::max() / kMicroseconds) {
        return whole * kMicroseconds;
    }
    throw UsageFailure("--duration: " + Quoted(text) + " is neither h:m:s nor whole seconds");
}

FrameSize ReadFrameSize(const std::string& text) {
    const std::string_view all = text;
    const std::size_t separator = all.find('x');
    if (separator != std::string_view::npos) {
        const FrameSize size{ReadDigits<int>(all.substr(0, separator)),
                             ReadDigits<int>(all.substr(separator + 1))};
        if (size.width > 0 && size.height > 0) return size;
    }
    throw UsageFailure("--source: " + Quoted(text) + " is no frame size such as 1920x1080");
}

bool NeedsSourceSize(const kmProfile& profile) {
    FrameSize own;
    profile.GetSize(own.width, own.height);
    return profile.ItemExist(KM_TEXT("pcodec")) && (own.width == 0 || own.height == 0);
}

std::int64_t ReadWantedSize(const std::string& text) {
    if (const std::optional<std::int64_t> bytes = ReadSize(text)) return *bytes;
    throw UsageFailure("--fit: " + Quoted(text) + " is no size such as 700M, 4.7G, 1500K or 734003200");
}

// The reason why no video bit rate fits. A profile that none fits however large the output may be has no
// video.
Failure NothingFits(const EstimateArguments& arguments, const kmProfile& profile, std::int64_t bytes,
                    std::int64_t duration) {
    const bool withAudio = !arguments.noAudio;
    constexpr std::int64_t kUnlimited = std::numeric_limits<std::int64_t>::max();
    if (kmFitVideoBitrate(profile, kUnlimited, duration, withAudio).highest == 0)
        return Failure(Quoted(arguments.id) + " makes no video that has a bit rate");
    const std::int64_t audio = kmExplainOutputFileSize(profile, duration, withAudio, 0, 0).audio.bytes;
    return Failure("no video bit rate fits into " + SizeText(bytes) +
                   (audio == 0 ? "" : ": the audio takes " + SizeText(audio)));
}

void Fit(const EstimateArguments& arguments, const kmString& folder) {
    const std::int64_t duration = ReadDuration(arguments.duration);
    const std::int64_t bytes = ReadWantedSize(*arguments.fit);
    if (duration == 0) throw UsageFailure("--duration: --fit needs one above 0");
    const kmProfile profile = LoadNamedProfile(folder, arguments.id);
    const kmVideoBitrateFit fit = kmFitVideoBitrate(profile, bytes, duration, !arguments.noAudio);
    if (fit.highest == 0) throw NothingFits(arguments, profile, bytes, duration);
    (arguments.asJson ? PrintFitAsJson : PrintFit)(fit);
}

void Estimate(const EstimateArguments& arguments, const kmString& folder) {
    const std::int64_t duration = ReadDuration(arguments.duration);
    const FrameSize source = arguments.source ? ReadFrameSize(*arguments.source) : FrameSize();
    const kmProfile profile = LoadNamedProfile(folder, arguments.id);
    if (!arguments.source && NeedsSourceSize(profile)) {
        throw UsageFailure(Quoted(arguments.id) + " keeps the source's frame size: give it with --source");
    }
    const kmSizeEstimate estimate =
        kmExplainOutputFileSize(profile, duration, !arguments.noAudio, source.width, source.height);
    if (arguments.asJson) return PrintEstimateAsJson(estimate);
    (arguments.explain ? PrintBreakdown : PrintEstimate)(estimate);
}

}  // namespace

void AddEstimateCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<EstimateArguments>();
    CLI::App* command = app.add_subcommand("estimate", "Estimate the size of a conversion's output");
    command->add_option("ID", arguments->id, "The profile")->required();
    command->add_option("--duration", arguments->duration, "The input's duration, h:m:s or whole seconds")
        ->type_name("TIME")
        ->required();
    command
        ->add_option("--source", arguments->source,
                     "The input's frame size, for picture profiles that keep it, as 1920x1080")
        ->type_name("SIZE");
    command->add_flag("--no-audio", arguments->noAudio, "Leave the audio out");
    CLI::Option* explain =
        command->add_flag("--explain", arguments->explain, "Show the estimate stream by stream");
    command
        ->add_option("--fit", arguments->fit,
                     "Print the highest video bit rates with which the output stays within SIZE instead")
        ->type_name("SIZE")
        ->excludes(explain);
    AddJsonFlag(*command, arguments->asJson);
    command->footer(kFooter);
    command->callback([arguments, &global] {
        (arguments->fit ? Fit : Estimate)(*arguments, FindProfilesFolder(global.folder).path);
    });
}

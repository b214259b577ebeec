#include <CLI/CLI.hpp>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Paths.h"
#include "Printable.h"
#include "ProfileLoading.h"
#include "kmFolders.h"
#include "kmText.h"

namespace {

constexpr std::int64_t kMicroseconds = 1'000'000;

struct EstimateArguments {
    std::string id;
    std::string duration;
    std::optional<std::string> source;
    bool noAudio = false;
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

std::string GroupDigits(std::int64_t number) {
    std::string digits = std::to_string(number);
    const std::ptrdiff_t first = number < 0 ? 1 : 0;
    for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > first; at -= 3) {
        digits.insert(static_cast<std::size_t>(at), 1, ' ');
    }
    return digits;
}

// Empty below one kibibyte, where the bytes are readable enough.
std::string InLargeUnits(std::int64_t bytes) {
    constexpr const char* kUnits[] = {"KiB", "MiB", "GiB", "TiB", "PiB", "EiB"};
    double size = static_cast<double>(bytes) / 1024;
    if (size < 1) return {};
    std::size_t unit = 0;
    for (; size >= 1024 && unit + 1 < std::size(kUnits); ++unit) size /= 1024;
    char text[32];
    std::snprintf(text, sizeof text, " (%.1f %s)", size, kUnits[unit]);
    return text;
}

void Estimate(const EstimateArguments& arguments, const kmString& folder) {
    const std::int64_t duration = ReadDuration(arguments.duration);
    const FrameSize source = arguments.source ? ReadFrameSize(*arguments.source) : FrameSize();
    const kmProfile profile = LoadProfile(folder, kmPathFromUtf8(arguments.id));
    if (!arguments.source && NeedsSourceSize(profile)) {
        throw UsageFailure(Quoted(arguments.id) + " keeps the source's frame size: give it with --source");
    }
    const std::int64_t bytes =
        profile.CalcOutputFileSize(duration, !arguments.noAudio, source.width, source.height);
    Print(GroupDigits(bytes) + (bytes == 1 ? " byte" : " bytes") + InLargeUnits(bytes) + '\n');
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
    command->footer(
        R"(The estimate follows the profile's own settings; a bit rate of "Auto" counts as 0. Pictures are
counted over the profile's recording time (pt) instead of the input's duration; "Full" counts as 0.

Examples:
  kmprofile estimate "Holiday Clips" --duration 00:10:00
  kmprofile estimate "Holiday Clips" --duration 600 --no-audio)");
    command->callback([arguments, &global] { Estimate(*arguments, ProfilesFolder(global.folder)); });
}

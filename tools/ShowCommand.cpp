// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "Console.h"
#include "Paths.h"
#include "Printable.h"
#include "ProfileLoading.h"
#include "Table.h"
#include "Views.h"
#include "kmFolders.h"
#include "kmText.h"

namespace {

constexpr const char* kFromSource = "as the source";

const char* TypeName(PROFILE_TYPE type) {
    switch (type) {
        case PROFILE_TYPE_VIDEO:
            return "video";
        case PROFILE_TYPE_AUDIO:
            return "audio";
        case PROFILE_TYPE_PICTURE:
            return "still pictures";
        case PROFILE_TYPE_UNKNOWN:
            break;
    }
    return "unknown";
}

// "h:mm:ss", with a fraction where there is one.
std::string TimeText(std::int64_t microseconds) {
    const auto total = std::abs(microseconds);
    const auto seconds = total / 1'000'000;
    char text[64];
    const int length =
        std::snprintf(text, sizeof text, "%s%lld:%02lld:%02lld.%06lld", microseconds < 0 ? "-" : "",
                      static_cast<long long>(seconds / 3600), static_cast<long long>(seconds / 60 % 60),
                      static_cast<long long>(seconds % 60), static_cast<long long>(total % 1'000'000));
    std::string time(text, static_cast<std::size_t>(length));
    time.erase(time.find_last_not_of('0') + 1);
    if (time.back() == '.') time.pop_back();
    return time;
}

std::string SizeText(const kmProfile& profile) {
    std::int32_t width = 0;
    std::int32_t height = 0;
    if (!profile.GetSize(width, height)) {
        return "not readable: " + Quoted(kmUtf8FromText(profile.GetItemValue(KM_TEXT("s"))));
    }
    if (width == 0) return kFromSource;
    return std::to_string(width) + " x " + std::to_string(height);
}

std::string AspectText(double ratio) {
    if (ratio == 0.0) return kFromSource;
    char text[32];
    std::snprintf(text, sizeof text, "%.5g", ratio);
    return text;
}

void PrintHeader(const kmProfile& profile) {
    std::vector<TableRow> rows = {
        {{"ID", kmUtf8FromPath(profile.GetID())}},
        {{"Short name", kmUtf8FromText(profile.GetSName())}},
        {{"Format", kmUtf8FromText(profile.GetFormat())}},
        {{"Extension", kmUtf8FromText(profile.GetExtName())}},
        {{"Belongs to", profile.IsSystem() ? "system" : "user"}},
        {{"Type", TypeName(profile.GetType())}},
    };
    const auto has = [&profile](const kmChar* id) { return profile.ItemExist(id); };
    if (has(KM_TEXT("s"))) rows.push_back({{"Frame size", SizeText(profile)}});
    if (has(KM_TEXT("zoom"))) rows.push_back({{"Zoom mode", std::to_string(profile.GetZoom())}});
    if (has(KM_TEXT("aspect"))) rows.push_back({{"Aspect ratio", AspectText(profile.GetAspectratio())}});
    if (has(KM_TEXT("ss"))) rows.push_back({{"Start", TimeText(profile.GetStartTime())}});
    if (has(KM_TEXT("t")) || has(KM_TEXT("pt"))) {
        const std::int64_t duration = profile.GetDuration();
        rows.push_back({{"Duration", duration == 0 ? "whole input" : TimeText(duration)}});
    }
    PrintTable(rows, 0);
}

using Texts = std::vector<kmString>;
using CandidateText = std::string (*)(const Texts& display, const Texts& values, std::size_t index);

// The text shown for the candidate; the lists of a damaged file may differ in length.
std::string ShownText(const Texts& display, const Texts& values, std::size_t index) {
    return kmUtf8FromText(index < display.size() ? display[index] : values[index]);
}

std::string ShownTextAndValue(const Texts& display, const Texts& values, std::size_t index) {
    return TextAndValue(ShownText(display, values, index), kmUtf8FromText(values[index]));
}

std::vector<std::string> Choices(const Texts& display, const Texts& values, CandidateText text) {
    std::vector<std::string> choices;
    choices.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) choices.push_back(text(display, values, i));
    return choices;
}

TableRow SimpleRow(const kmProfileItem& item) {
    const Texts& display = item.GetSimpleCandidatesDisplay();
    const Texts& values = item.GetSimpleCandidatesValue();
    TableRow row = {{kmUtf8FromText(item.GetSimpleName()), kmUtf8FromText(item.GetValue()),
                     item.GetSimpleReadOnly() ? kReadOnly : ""}};
    if (!item.GetSimpleHasCandidates()) return row;
    const auto current = static_cast<std::size_t>(item.GetSimpleItemIndex());  // -1 becomes too large
    if (current < values.size()) row.cells[1] = ShownText(display, values, current);
    row.list = Choices(display, values, ShownText);
    return row;
}

TableRow AdvancedRow(const kmProfileItem& item) {
    TableRow row = {{kmUtf8FromText(item.GetAdvName()), kmUtf8FromText(item.GetID()),
                     kmUtf8FromText(item.GetValue()), item.GetAdvReadOnly() ? kReadOnly : ""}};
    if (item.GetAdvHasCandidates()) {
        row.list = Choices(item.GetAdvCandidatesDisplay(), item.GetAdvCandidatesValue(), ShownTextAndValue);
    }
    return row;
}

void Show(const kmString& id, const kmString& folder) {
    const kmProfile profile = LoadProfile(folder, id);
    PrintHeader(profile);
    PrintSimpleView(profile.GetSimpleItems(), SimpleRow);
    PrintAdvancedView(profile.GetProfileItems(), AdvancedRow);
}

}  // namespace

void AddShowCommand(CLI::App& app, const GlobalOptions& global) {
    auto id = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("show", "Show a profile and its settings");
    command->add_option("ID", *id, "The profile")->required();
    command->footer(
        R"(Choices follow each setting; in brackets the value to set, where it differs from the text.

Example:
  kmprofile show "Holiday Clips")");
    command->callback([id, &global] { Show(kmPathFromUtf8(*id), ProfilesFolder(global.folder)); });
}

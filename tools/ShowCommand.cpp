// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
#include "Console.h"
#include "Folders.h"
#include "Json.h"
#include "Printable.h"
#include "ProfileLoading.h"
#include "Table.h"
#include "Views.h"
#include "kmFolders.h"
#include "kmProfileFile.h"
#include "kmProfileID.h"
#include "kmText.h"

namespace {

struct ShowArguments {
    std::string id;
    bool asJson = false;
};

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

std::string PathOf(const kmProfile& profile) {
    return kmUtf8FromPath(kmProfilePath(kmFolderOf(profile), profile.GetID()));
}

void PrintHeader(const kmProfile& profile) {
    const kmProfileHeader header = kmHeaderOf(profile);
    std::vector<TableRow> rows = {
        {{"ID", kmUtf8FromPath(profile.GetID())}},
        {{"Name", kmUtf8FromText(header.name)}},
        {{"Description", kmUtf8FromText(header.desc)}},
        {{"Short name", kmUtf8FromText(profile.GetSName())}},
        {{"Format", kmUtf8FromText(profile.GetFormat())}},
        {{"Extension", kmUtf8FromText(profile.GetExtName())}},
        {{"Belongs to", OwnerName(profile.IsSystem())}},
        {{"File", PathOf(profile)}},
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

// The text shown for the candidate; the lists of a damaged file may differ in length.
std::string ShownText(const Texts& display, const Texts& values, std::size_t index) {
    return kmUtf8FromText(index < display.size() ? display[index] : values[index]);
}

std::vector<std::string> Choices(const Texts& display, const Texts& values) {
    std::vector<std::string> choices;
    choices.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        choices.push_back(TextAndValue(ShownText(display, values, i), kmUtf8FromText(values[i])));
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
    row.list = Choices(display, values);
    return row;
}

TableRow AdvancedRow(const kmProfileItem& item) {
    TableRow row = {{kmUtf8FromText(item.GetAdvName()), kmUtf8FromText(item.GetID()),
                     kmUtf8FromText(item.GetValue()), item.GetAdvReadOnly() ? kReadOnly : ""}};
    if (item.GetAdvHasCandidates())
        row.list = Choices(item.GetAdvCandidatesDisplay(), item.GetAdvCandidatesValue());
    return row;
}

Json JsonChoices(bool hasAny, const Texts& display, const Texts& values) {
    if (!hasAny) return {};
    Json choices = Json::array();
    for (std::size_t i = 0; i < values.size(); ++i)
        choices.push_back({{"text", ShownText(display, values, i)}, {"value", JsonText(values[i])}});
    return choices;
}

Json JsonOf(const kmProfileItem& item) {
    return {{"id", JsonText(item.GetID())},
            {"value", JsonText(item.GetValue())},
            {"advanced",
             {{"name", JsonText(item.GetAdvName())},
              {"group", JsonText(item.GetAdvGroup())},
              {"priority", item.GetAdvPriority()},
              {"readOnly", item.GetAdvReadOnly()},
              {"choices", JsonChoices(item.GetAdvHasCandidates(), item.GetAdvCandidatesDisplay(),
                                      item.GetAdvCandidatesValue())}}},
            {"simple",
             {{"name", JsonText(item.GetSimpleName())},
              {"priority", item.GetSimplePriority()},
              {"readOnly", item.GetSimpleReadOnly()},
              {"choices", JsonChoices(item.GetSimpleHasCandidates(), item.GetSimpleCandidatesDisplay(),
                                      item.GetSimpleCandidatesValue())}}}};
}

Json JsonOf(const kmProfile& profile) {
    const kmProfileHeader header = kmHeaderOf(profile);
    std::int32_t width = 0;
    std::int32_t height = 0;
    const bool hasSize = profile.GetSize(width, height) && width != 0;
    Json settings = Json::array();
    for (const kmProfileItem& item : profile.GetProfileItems()) settings.push_back(JsonOf(item));
    return {{"id", JsonPath(profile.GetID())},
            {"name", JsonText(header.name)},
            {"description", JsonText(header.desc)},
            {"shortName", JsonText(header.sName)},
            {"format", JsonText(header.format)},
            {"extension", JsonText(header.extName)},
            {"owner", OwnerName(profile.IsSystem())},
            {"file", PathOf(profile)},
            {"type", TypeName(profile.GetType())},
            {"width", hasSize ? Json(width) : Json()},
            {"height", hasSize ? Json(height) : Json()},
            {"zoom", profile.GetZoom()},
            {"aspectRatio", profile.GetAspectratio()},
            {"startMicroseconds", profile.GetStartTime()},
            {"durationMicroseconds", profile.GetDuration()},
            {"settings", std::move(settings)}};
}

void Show(const ShowArguments& arguments, const kmString& folder) {
    const kmProfile profile = LoadNamedProfile(folder, arguments.id);
    if (arguments.asJson) return PrintJson(JsonOf(profile));
    PrintHeader(profile);
    PrintSimpleView(profile.GetSimpleItems(), SimpleRow);
    PrintAdvancedView(profile.GetProfileItems(), AdvancedRow);
}

}  // namespace

void AddShowCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<ShowArguments>();
    CLI::App* command = app.add_subcommand("show", "Show a profile and its settings");
    command->add_option("ID", arguments->id, "The profile")->required();
    AddJsonFlag(*command, arguments->asJson);
    command->footer(
        R"(Choices follow each setting; in brackets the value to set, where it differs from the text.

Examples:
  kmprofile show "Holiday Clips"
  kmprofile show "Holiday Clips" --json)");
    command->callback([arguments, &global] { Show(*arguments, FindProfilesFolder(global.folder).path); });
}

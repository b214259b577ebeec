// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
#include "CommonSettings.h"
#include "Console.h"
#include "Failure.h"
#include "Paths.h"
#include "Printable.h"
#include "ProfileLoading.h"
#include "Refusals.h"
#include "Settings.h"
#include "Table.h"
#include "Views.h"
#include "kmFolders.h"
#include "kmProfileFile.h"
#include "kmProfileList.h"
#include "kmText.h"

namespace {

constexpr const char* kDiffers = "(differs)";

using Selection = std::vector<kmProfile*>;

struct EditRequest {
    std::vector<kmString> ids;
    std::vector<Setting> settings;
};

// An ID may look like a setting, so that profiles come first.
EditRequest ReadRequest(const std::vector<std::string>& words, kmManager& catalogue) {
    EditRequest request;
    for (const std::string& word : words) {
        const kmString named = kmPathFromUtf8(word);
        if (word.find('=') != std::string::npos && !IsProfile(catalogue, named)) {
            request.settings.push_back(ReadSetting(word));
            continue;
        }
        const kmString id = KnownID(catalogue, named);
        const bool isNew = std::find(request.ids.begin(), request.ids.end(), id) == request.ids.end();
        if (isNew) request.ids.push_back(id);
    }
    if (request.ids.empty()) throw UsageFailure("no profile given");
    return request;
}

TableRow SimpleRow(const CommonSetting& common, const kmProfileItem& item) {
    TableRow row = {{kmUtf8FromText(item.GetSimpleName()),
                     common.differs ? kDiffers : kmUtf8FromText(common.value),
                     item.GetSimpleReadOnly() ? kReadOnly : ""}};
    if (!item.GetSimpleHasCandidates()) return row;
    if (common.simpleText) row.cells[1] = kmUtf8FromText(*common.simpleText);
    for (const kmString& text : item.GetSimpleCandidatesDisplay()) row.list.push_back(kmUtf8FromText(text));
    return row;
}

// The common texts, with the value to set where that means the same in all profiles.
std::vector<std::string> CommonChoices(const CommonSetting& common, const kmProfileItem& item) {
    std::map<kmString, kmString> valueOfText;
    for (const kmString& value : item.GetAdvCandidatesValue()) {
        const auto text = common.textOfValue.find(value);
        if (text != common.textOfValue.end()) valueOfText.emplace(text->second, value);
    }
    std::vector<std::string> choices;
    for (const kmString& text : item.GetAdvCandidatesDisplay()) {
        const auto value = valueOfText.find(text);
        const std::string shown = kmUtf8FromText(text);
        choices.push_back(value == valueOfText.end() ? shown
                                                     : TextAndValue(shown, kmUtf8FromText(value->second)));
    }
    return choices;
}

TableRow AdvancedRow(const CommonSetting& common, const kmProfileItem& item) {
    const std::string value = kmUtf8FromText(common.value);
    const std::string shown = kmUtf8FromText(common.text);
    TableRow row = {{kmUtf8FromText(item.GetAdvName()), kmUtf8FromText(item.GetID()),
                     common.differs ? kDiffers : value, common.isReadOnly ? kReadOnly : ""}};
    if (!value.empty() && !shown.empty()) row.cells[2] = TextAndValue(shown, value);
    if (item.GetAdvHasCandidates()) row.list = CommonChoices(common, item);
    return row;
}

void ShowCommonView(const Selection& profiles) {
    std::vector<TableRow> rows;
    rows.reserve(profiles.size());
    for (const kmProfile* profile : profiles) {
        rows.push_back({{kmUtf8FromPath(profile->GetID()), OwnerName(profile->IsSystem())}});
    }
    PrintTable(rows, 0);
    const std::vector<kmProfileItem> all = kmProfileList::GetAdvanceItems(profiles);
    if (all.empty()) Print("\nNo setting is common to them.\n");
    CommonSettings settings(profiles);
    PrintSimpleView(kmProfileList::GetSimpleItems(profiles),
                    [&](const kmProfileItem& item) { return SimpleRow(settings.Of(item.GetID()), item); });
    PrintAdvancedView(
        all, [&](const kmProfileItem& item) { return AdvancedRow(settings.Of(item.GetID()), item); });
}

void RequireUserProfiles(const Selection& profiles) {
    for (const kmProfile* profile : profiles) {
        if (!profile->IsSystem()) continue;
        throw Failure(QuotedID(profile->GetID()) +
                      " is a system profile, which is never changed; save a copy with kmprofile set --as");
    }
}

void SetInAll(const Selection& profiles, const Setting& setting) {
    kmString message;
    if (!kmProfileList::IsValidValue(message, profiles, setting.name.c_str(), setting.value.c_str())) {
        for (const kmProfile* profile : profiles) RequireAcceptable(*profile, setting);  // says which and why
    }
    kmProfileList::SetItemValue(profiles, setting.name.c_str(), setting.value.c_str());
}

// Those that are saved stay so when a later one fails; the output tells which.
void SaveAll(const Selection& profiles) {
    for (kmProfile* profile : profiles) {
        const kmString id = profile->GetID();
        const kmString folder = kmFolderOf(*profile);
        const PROFILE_EERROR error = profile->Save(id, /*overwrite=*/true);
        if (error != PROFILE_ERROR_NONE) throw Failure(WhyNotSaved(error, {id, id, folder}));
        Print("saved " + QuotedID(id) + " in " + Printable(kmUtf8FromPath(folder)) + '\n');
    }
}

void Edit(const std::vector<std::string>& words, const kmString& folder) {
    const EditRequest request = ReadRequest(words, LoadCatalogue(folder));
    std::vector<kmProfile> loaded;
    loaded.reserve(request.ids.size());
    for (const kmString& id : request.ids) loaded.push_back(LoadProfile(folder, id));
    Selection profiles;
    profiles.reserve(loaded.size());
    for (kmProfile& profile : loaded) profiles.push_back(&profile);
    if (request.settings.empty()) return ShowCommonView(profiles);
    RequireUserProfiles(profiles);
    for (const Setting& setting : request.settings) SetInAll(profiles, setting);
    SaveAll(profiles);
}

}  // namespace

void AddEditCommand(CLI::App& app, const GlobalOptions& global) {
    auto words = std::make_shared<std::vector<std::string>>();
    CLI::App* command = app.add_subcommand("edit", "Show or change several profiles as one");
    command->add_option("ID|NAME=VALUE", *words, "The profiles, and what to change in all of them")
        ->type_name("")
        ->required();
    command->footer(
        R"(Without a change it shows what all of them have, and the choices that all of them offer. With one, every
profile is saved under its own ID, if the value is acceptable for all and none is a system profile. What has
a "=" and is no profile's ID is a change.

Examples:
  kmprofile edit "Holiday Clips" "Phone 240p"
  kmprofile edit "Holiday Clips" "Phone 240p" ab=128)");
    command->callback([words, &global] { Edit(*words, ProfilesFolder(global.folder)); });
}

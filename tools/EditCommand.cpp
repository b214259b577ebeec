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
#include "Folders.h"
#include "Json.h"
#include "Lookup.h"
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

struct EditArguments {
    std::vector<std::string> words;
    bool dryRun = false;
    bool asJson = false;
};

struct EditRequest {
    std::vector<kmString> ids;
    std::vector<Setting> settings;
};

bool IsProfile(const kmString& folder, const std::string& name) {
    try {
        FindProfileID(folder, name);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

// An ID may look like a setting, so that profiles come first.
EditRequest ReadRequest(const std::vector<std::string>& words, const kmString& folder) {
    const std::vector<kmString> ids = ListIDs(folder);
    EditRequest request;
    for (const std::string& word : words) {
        const bool isID = std::binary_search(ids.begin(), ids.end(), kmPathFromUtf8(word));
        if (word.find('=') != std::string::npos && !isID && !IsProfile(folder, word)) {
            request.settings.push_back(ReadSetting(word));
            continue;
        }
        const kmString id = isID ? kmPathFromUtf8(word) : FindProfileID(folder, word);
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
    const std::vector<kmString>& texts = item.GetSimpleCandidatesDisplay();
    const std::vector<kmString>& values = item.GetSimpleCandidatesValue();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string text = kmUtf8FromText(texts[i]);
        row.list.push_back(i < values.size() ? TextAndValue(text, kmUtf8FromText(values[i])) : text);
    }
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
    PrintTable(rows, 0, {{"ID", "Owner"}});
    const std::vector<kmProfileItem> all = kmProfileList::GetAdvanceItems(profiles);
    if (all.empty()) Print("\nNo setting is common to them.\n");
    CommonSettings settings(profiles);
    PrintSimpleView(kmProfileList::GetSimpleItems(profiles),
                    [&](const kmProfileItem& item) { return SimpleRow(settings.Of(item.GetID()), item); });
    PrintAdvancedView(
        all, [&](const kmProfileItem& item) { return AdvancedRow(settings.Of(item.GetID()), item); });
}

Json JsonOf(const CommonSetting& common, const kmProfileItem& item) {
    Json choices = Json::array();
    for (const kmString& value : item.GetAdvCandidatesValue()) {
        const auto text = common.textOfValue.find(value);
        choices.push_back({{"text", text == common.textOfValue.end() ? Json("") : JsonText(text->second)},
                           {"value", JsonText(value)}});
    }
    return {{"id", JsonText(item.GetID())},
            {"name", JsonText(item.GetAdvName())},
            {"group", JsonText(item.GetAdvGroup())},
            {"value", common.differs ? Json() : JsonText(common.value)},
            {"differs", common.differs},
            {"readOnly", common.isReadOnly},
            {"choices", item.GetAdvHasCandidates() ? std::move(choices) : Json()}};
}

void PrintCommonJson(const Selection& profiles) {
    Json json = {{"profiles", Json::array()}, {"settings", Json::array()}};
    for (const kmProfile* profile : profiles) json["profiles"].push_back(JsonPath(profile->GetID()));
    CommonSettings settings(profiles);
    for (const kmProfileItem& item : kmProfileList::GetAdvanceItems(profiles))
        json["settings"].push_back(JsonOf(settings.Of(item.GetID()), item));
    PrintJson(json);
}

void RequireUserProfiles(const Selection& profiles) {
    for (const kmProfile* profile : profiles) {
        if (!profile->IsSystem()) continue;
        throw Failure(QuotedID(profile->GetID()) +
                      " is a system profile, which is never changed; save a copy with kmprofile set --as");
    }
}

// In all or in none: a shown text may stand for another value in each.
void SetInAll(const Selection& profiles, const Setting& setting, bool dryRun) {
    std::vector<Setting> meant;
    RequireOneLine(setting);
    for (const kmProfile* profile : profiles) meant.push_back(Interpret(*profile, setting));
    for (std::size_t i = 0; i < profiles.size(); ++i) {
        if (dryRun) PrintChange(*profiles[i], meant[i]);
        WarnAbout(*profiles[i], meant[i]);
        profiles[i]->SetItemValue(meant[i].name.c_str(), meant[i].value.c_str());
    }
}

// Those that are saved stay so when a later one fails; the output tells which.
void SaveAll(const Selection& profiles, bool dryRun) {
    for (kmProfile* profile : profiles) {
        const kmString id = profile->GetID();
        const kmString folder = kmFolderOf(*profile);
        const PROFILE_EERROR error = dryRun ? PROFILE_ERROR_NONE : profile->Save(id, /*overwrite=*/true);
        if (error != PROFILE_ERROR_NONE) throw Failure(WhyNotSaved(error, {id, id, folder}));
        Print((dryRun ? "would save " : "saved ") + QuotedID(id) + " in " +
              Printable(kmUtf8FromPath(folder)) + '\n');
    }
}

void Change(const Selection& profiles, const std::vector<Setting>& settings, bool dryRun) {
    RequireUserProfiles(profiles);
    for (const Setting& setting : settings) SetInAll(profiles, setting, dryRun);
    SaveAll(profiles, dryRun);
}

void Edit(const EditArguments& arguments, const kmString& folder) {
    LoadCatalogue(folder);
    const EditRequest request = ReadRequest(arguments.words, folder);
    std::vector<kmProfile> loaded;
    loaded.reserve(request.ids.size());
    for (const kmString& id : request.ids) loaded.push_back(LoadProfile(folder, id));
    Selection profiles;
    profiles.reserve(loaded.size());
    for (kmProfile& profile : loaded) profiles.push_back(&profile);
    if (request.settings.empty() && arguments.dryRun) throw UsageFailure("--dry-run: no change is given");
    if (!request.settings.empty() && arguments.asJson) throw UsageFailure("--json: a change prints no data");
    if (!request.settings.empty()) return Change(profiles, request.settings, arguments.dryRun);
    (arguments.asJson ? PrintCommonJson : ShowCommonView)(profiles);
}

}  // namespace

void AddEditCommand(CLI::App& app, const GlobalOptions& global) {
    auto arguments = std::make_shared<EditArguments>();
    CLI::App* command = app.add_subcommand("edit", "Show or change several profiles as one");
    command->add_option("ID|NAME=VALUE", arguments->words, "The profiles, and what to change in all of them")
        ->type_name("")
        ->required();
    command->add_flag("--dry-run", arguments->dryRun, "Say what would change, and save nothing");
    AddJsonFlag(*command, arguments->asJson);
    command->footer(
        R"(Without a change it shows what all of them have, and the choices that all of them offer. With one, every
profile is saved under its own ID, if the value is acceptable for all and none is a system profile. What has
a "=" and is no profile's ID is a change. A text that is shown for a choice stands for the value that it has in
each profile.

Examples:
  kmprofile edit "Holiday Clips" "Phone 240p"
  kmprofile edit "Holiday Clips" "Phone 240p" ab=128)");
    command->callback([arguments, &global] { Edit(*arguments, FindProfilesFolder(global.folder).path); });
}

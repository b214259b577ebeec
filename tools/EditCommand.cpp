#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "Catalogue.h"
#include "Commands.h"
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

// Empty for settings that are empty everywhere.
std::string CommonValue(const Selection& profiles, const kmChar* id) {
    const kmString common = kmProfileList::GetItemValue(profiles, id);
    const bool differs =
        common.empty() && std::any_of(profiles.begin(), profiles.end(),
                                      [id](const auto* one) { return !one->GetItemValue(id).empty(); });
    return differs ? kDiffers : kmUtf8FromText(common);
}

TableRow SimpleRow(const Selection& profiles, const kmProfileItem& item) {
    const kmString id = item.GetID();
    const std::vector<kmString>& display = item.GetSimpleCandidatesDisplay();
    TableRow row = {{kmUtf8FromText(item.GetSimpleName()), CommonValue(profiles, id.c_str()),
                     item.GetSimpleReadOnly() ? kReadOnly : ""}};
    if (!item.GetSimpleHasCandidates()) return row;
    const std::int32_t index = kmProfileList::GetSimpleItemValue(profiles, id.c_str());
    if (index >= 0) row.cells[1] = kmUtf8FromText(display[static_cast<std::size_t>(index)]);
    std::transform(display.begin(), display.end(), std::back_inserter(row.list),
                   [](const kmString& text) { return kmUtf8FromText(text); });
    return row;
}

// The common texts, with the value to set where that means the same in all profiles.
std::vector<std::string> CommonChoices(const Selection& profiles, const kmProfileItem& item) {
    const kmString id = item.GetID();
    std::vector<std::string> choices;
    for (const kmString& text : item.GetAdvCandidatesDisplay()) {
        const std::vector<kmString>& values = item.GetAdvCandidatesValue();
        const auto value = std::find_if(values.begin(), values.end(), [&](const kmString& candidate) {
            return kmProfileList::GetDisplayValue(profiles, id.c_str(), candidate.c_str()) == text;
        });
        const std::string shown = kmUtf8FromText(text);
        choices.push_back(value == values.end() ? shown : TextAndValue(shown, kmUtf8FromText(*value)));
    }
    return choices;
}

TableRow AdvancedRow(const Selection& profiles, const kmProfileItem& item) {
    const kmString id = item.GetID();
    const kmString value = kmProfileList::GetItemValue(profiles, id.c_str());
    const std::string shown =
        kmUtf8FromText(kmProfileList::GetDisplayValue(profiles, id.c_str(), value.c_str()));
    TableRow row = {{kmUtf8FromText(item.GetAdvName()), kmUtf8FromText(id), CommonValue(profiles, id.c_str()),
                     kmProfileList::IsReadOnly(profiles, id.c_str()) ? kReadOnly : ""}};
    if (!value.empty() && !shown.empty()) row.cells[2] = TextAndValue(shown, kmUtf8FromText(value));
    if (item.GetAdvHasCandidates()) row.list = CommonChoices(profiles, item);
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
    PrintSimpleView(kmProfileList::GetSimpleItems(profiles),
                    [&profiles](const kmProfileItem& item) { return SimpleRow(profiles, item); });
    PrintAdvancedView(all, [&profiles](const kmProfileItem& item) { return AdvancedRow(profiles, item); });
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

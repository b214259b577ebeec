// SPDX-License-Identifier: MIT
#include "Settings.h"

#include <algorithm>

#include "Selection.h"
#include "Text.h"
#include "kmProfileList.h"

namespace {

// Texts of several profiles count where all of them mean the same value; those of "zoom", which the library
// counts from 1, by their position.
void AddChoices(Setting& setting, const std::vector<kmProfile*>& profiles, const kmProfileItem& item) {
    const std::vector<kmString>& texts = item.GetAdvCandidatesDisplay();
    const std::vector<kmString>& values = item.GetAdvCandidatesValue();
    const kmString id = item.GetID();
    const bool byPosition = texts.size() == values.size() && (profiles.size() == 1 || id == KM_TEXT("zoom"));
    for (std::size_t i = 0; i < values.size(); ++i) {
        const kmString text =
            byPosition ? texts[i] : kmProfileList::GetDisplayValue(profiles, id.c_str(), values[i].c_str());
        if (!text.empty()) setting.choices.append({ToQt(text), ToQt(values[i])});
    }
}

void MakeSimple(Setting& setting, Selection& selection, const kmProfileItem& item) {
    const kmString id = item.GetID();
    setting.label = ToQt(item.GetSimpleName());
    setting.priority = item.GetSimplePriority();
    setting.isReadOnly = std::ranges::any_of(selection.Profiles(), [&id](kmProfile* profile) {
        return profile->GetProfileItem(id.c_str())->GetSimpleReadOnly();
    });
    if (!item.GetSimpleHasCandidates()) return;
    // By position: one text may stand for another value in each profile.
    setting.isTyped = false;
    const int current = kmProfileList::GetSimpleItemValue(selection.Profiles(), id.c_str());
    setting.value = current < 0 ? QString() : QString::number(current);
    for (const kmString& text : item.GetSimpleCandidatesDisplay())
        setting.choices.append({ToQt(text), QString::number(setting.choices.size())});
    setting.enter = [&selection, id](const QString& at) { return selection.SetChoice(id, at.toInt()); };
}

void MakeAdvanced(Setting& setting, Selection& selection, const kmProfileItem& item) {
    const kmString id = item.GetID();
    setting.label = ToQt(item.GetAdvName().empty() ? id : item.GetAdvName());
    setting.section = ToQt(item.GetAdvGroup());
    setting.priority = item.GetAdvPriority();
    setting.isReadOnly = kmProfileList::IsReadOnly(selection.Profiles(), id.c_str());
    if (!item.GetAdvHasCandidates()) return;
    // The library has a rule for exactly the options that users type freely, and no rule takes this text.
    kmString ignored;
    setting.isTyped = !kmProfileItem::Check(ignored, id.c_str(), KM_TEXT("?"));
    AddChoices(setting, selection.Profiles(), item);
}

}  // namespace

QList<Setting> SettingsOf(Selection& selection, bool isSimple) {
    const std::vector<kmProfile*>& profiles = selection.Profiles();
    QList<Setting> settings;
    for (const kmProfileItem& item :
         isSimple ? kmProfileList::GetSimpleItems(profiles) : kmProfileList::GetAdvanceItems(profiles)) {
        const kmString id = item.GetID();
        Setting& setting = settings.emplace_back();
        setting.id = ToQt(id);
        setting.value = ToQt(kmProfileList::GetItemValue(profiles, id.c_str()));
        setting.enter = [&selection, id](const QString& text) {
            return selection.SetValue(id, FromQt(text));
        };
        (isSimple ? MakeSimple : MakeAdvanced)(setting, selection, item);
        setting.isReadOnly = setting.isReadOnly || (!setting.isTyped && setting.choices.isEmpty());
    }
    std::ranges::stable_sort(settings, {}, &Setting::priority);
    return settings;
}

// SPDX-License-Identifier: MIT
#include "CommonSettings.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "kmProfileList.h"

namespace {

using Selection = std::vector<kmProfile*>;
using Texts = std::map<kmString, kmString>;

// The text that stands at each value's first position; none in lists of different length.
Texts TextsByValue(const kmProfileItem& item) {
    const std::vector<kmString>& texts = item.GetAdvCandidatesDisplay();
    const std::vector<kmString>& values = item.GetAdvCandidatesValue();
    Texts found;
    for (std::size_t i = 0; texts.size() == values.size() && i < values.size(); ++i) {
        found.emplace(values[i], texts[i]);
    }
    return found;
}

// Keeps what both say.
void Intersect(Texts& texts, const Texts& others) {
    std::erase_if(texts, [&others](const auto& text) {
        const auto other = others.find(text.first);
        return other == others.end() || other->second != text.second;
    });
}

// What all profiles show for the values of the first one's list. The library answers for one value at a time,
// and walks along the lists for each.
Texts CommonTexts(const Selection& profiles, const kmChar* id) {
    Texts texts = TextsByValue(*profiles.front()->GetProfileItem(id));
    for (const kmProfile* profile : profiles) Intersect(texts, TextsByValue(*profile->GetProfileItem(id)));
    return texts;
}

std::optional<kmString> SimpleText(const Selection& profiles, const kmChar* id) {
    const std::int32_t index = kmProfileList::GetSimpleItemValue(profiles, id);
    const std::vector<kmProfileItem> items = kmProfileList::GetSimpleItems(profiles);
    if (index < 0 || items.empty()) return std::nullopt;
    const std::vector<kmString>& texts = items.front().GetSimpleCandidatesDisplay();
    const auto position = static_cast<std::size_t>(index);
    return position < texts.size() ? std::optional(texts[position]) : std::nullopt;
}

CommonSetting Ask(const Selection& profiles, const kmChar* id) {
    CommonSetting setting;
    setting.value = kmProfileList::GetItemValue(profiles, id);
    setting.differs = setting.value.empty() &&
                      std::any_of(profiles.begin(), profiles.end(), [id](const kmProfile* profile) {
                          return !profile->GetItemValue(id).empty();
                      });
    setting.isReadOnly = kmProfileList::IsReadOnly(profiles, id);
    setting.text = kmProfileList::GetDisplayValue(profiles, id, setting.value.c_str());
    setting.simpleText = SimpleText(profiles, id);
    setting.textOfValue = CommonTexts(profiles, id);
    return setting;
}

}  // namespace

CommonSettings::CommonSettings(const std::vector<kmProfile*>& profiles) {
    for (const kmProfile* profile : profiles) {
        auto& items = m_items.emplace_back();
        for (const kmProfileItem& item : std::as_const(*profile).GetProfileItems()) {
            items.emplace(item.GetID(), &item);
        }
    }
}

const CommonSetting& CommonSettings::Of(const kmString& id) {
    const auto [setting, isNew] = m_settings.try_emplace(id);
    if (!isNew) return setting->second;
    std::vector<kmProfile> reduced(m_items.size());
    Selection profiles;
    for (std::size_t i = 0; i < reduced.size(); ++i) {
        const auto item = m_items[i].find(id);
        if (item != m_items[i].end()) reduced[i].GetProfileItems().push_back(*item->second);
        profiles.push_back(&reduced[i]);
    }
    setting->second = Ask(profiles, id.c_str());
    return setting->second;
}

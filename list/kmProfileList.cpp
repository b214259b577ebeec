// SPDX-License-Identifier: MIT
// The common lists keep, for each item of the first profile, the texts that every profile so far offers; the
// others are walked once each. Single questions look at one item of each profile.
#include "kmProfileList.h"

#include <algorithm>
#include <utility>

#include "list/TextIndex.h"
#include "text/Ascii.h"
#include "text/Numbers.h"

namespace {

const kmProfileItem* FindItem(const kmProfile& profile, const kmChar* id) {
    return profile.GetProfileItem(id);
}

// The first position of `value`; -1 when it is not in the list.
std::ptrdiff_t PositionOf(const std::vector<kmString>& list, kmStringView value) {
    const auto found = std::find(list.begin(), list.end(), value);
    return found == list.end() ? -1 : found - list.begin();
}

}  // namespace

// An item of the first profile and the texts of it that all profiles seen so far offer. Refers to the first
// profile, which does not change meanwhile.
class kmProfileList::CommonItem {
public:
    CommonItem(const kmProfileItem& item, View view)
        : m_item(&item), m_view(view), m_texts(DisplayOf(item, view).begin(), DisplayOf(item, view).end()) {}

    kmStringView ID() const { return m_item->m_id; }
    std::vector<kmString> Texts() const { return {m_texts.begin(), m_texts.end()}; }

    kmProfileItem Copy() const {
        kmProfileItem copy = *m_item;
        (m_view == View::Simple ? copy.m_simpleCandidatesDisplay : copy.m_advCandidatesDisplay).Entries() =
            Texts();
        return copy;
    }

    // Keeps the texts that `other` offers too.
    void Reduce(const kmProfileItem& other) {
        const std::vector<kmString>& offered = DisplayOf(other, m_view);
        if (std::equal(m_texts.begin(), m_texts.end(), offered.begin(), offered.end(), EqualExactly)) return;
        TextIndex index;
        index.Assign({offered.begin(), offered.end()});
        std::erase_if(m_texts, [&index](kmStringView text) { return index.Find(text) == TextIndex::kNone; });
    }

    static bool IsShown(const kmProfileItem& item, View view) {
        return view == View::Advanced || !item.m_simpleName.Text().empty();
    }

private:
    static const std::vector<kmString>& DisplayOf(const kmProfileItem& item, View view) {
        return (view == View::Simple ? item.m_simpleCandidatesDisplay : item.m_advCandidatesDisplay)
            .Entries();
    }

    const kmProfileItem* m_item;
    View m_view;
    std::vector<kmStringView> m_texts;
};

std::vector<kmProfileList::CommonItem> kmProfileList::FindCommonItems(const std::vector<kmProfile*>& profiles,
                                                                      View view) {
    std::vector<CommonItem> common;
    if (profiles.empty()) return common;
    for (const kmProfileItem& item : profiles.front()->GetProfileItems()) {
        if (CommonItem::IsShown(item, view)) common.emplace_back(item, view);
    }
    for (std::size_t i = 1; i < profiles.size(); ++i) {
        std::vector<const kmProfileItem*> shown;
        std::vector<kmStringView> ids;
        for (const kmProfileItem& item : profiles[i]->GetProfileItems()) {
            if (!CommonItem::IsShown(item, view)) continue;
            shown.push_back(&item);
            ids.push_back(item.m_id);
        }
        TextIndex index;
        index.Assign(std::move(ids));
        std::erase_if(common,
                      [&index](const CommonItem& item) { return index.Find(item.ID()) == TextIndex::kNone; });
        for (CommonItem& item : common) item.Reduce(*shown[index.Find(item.ID())]);
    }
    return common;
}

std::vector<kmProfileItem> kmProfileList::GetItems(const std::vector<kmProfile*>& profiles, View view) {
    std::vector<kmProfileItem> items;
    for (const CommonItem& item : FindCommonItems(profiles, view)) items.push_back(item.Copy());
    return items;
}

std::vector<kmProfileItem> kmProfileList::GetSimpleItems(const std::vector<kmProfile*>& profiles) {
    return GetItems(profiles, View::Simple);
}

std::vector<kmProfileItem> kmProfileList::GetAdvanceItems(const std::vector<kmProfile*>& profiles) {
    return GetItems(profiles, View::Advanced);
}

bool kmProfileList::IsValidValue(kmString& message, const std::vector<kmProfile*>& profiles, const kmChar* id,
                                 const kmChar* value) {
    if (id == nullptr || *id == 0) return false;
    return std::all_of(profiles.begin(), profiles.end(), [&](const kmProfile* profile) {
        return FindItem(*profile, id) != nullptr && kmProfileItem::Check(message, id, value);
    });
}

bool kmProfileList::IsReadOnly(const std::vector<kmProfile*>& profiles, const kmChar* id) {
    return std::any_of(profiles.begin(), profiles.end(), [id](const kmProfile* profile) {
        const kmProfileItem* item = FindItem(*profile, id);
        return item != nullptr && item->m_advReadOnly;
    });
}

bool kmProfileList::SetItemValue(const std::vector<kmProfile*>& profiles, const kmChar* id,
                                 const kmChar* value) {
    for (kmProfile* profile : profiles) profile->SetItemValue(id, value);
    return true;
}

kmString kmProfileList::GetItemValue(const std::vector<kmProfile*>& profiles, const kmChar* id) {
    const kmProfileItem* first = nullptr;
    for (const kmProfile* profile : profiles) {
        const kmProfileItem* item = FindItem(*profile, id);
        if (item == nullptr) return {};
        if (first == nullptr) first = item;
        if (!EqualNoCase(item->m_value, first->m_value)) return {};
    }
    return first == nullptr ? kmString() : first->m_value;
}

// The texts of the common simple item of that ID; false when there is none.
bool kmProfileList::FindCommonTexts(const std::vector<kmProfile*>& profiles, const kmChar* id,
                                    std::vector<kmString>& texts) {
    if (id == nullptr) return false;
    const std::vector<CommonItem> common = FindCommonItems(profiles, View::Simple);
    const auto found =
        std::find_if(common.begin(), common.end(),
                     [wanted = kmStringView(id)](const CommonItem& item) { return item.ID() == wanted; });
    if (found == common.end()) return false;
    texts = found->Texts();
    return true;
}

bool kmProfileList::SetSimpleItemValue(const std::vector<kmProfile*>& profiles, const kmChar* id, int index) {
    std::vector<kmString> texts;
    if (index < 0 || !FindCommonTexts(profiles, id, texts)) return false;
    if (static_cast<std::size_t>(index) >= texts.size()) return false;
    const kmString& text = texts[static_cast<std::size_t>(index)];
    for (kmProfile* profile : profiles) {
        const kmProfileItem* item = FindItem(*profile, id);
        const std::ptrdiff_t own =
            item == nullptr ? -1 : PositionOf(item->GetSimpleCandidatesDisplay(), text);
        if (own >= 0) profile->SetSimpleItemValue(id, static_cast<int>(own));
    }
    return true;
}

std::int32_t kmProfileList::GetSimpleItemValue(const std::vector<kmProfile*>& profiles, const kmChar* id) {
    std::vector<kmString> texts;
    if (!FindCommonTexts(profiles, id, texts)) return -1;
    std::ptrdiff_t common = -1;
    for (const kmProfile* profile : profiles) {
        const kmProfileItem* item = FindItem(*profile, id);
        if (item == nullptr) return -1;
        const int own = item->GetSimpleItemIndex();
        const std::vector<kmString>& display = item->GetSimpleCandidatesDisplay();
        if (own < 0 || static_cast<std::size_t>(own) >= display.size()) return -1;
        const std::ptrdiff_t position = PositionOf(texts, display[static_cast<std::size_t>(own)]);
        if (position < 0 || (common >= 0 && position != common)) return -1;
        common = position;
    }
    return static_cast<std::int32_t>(common);
}

kmString kmProfileList::GetZoomText(const std::vector<kmProfile*>& profiles, const kmChar* id,
                                    const kmChar* value) {
    const kmProfileItem* item = profiles.empty() ? nullptr : FindItem(*profiles.front(), id);
    if (item == nullptr) return {};
    const std::int32_t zoom = ReadInteger(value, 0);
    const std::vector<kmString>& display = item->GetAdvCandidatesDisplay();
    if (zoom < 1 || static_cast<std::size_t>(zoom) >= display.size()) return {};
    return display[static_cast<std::size_t>(zoom)];
}

// The text that one profile shows for the value in the advanced view, or null.
const kmString* kmProfileList::FindDisplayText(const kmProfile& profile, const kmChar* id,
                                               const kmChar* value) {
    const kmProfileItem* item = FindItem(profile, id);
    if (item == nullptr) return nullptr;
    const std::vector<kmString>& display = item->GetAdvCandidatesDisplay();
    const std::vector<kmString>& values = item->GetAdvCandidatesValue().empty()
                                              ? item->GetSimpleCandidatesValue()
                                              : item->GetAdvCandidatesValue();
    if (display.size() != values.size()) return nullptr;
    const std::ptrdiff_t position = PositionOf(values, value);
    return position < 0 ? nullptr : &display[static_cast<std::size_t>(position)];
}

kmString kmProfileList::GetDisplayValue(const std::vector<kmProfile*>& profiles, const kmChar* id,
                                        const kmChar* value) {
    if (id == nullptr || value == nullptr) return {};
    if (EqualNoCase(id, KM_TEXT("zoom"))) return GetZoomText(profiles, id, value);
    const kmString* common = nullptr;
    for (const kmProfile* profile : profiles) {
        const kmString* text = FindDisplayText(*profile, id, value);
        if (text == nullptr || (common != nullptr && *text != *common)) return {};
        if (common == nullptr) common = text;
    }
    return common == nullptr ? kmString() : *common;
}

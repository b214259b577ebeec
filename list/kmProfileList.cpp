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

// What one profile after the other shows, in memory that the next one uses again.
class kmProfileList::ShownItems {
public:
    explicit ShownItems(View view) : m_view(view) {}

    void Assign(const kmProfile& profile) {
        m_items.clear();
        m_ids.clear();
        for (const kmProfileItem& item : profile.GetProfileItems()) {
            if (m_view == View::Simple && item.m_simpleName.Text().empty()) continue;
            m_items.push_back(&item);
            m_ids.push_back(item.m_id);
        }
        m_index.Assign(m_ids);
    }

    const std::vector<const kmProfileItem*>& Items() const { return m_items; }
    // The first item of that ID, or null.
    const kmProfileItem* Find(kmStringView id) const {
        const std::size_t found = m_index.Find(id);
        return found == TextIndex::kNone ? nullptr : m_items[found];
    }

private:
    View m_view;
    std::vector<const kmProfileItem*> m_items;
    std::vector<kmStringView> m_ids;
    TextIndex m_index;
};

// The texts of one list after the other, likewise. Lists that differ mostly have the same order, so that each
// text is looked for behind the last one first.
class kmProfileList::OfferedTexts {
public:
    void Assign(const kmProfileItem::List& list) {
        m_texts.clear();
        list.AddTo(m_texts);
        m_next = 0;
        m_isIndexed = false;
    }

    bool Has(kmStringView text) {
        if (m_next == m_texts.size() || !EqualExactly(m_texts[m_next], text)) {
            if (!m_isIndexed) m_index.Assign(m_texts);
            m_isIndexed = true;
            const std::size_t found = m_index.Find(text);
            if (found == TextIndex::kNone) return false;
            m_next = found;
        }
        ++m_next;
        return true;
    }

private:
    std::vector<kmStringView> m_texts;
    std::size_t m_next = 0;
    TextIndex m_index;
    bool m_isIndexed = false;
};

// An item of the first profile and the texts of it that all profiles seen so far offer. Refers to the first
// profile, which does not change meanwhile.
class kmProfileList::CommonItem {
public:
    CommonItem(const kmProfileItem& item, View view) : m_item(&item), m_view(view) {}

    kmStringView ID() const { return m_item->m_id; }
    std::vector<kmString> Texts() const {
        if (!m_isReduced) return DisplayOf(*m_item).Get();
        return {m_texts.begin(), m_texts.end()};
    }

    kmProfileItem Copy() const {
        kmProfileItem copy = *m_item;
        if (!m_isReduced) return copy;
        (m_view == View::Simple ? copy.GetSimpleCandidatesDisplay() : copy.GetAdvCandidatesDisplay()) =
            Texts();
        return copy;
    }

    // Keeps the texts that the item of the same ID offers too.
    void CompareWith(const ShownItems& shown, OfferedTexts& offered) {
        const kmProfileItem* other = shown.Find(ID());
        m_isMissing = other == nullptr;
        if (!m_isMissing) Reduce(*other, offered);
    }
    bool IsMissing() const { return m_isMissing; }

private:
    void Reduce(const kmProfileItem& other, OfferedTexts& offered) {
        const kmProfileItem::List& list = DisplayOf(other);
        if (!m_isReduced) {
            if (DisplayOf(*m_item).IsSameText(list)) return;
            DisplayOf(*m_item).AddTo(m_texts);
            m_isReduced = true;
        }
        offered.Assign(list);
        std::erase_if(m_texts, [&offered](kmStringView text) { return !offered.Has(text); });
    }
    const kmProfileItem::List& DisplayOf(const kmProfileItem& item) const {
        return m_view == View::Simple ? item.m_simpleCandidatesDisplay : item.m_advCandidatesDisplay;
    }

    const kmProfileItem* m_item;
    View m_view;
    bool m_isMissing = false;
    bool m_isReduced = false;
    std::vector<kmStringView> m_texts;  // once it is
};

std::vector<kmProfileList::CommonItem> kmProfileList::FindCommonItems(const std::vector<kmProfile*>& profiles,
                                                                      View view) {
    std::vector<CommonItem> common;
    if (profiles.empty()) return common;
    ShownItems shown(view);
    OfferedTexts offered;
    shown.Assign(*profiles.front());
    for (const kmProfileItem* item : shown.Items()) common.emplace_back(*item, view);
    for (std::size_t i = 1; i < profiles.size(); ++i) {
        shown.Assign(*profiles[i]);
        for (CommonItem& item : common) item.CompareWith(shown, offered);
        std::erase_if(common, [](const CommonItem& item) { return item.IsMissing(); });
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

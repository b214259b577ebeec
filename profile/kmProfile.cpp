// SPDX-License-Identifier: MIT
// Access to the items of a profile, by ID.
#include "kmProfile.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "text/Numbers.h"

kmProfile::~kmProfile() = default;

void kmProfile::CopyFrom(const kmProfile& other) {
    if (this == &other) return;
    *this = other;
    m_changedFlag = false;
}

const kmProfileItem* kmProfile::GetProfileItem(const kmChar* id) const {
    if (id == nullptr) return nullptr;
    const kmStringView wanted = id;
    const auto found = std::find_if(m_items.begin(), m_items.end(), [wanted](const kmProfileItem& item) {
        return EqualExactly(item.m_id, wanted);
    });
    return found == m_items.end() ? nullptr : &*found;
}

kmProfileItem* kmProfile::GetProfileItem(const kmChar* id) {
    return const_cast<kmProfileItem*>(std::as_const(*this).GetProfileItem(id));
}

bool kmProfile::ItemExist(const kmString& id) const { return GetProfileItem(id.c_str()) != nullptr; }

const kmString& kmProfile::ValueOf(const kmChar* id) const {
    static const kmString kNoValue;
    const kmProfileItem* item = GetProfileItem(id);
    return item == nullptr ? kNoValue : item->m_value;
}

bool kmProfile::IsValue(const kmChar* id, const kmChar* value) const {
    return EqualNoCase(ValueOf(id), value);
}

std::int32_t kmProfile::IntegerOf(const kmChar* id) const { return ReadInteger(ValueOf(id).c_str(), 0); }

kmString kmProfile::GetItemValue(const kmChar* id) const { return ValueOf(id); }

bool kmProfile::SetItemValue(const kmChar* id, const kmChar* value) {
    kmProfileItem* item = GetProfileItem(id);
    if (item == nullptr || value == nullptr) return false;
    m_changedFlag = true;
    item->m_value = value;
    return true;
}

int kmProfile::GetSimpleItemValue(const kmChar* id) const {
    const kmProfileItem* item = GetProfileItem(id);
    return item == nullptr ? -1 : item->GetSimpleItemIndex();
}

bool kmProfile::SetSimpleItemValue(const kmChar* id, int index) {
    kmProfileItem* item = GetProfileItem(id);
    if (item == nullptr) return false;
    m_changedFlag = true;
    return item->SetSimpleValue(index);
}

std::vector<kmProfileItem> kmProfile::GetSimpleItems() const {
    std::vector<kmProfileItem> items;
    std::copy_if(m_items.begin(), m_items.end(), std::back_inserter(items),
                 [](const kmProfileItem& item) { return !item.m_simpleName.Text().empty(); });
    return items;
}

// SPDX-License-Identifier: MIT
// How an item's value and the positions in its simple lists correspond.
#include "kmProfileItem.h"

#include <algorithm>
#include <utility>

#include "text/Numbers.h"
#include "text/kmCTString.h"

namespace {

int LastPosition(const std::vector<kmString>& list) { return static_cast<int>(list.size()) - 1; }

int PositionOrLast(const std::vector<kmString>& list, const kmString& value) {
    const auto found = std::find(list.begin(), list.end(), value);
    return found == list.end() ? LastPosition(list) : static_cast<int>(found - list.begin());
}

int BitratePosition(const std::vector<kmString>& candidates, const kmString& value) {
    if (EqualNoCase(TrimView(value, KM_TEXT(' ')), KM_TEXT("Auto")))
        return static_cast<int>(candidates.size() / 2);
    const double wanted = ReadDecimal(value.c_str());
    const auto found = std::find_if(
        candidates.begin(), candidates.end(),
        [wanted](const kmString& candidate) { return ReadDecimal(candidate.c_str()) <= wanted; });
    return found == candidates.end() ? LastPosition(candidates)
                                     : static_cast<int>(found - candidates.begin());
}

}  // namespace

kmProfileItem::~kmProfileItem() = default;

const kmProfileItem& kmProfileItem::operator=(const kmProfileItem& other) {
    if (this != &other) *this = kmProfileItem(other);
    return *this;
}

const kmProfileItem& kmProfileItem::operator=(kmProfileItem&& other) noexcept {
    if (this == &other) return *this;
    m_id = std::move(other.m_id);
    m_value = std::move(other.m_value);
    m_advPriority = other.m_advPriority;
    m_advName = std::move(other.m_advName);
    m_advGroup = std::move(other.m_advGroup);
    m_advReadOnly = other.m_advReadOnly;
    m_advHasCandidates = other.m_advHasCandidates;
    m_advCandidatesDisplay = std::move(other.m_advCandidatesDisplay);
    m_advCandidatesValue = std::move(other.m_advCandidatesValue);
    m_simplePriority = other.m_simplePriority;
    m_simpleName = std::move(other.m_simpleName);
    m_simpleReadOnly = other.m_simpleReadOnly;
    m_simpleHasCandidates = other.m_simpleHasCandidates;
    m_simpleCandidatesDisplay = std::move(other.m_simpleCandidatesDisplay);
    m_simpleCandidatesValue = std::move(other.m_simpleCandidatesValue);
    return *this;
}

bool kmProfileItem::SetSimpleValue(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= m_simpleCandidatesValue.size()) return false;
    m_value = m_simpleCandidatesValue[static_cast<std::size_t>(index)];
    return true;
}

int kmProfileItem::GetSimpleItemIndex() const {
    if (m_simpleName.empty()) return -1;
    if (EqualNoCase(m_id, KM_TEXT("b")) || EqualNoCase(m_id, KM_TEXT("ab"))) {
        return BitratePosition(m_simpleCandidatesValue, m_value);
    }
    const bool hasDisplayForEach = m_simpleCandidatesDisplay.size() == m_simpleCandidatesValue.size();
    if (EqualNoCase(m_id, KM_TEXT("pq")) && hasDisplayForEach)
        return PositionOrLast(m_simpleCandidatesDisplay, m_value);
    return PositionOrLast(m_simpleCandidatesValue, m_value);
}

// SPDX-License-Identifier: MIT
// Which system profiles a load takes.
#include <algorithm>

#include "kmManager.h"
#include "text/kmCTString.h"

void kmManager::SetIDFilter(const kmChar* filter) { m_idFilter = filter; }

void kmManager::SetGroupFilter(const kmChar* filter) { m_groupFilter = filter; }

// The lists are read once in the life of the process, and the sense of the last one that began with "~"
// stays.
bool kmManager::CanLoad(const kmChar* id, const kmChar* groupName) {
    static bool first = true;
    static bool bSupport = true;
    if (m_idFilter.empty() && m_groupFilter.empty()) return true;
    if (first) {
        first = false;
        kmStringView filter = m_idFilter.empty() ? m_groupFilter : m_idFilter;
        if (filter.front() == KM_TEXT('~')) {
            bSupport = false;
            filter.remove_prefix(1);
        }
        SplitText(filter, KM_TEXT('|'), m_idFilter.empty() ? m_groupFilterList : m_idFilterList);
    }
    if (!m_idFilterList.empty()) return InVector(id, m_idFilterList) == bSupport;
    if (!m_groupFilterList.empty()) return InVector(groupName, m_groupFilterList) == bSupport;
    return true;
}

bool kmManager::InVector(const kmString& text, const std::vector<kmString>& list) const {
    return std::any_of(list.begin(), list.end(),
                       [&text](const kmString& entry) { return EqualNoCase(entry, text); });
}

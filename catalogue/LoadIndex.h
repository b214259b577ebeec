// What a load has put where, so that it need not search the lists that it fills: that would make the cost of
// a group grow with the square of its profiles. It lives for one load, because callers may change the lists
// afterwards.
//
// A folder's listing has equal IDs (x.pf and x.PF) behind each other, so within one folder only the last ID
// of a group can be the next one again. IDs from an earlier folder are put into a set, but only for the
// groups that need it.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "kmManager.h"

struct kmManager::LoadIndex {
    // Makes itself known in `current` for as long as it lives.
    explicit LoadIndex(LoadIndex*& current) : m_current(current) { m_current = this; }
    LoadIndex(const LoadIndex&) = delete;
    LoadIndex& operator=(const LoadIndex&) = delete;
    ~LoadIndex() { m_current = nullptr; }

    // From now on IDs may be those of earlier folders.
    void BeginNextFolder() {
        m_hasEarlierFolder = true;
        m_earlierIDs.clear();
    }

    kmGroup* FindGroup(const kmChar* name, std::vector<kmGroup>& groups) {
        const auto found = m_positions.find(name);
        return found == m_positions.end() ? nullptr : &groups[found->second];
    }

    // `group` is the new last of the groups.
    void AddGroup(const kmGroup& group) { m_positions.emplace(group.GetOriginalName(), m_positions.size()); }

    // Whether the group has not got the ID. `position` is that of a system group, or kUserGroup.
    bool IsNew(std::size_t position, const std::vector<kmString>& ids, const kmString& id) {
        if (ids.empty()) return true;
        if (ids.back() == id) return false;
        if (!m_hasEarlierFolder) return true;
        const auto [earlier, isFirst] = m_earlierIDs.try_emplace(position);
        if (isFirst) earlier->second.insert(ids.begin(), ids.end());
        return earlier->second.find(id) == earlier->second.end();
    }

    static constexpr std::size_t kUserGroup = static_cast<std::size_t>(-1);

private:
    LoadIndex*& m_current;
    bool m_hasEarlierFolder = false;
    std::unordered_map<kmString, std::size_t> m_positions;
    std::unordered_map<std::size_t, std::unordered_set<kmString>> m_earlierIDs;
};

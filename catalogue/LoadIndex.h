// What a load has put where, so that it need not search the lists that it fills: those would make the cost of
// a group grow with the square of its profiles. It lives for one load, because callers may change the lists
// afterwards.
#pragma once

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

    kmGroup* FindGroup(const kmChar* name, std::vector<kmGroup>& groups) {
        const auto found = m_positions.find(name);
        return found == m_positions.end() ? nullptr : &groups[found->second];
    }

    // `group` is the new last of the groups.
    void AddGroup(const kmGroup& group) { m_positions.emplace(group.GetOriginalName(), m_positions.size()); }

    // Whether the ID is new to the system group of that name, or to the user's group.
    bool AddID(const kmString& groupName, const kmString& id) { return m_ids[groupName].insert(id).second; }
    bool AddUserID(const kmString& id) { return m_userIDs.insert(id).second; }

private:
    LoadIndex*& m_current;
    std::unordered_map<kmString, std::size_t> m_positions;
    std::unordered_map<kmString, std::unordered_set<kmString>> m_ids;
    std::unordered_set<kmString> m_userIDs;
};

// SPDX-License-Identifier: MIT
// What happens to profiles after a load, and who is told of it.
#include <algorithm>
#include <functional>

#include "document/ProfileID.h"
#include "kmManager.h"
#include "platform/Files.h"
#include "text/Folders.h"
#include "text/kmCTString.h"

namespace {

constexpr std::size_t kMostRecent = 10;

bool IsNullOrEmpty(const kmChar* id) { return id == nullptr || *id == 0; }

// Whether `text` stands in one of the IDs, and would be gone with it.
bool PointsInto(const std::vector<kmString>& ids, const kmChar* text) {
    const std::less<const kmChar*> isBefore;
    return std::any_of(ids.begin(), ids.end(), [&](const kmString& id) {
        return !isBefore(text, id.data()) && !isBefore(id.data() + id.size(), text);
    });
}

void EraseFirst(std::vector<kmString>& ids, const kmString& id) {
    const auto found = std::find(ids.begin(), ids.end(), id);
    if (found != ids.end()) ids.erase(found);
}

}  // namespace

std::vector<kmProfileInfo>::const_iterator kmManager::FindRecord(const kmChar* id) const {
    const kmStringView wanted = id;
    return std::find_if(m_profiles.begin(), m_profiles.end(),
                        [wanted](const kmProfileInfo& info) { return EqualNoCase(info.m_id, wanted); });
}

kmProfileInfo* kmManager::GetProfileInfo(const kmChar* id) {
    if (IsNullOrEmpty(id)) return nullptr;
    const auto record = FindRecord(id);
    return record == m_profiles.end() ? nullptr
                                      : &m_profiles[static_cast<std::size_t>(record - m_profiles.begin())];
}

bool kmManager::ProfileExist(const kmChar* id) const {
    return !IsNullOrEmpty(id) && FindRecord(id) != m_profiles.end();
}

bool kmManager::IsSysName(const kmString& name) const {
    const kmStringView wanted = name.c_str();
    const auto isShownAs = [wanted](const kmProfileInfo& info) {
        return info.m_isSystem && EqualNoCase(TrimLeftView(info.m_name, KM_TEXT('^')), wanted);
    };
    if (std::any_of(m_profiles.begin(), m_profiles.end(), isShownAs)) return true;
    const auto record = FindRecord(name.c_str());
    return record != m_profiles.end() && record->m_isSystem;
}

bool kmManager::AddRecentProfile(const kmChar* id) {
    if (IsNullOrEmpty(id)) return false;
    std::vector<kmString>& recent = m_recentGroup.m_profileIDs;
    if (std::find(recent.begin(), recent.end(), id) != recent.end()) return true;
    const kmString added = id;
    if (PointsInto(recent, id)) id = added.c_str();
    recent.insert(recent.begin(), added);
    if (recent.size() > kMostRecent) recent.resize(kMostRecent);
    NotifyChanged(PROFILE_RECENT_ADDED, id, nullptr);
    return true;
}

bool kmManager::AddUserProfile(const kmChar* id) {
    if (IsNullOrEmpty(id)) return false;
    if (!m_profilesFolder.empty())
        AddProfileInfo(ProfilePath({}, id), m_profilesFolder, /*skipSystem=*/false);
    return true;
}

bool kmManager::DeleteProfile(const kmString& id) {
    // An ID ends at its first null unit; `id` itself may stand in a list that changes here.
    const kmString deleted = id.c_str();
    const auto record = FindRecord(deleted.c_str());
    if (record == m_profiles.end() || record->m_isSystem) return false;
    if (!StaysInItsFolder(deleted)) return false;
    if (!RemoveFile(ProfilePath(GetUserFolder(m_profilesFolder.c_str()), deleted).c_str())) return false;
    m_profiles.erase(record);
    EraseFirst(m_userGroup.m_profileIDs, deleted);
    NotifyChanged(PROFILE_DELETED, deleted.c_str(), nullptr);
    return true;
}

void kmManager::ProfileChanged(PROFILE_CHANGED_TYPE type, const kmChar* firstID, const kmChar* secondID) {
    NotifyChanged(type, firstID, secondID);
}

void kmManager::NotifyChanged(PROFILE_CHANGED_TYPE type, const kmChar* firstID, const kmChar* secondID) {
    if (type == PROFILE_RECENT_ADDED) return CallCallbacks(type, firstID, secondID);
    // The callbacks get the caller's own texts, but for those that stand in a list here, which is about to
    // change.
    const kmString first = firstID == nullptr ? KM_TEXT("") : firstID;
    const kmString second = secondID == nullptr ? KM_TEXT("") : secondID;
    if (OwnsText(firstID)) firstID = first.c_str();
    if (OwnsText(secondID)) secondID = second.c_str();

    if (firstID != nullptr) {
        if (type == PROFILE_SAVED) {
            const auto record = FindRecord(firstID);
            if (record != m_profiles.end()) m_profiles.erase(record);
        }
        if (type == PROFILE_RENAMED && secondID != nullptr) ForgetRenamed(first, second);
        ReRead(first);
    }
    CallCallbacks(type, firstID, secondID);
}

bool kmManager::OwnsText(const kmChar* text) const {
    const auto isIn = [text](const kmGroup& group) { return PointsInto(group.m_profileIDs, text); };
    return isIn(m_userGroup) || isIn(m_recentGroup) ||
           std::any_of(m_systemGroups.begin(), m_systemGroups.end(), isIn);
}

void kmManager::ForgetRenamed(const kmString& newID, const kmString& oldID) {
    const auto record = FindRecord(oldID.c_str());
    if (record != m_profiles.end()) {
        m_profiles.erase(record);
        EraseFirst(m_userGroup.m_profileIDs, oldID);
    }
    std::vector<kmString>& recent = m_recentGroup.m_profileIDs;
    const auto entry = std::find(recent.begin(), recent.end(), oldID);
    if (entry != recent.end()) *entry = newID;
}

// Before the first load there is no folder to read from.
void kmManager::ReRead(const kmString& id) {
    if (m_profilesFolder.empty()) return;
    AddProfileInfo(ProfilePath({}, id), GetUserFolder(m_profilesFolder.c_str()), /*skipSystem=*/false);
}

void kmManager::RegisterChangedCallback(ProfileChangedCallback callback, void* userData) {
    m_callbacks.push_back({callback, userData});
}

void kmManager::CallCallbacks(PROFILE_CHANGED_TYPE type, const kmChar* firstID, const kmChar* secondID) {
    // A callback may register others, which moves the list and whose turn comes with the next change.
    const std::size_t count = m_callbacks.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Callback callback = m_callbacks[i];
        if (callback.function != nullptr) callback.function(type, firstID, secondID, callback.userData);
    }
}

// SPDX-License-Identifier: MIT
// The catalogue of all profiles on disk.
#pragma once

#include <vector>

#include "kmExport.h"
#include "kmGroup.h"
#include "kmProfileInfo.h"
#include "kmTypes.h"

class LoadNotes;
class XMLNode;
class kmIconParser;
enum class FilingResult;
struct kmLoadReport;

KM_CLASSES_BEGIN

// All profiles of a profiles folder and of its "user" subfolder, in groups. One object a process, empty until
// Load. Owns its records and groups; references and pointers to them live until the container that holds them
// changes: by a load, an addition, a deletion or a reported change. No locks: one thread at a time. Failures
// are results.
class KM_EXPORT kmManager {
public:
    // The one object of the process.
    static kmManager& GetInstance();

    // Copies hold what the catalogue holds, its callbacks included. Saving and renaming tell the object of
    // the process alone.
    kmManager(const kmManager& other);
    kmManager& operator=(const kmManager& other);

    // Reads the catalogue anew from `folder`, or from the default folder when it is empty, and the icons with
    // it. Files that are no profiles are left out. The recent list, filters and callbacks stay. Always true.
    bool Load(const kmString& folder);

    // Which system profiles of groups a load takes: those whose ID, or one of whose groups, is in the list
    // "A|B", or not in the list "~A|B", in any letter case. The first load that meets a profile to test while
    // a text is set reads the lists, once a process, the ID filter before the group filter; later texts only
    // matter in being empty: with both empty everything is taken. `filter` must not be null.
    void SetIDFilter(const kmChar* filter);
    void SetGroupFilter(const kmChar* filter);

    // The groups of system profiles in display order, the user's profiles ("User Defined"), the recently used
    // ones ("Recent": newest first, at most 10, in memory only), and the records of all profiles in reading
    // order.
    std::vector<kmGroup>& GetSystemGroups() { return m_systemGroups; }
    kmGroup& GetUserGroup() { return m_userGroup; }
    kmGroup& GetRecentGroup() { return m_recentGroup; }
    std::vector<kmProfileInfo>& GetProfiles() { return m_profiles; }

    // The icons; null before the first load. Not to be freed.
    kmIconParser* GetIconParser() { return m_iconParser; }

    // Whether `name` is the display name or the ID of a system profile, in any letter case.
    bool IsSysName(const kmString& name) const;

    // The first record of that ID, in any letter case; null, or false, when there is none and for a null or
    // empty ID.
    kmProfileInfo* GetProfileInfo(const kmChar* id);
    bool ProfileExist(const kmChar* id) const;

    // Puts an ID in front of the recent list and tells the callbacks; one that is there already stays where
    // it is. False for a null or empty ID.
    bool AddRecentProfile(const kmChar* id);

    // Reads a profile of the profiles folder itself into the catalogue; calls no callback. False for a null
    // or empty ID, else true, whether there was such a file or not.
    bool AddUserProfile(const kmChar* id);

    // Removes the file of a user profile from the "user" subfolder, and the profile from the catalogue, and
    // tells the callbacks. False, with nothing changed, for an unknown ID, a system profile, or a file that
    // stays.
    bool DeleteProfile(const kmString& id);

    // Tells the catalogue of a change that has happened on disk; it reads the profile anew and then calls
    // every callback with these very arguments. `firstID` must not be null except for PROFILE_RECENT_ADDED,
    // nor `secondID` for PROFILE_RENAMED.
    void ProfileChanged(PROFILE_CHANGED_TYPE type, const kmChar* firstID, const kmChar* secondID);

    // From the next change on calls `callback` with `userData`, after those registered before; as often as it
    // was registered, for the life of the process. A callback may use and change the catalogue.
    void RegisterChangedCallback(ProfileChangedCallback callback, void* userData);

protected:
    // An empty catalogue.
    kmManager();
    virtual ~kmManager();

    // Forgets the system's groups, the profiles in the user's group, and all records.
    void Delete();

    // Reads every profile file of `folder`, which ends with "\", or the one called `fileName`, into records
    // and groups; with `skipSystem` no system profile.
    void LoadProfile(const kmString& folder, bool skipSystem);
    void AddProfileInfo(const kmString& fileName, const kmString& folder, bool skipSystem);

    // Whether the filters take a system profile of that ID for that group.
    bool CanLoad(const kmChar* id, const kmChar* groupName);

    // Puts the ID into the system group of exactly that name, which is made if there is none, or into
    // `group`; an ID that is there already is not put in again. A null name does nothing.
    void AddGroup(const kmProfileInfo& info, const kmChar* groupName);
    void AddProfileIDToGroup(kmGroup& group, const kmString& id);

    // Puts the system groups into display order.
    void Sort();

private:
    struct Callback {
        ProfileChangedCallback function;
        void* userData;
    };
    class Filing;
    friend KM_EXPORT kmLoadReport kmLoadWithReport(kmManager& manager, const kmString& folder);
    friend KM_EXPORT kmLoadReport kmReportLoad(const kmString& folder);

    bool InVector(const kmString& text, const std::vector<kmString>& list) const;
    void NotifyChanged(PROFILE_CHANGED_TYPE type, const kmChar* firstID, const kmChar* secondID);

    std::vector<kmProfileInfo>::const_iterator FindRecord(const kmChar* id) const;
    void LoadNoting(const kmString& folder, LoadNotes* notes);
    void ReadFolder(const kmString& folder, bool skipSystem, Filing& filing, LoadNotes* notes);
    FilingResult AddDocument(const kmString& fileName, const XMLNode& root, bool skipSystem, Filing& filing);
    kmGroup* FindSystemGroup(const kmChar* name);
    bool OwnsText(const kmChar* text) const;
    void ForgetRenamed(const kmString& newID, const kmString& oldID);
    void ReRead(const kmString& id);
    void CallCallbacks(PROFILE_CHANGED_TYPE type, const kmChar* firstID, const kmChar* secondID);

    static kmManager m_signleInstance;  // exported with this spelling

    kmString m_idFilter;
    kmString m_groupFilter;
    std::vector<kmGroup> m_systemGroups;
    kmGroup m_userGroup;
    kmGroup m_recentGroup;
    std::vector<kmProfileInfo> m_profiles;
    kmString m_profilesFolder;
    kmIconParser* m_iconParser = nullptr;
    std::vector<kmString> m_idFilterList;
    std::vector<kmString> m_groupFilterList;
    std::vector<Callback> m_callbacks;
    unsigned m_groupChanges = 0;  // how often system groups came or went
};

KM_CLASSES_END

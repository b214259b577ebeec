// SPDX-License-Identifier: MIT
// The text type and the enumerations that cross the library's boundary.
#pragma once

#include <cstdint>
#include <string>

// UTF-16, 16 bits a unit on every system: the platform's own wide character where that has 16 bits,
// so that L"..." literals and std::wstring fit there. KM_TEXT("...") and KM_TEXT('x') give a
// literal of this type on both.
#if defined(_WIN32)
using kmChar = wchar_t;
#define KM_TEXT(literal) L##literal
#else
using kmChar = char16_t;
#define KM_TEXT(literal) u##literal
#endif
static_assert(sizeof(kmChar) == 2, "texts are UTF-16");

// Every name, value and path.
using kmString = std::basic_string<kmChar>;

// What a profile produces, decided by the settings that it has (kmProfile::GetType).
enum PROFILE_TYPE : std::int32_t {
    PROFILE_TYPE_UNKNOWN = 0,  // none of the settings below
    PROFILE_TYPE_VIDEO = 1,    // has "vcodec" or "b"
    PROFILE_TYPE_AUDIO = 2,    // not video, has "acodec"
    PROFILE_TYPE_PICTURE = 3,  // neither, has "pcodec": still pictures
};

// The result of saving or renaming a profile. Exported with this spelling, which therefore stays.
enum PROFILE_EERROR : std::int32_t {
    PROFILE_ERROR_NONE = 0,    // done
    PROFILE_ERROR_SYSTEM = 1,  // refused: a system profile would be written or given a new ID
    PROFILE_ERROR_EXIST = 2,   // refused: a profile with the target ID exists
    PROFILE_ERROR_FILE = 3,    // a file operation failed, or the profile has no folder yet
};

// What happened to a profile, as told to the change callbacks. Every call carries two IDs; the
// second is null unless stated.
enum PROFILE_CHANGED_TYPE : std::int32_t {
    PROFILE_SAVED = 0,         // the ID under which it was saved
    PROFILE_DELETED = 1,       // the deleted ID
    PROFILE_RENAMED = 2,       // the new ID; second: the old ID
    PROFILE_RECENT_ADDED = 3,  // the ID that entered the recent list
};

// Told of every change, on the thread that caused it, after the catalogue has updated itself. The
// texts live as long as the call; `userData` is the pointer given at registration.
using ProfileChangedCallback = void (*)(PROFILE_CHANGED_TYPE type, const kmChar* firstID,
                                        const kmChar* secondID, void* userData);

// SPDX-License-Identifier: MIT
// What a file name may be on the strictest of the systems decides everywhere, so that profiles can be moved
// between them.
#include "kmProfileID.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "document/ProfileID.h"
#include "platform/Files.h"
#include "text/Encoding.h"
#include "text/Folders.h"
#include "text/Numbers.h"

namespace {

constexpr const kmChar* kFaultTexts[] = {
    KM_TEXT(""),
    KM_TEXT("it is empty"),
    KM_TEXT("it begins with \".\""),
    KM_TEXT("it has a control character or one of \\ / : * ? \" < > |"),
    KM_TEXT("it is the name of a device"),
    KM_TEXT("it has an incomplete character"),
};
static_assert(std::size(kFaultTexts) == PROFILE_ID_FAULT_ENCODING + 1, "one text a fault");

constexpr kmStringView kDevices[] = {KM_TEXT("CON"), KM_TEXT("PRN"),    KM_TEXT("AUX"),
                                     KM_TEXT("NUL"), KM_TEXT("CONIN$"), KM_TEXT("CONOUT$")};
constexpr kmStringView kNumberedDevices[] = {KM_TEXT("COM"), KM_TEXT("LPT")};

// 1 to 9, and the superscripts that count as digits in device names.
constexpr bool IsDeviceNumber(kmChar c) {
    return (IsDigit(c) && c != KM_TEXT('0')) || c == 0x00B9 || c == 0x00B2 || c == 0x00B3;
}

// A device is one with any extension too.
bool IsDeviceName(kmStringView id) {
    kmStringView name = id.substr(0, id.find(KM_TEXT('.')));
    name = name.substr(0, name.find_last_not_of(KM_TEXT(' ')) + 1);
    const auto isName = [name](kmStringView device) { return EqualNoCase(device, name); };
    if (std::any_of(std::begin(kDevices), std::end(kDevices), isName)) return true;
    if (name.size() != 4 || !IsDeviceNumber(name[3])) return false;
    name.remove_suffix(1);
    return std::any_of(std::begin(kNumberedDevices), std::end(kNumberedDevices),
                       [name](kmStringView device) { return EqualNoCase(device, name); });
}

bool IsForbidden(char c) {
    constexpr std::string_view kForbidden = "\\/:*?\"<>|";
    return (c >= 0 && c < ' ') || kForbidden.find(c) != std::string_view::npos;
}

}  // namespace

PROFILE_ID_FAULT kmFindIDFault(const kmString& text) {
    const kmStringView id = text.c_str();
    if (id.empty()) return PROFILE_ID_FAULT_EMPTY;
    if (id.front() == KM_TEXT('.')) return PROFILE_ID_FAULT_LEADING_DOT;
    // Judged as the bytes of a file name: those are what has to exist, and what is read back.
    const std::string bytes = BytesFromText(id);
    if (std::any_of(bytes.begin(), bytes.end(), IsForbidden)) return PROFILE_ID_FAULT_CHARACTER;
    if (IsDeviceName(id)) return PROFILE_ID_FAULT_DEVICE;
    return TextFromBytes(bytes) == id ? PROFILE_ID_FAULT_NONE : PROFILE_ID_FAULT_ENCODING;
}

const kmChar* kmIDFaultText(PROFILE_ID_FAULT fault) {
    const bool isKnown = fault >= PROFILE_ID_FAULT_NONE && fault <= PROFILE_ID_FAULT_ENCODING;
    return kFaultTexts[isKnown ? fault : PROFILE_ID_FAULT_NONE];
}

kmString ProfilePath(const kmString& folder, const kmString& id) {
    const kmStringView name = id.c_str();
    kmString path;
    path.reserve(folder.size() + name.size() + format::kSuffix.size());
    path.append(folder).append(name).append(format::kSuffix);
    return path;
}

kmString kmProfilePath(const kmString& folder, const kmString& id) { return ProfilePath(folder, id); }

bool StaysInItsFolder(const kmString& id) {
    return !id.empty() && id.find_first_of(KM_TEXT("\\/:")) == kmString::npos;
}

kmString ProfileIDOf(const kmString& fileName) { return fileName.substr(0, fileName.rfind(KM_TEXT('.'))); }

bool kmListProfileIDs(const kmString& folder, std::vector<kmString>& ids) {
    kmString path = folder;
    NormalizeFolder(path);
    ListingNotes notes;
    const bool isComplete = InputFolder(path).List(format::kSuffix, ids, &notes);
    for (kmString& name : ids) name = ProfileIDOf(name);
    return isComplete && notes.hasBegun;
}

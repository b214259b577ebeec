#include "document/ProfileID.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "text/Encoding.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"

namespace {

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

bool IsUsableProfileID(kmStringView id) {
    if (id.empty() || id.front() == KM_TEXT('.') || IsDeviceName(id)) return false;
    // Judged as the bytes of a file name: those are what has to exist, and what is read back.
    const std::string bytes = BytesFromText(id);
    return std::none_of(bytes.begin(), bytes.end(), IsForbidden) && TextFromBytes(bytes) == id;
}

kmString ProfilePath(const kmString& folder, kmStringView id) {
    kmString path;
    path.reserve(folder.size() + id.size() + 3);
    path.append(folder).append(id).append(KM_TEXT(".pf"));
    return path;
}

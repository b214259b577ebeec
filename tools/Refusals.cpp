#include "Refusals.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "Catalogue.h"
#include "ProfileLoading.h"
#include "Texts.h"

namespace {

// File names that stand for a device on some systems, alone and with any extension.
constexpr std::string_view kDevices[] = {"con", "prn", "aux", "nul", "conin$", "conout$"};
constexpr std::string_view kNumberedDevices[] = {"com", "lpt"};
constexpr std::string_view kDeviceNumbers[] = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "¹", "²", "³"};

template <std::size_t count>
bool IsIn(const std::string_view (&list)[count], std::string_view text) {
    return std::find(std::begin(list), std::end(list), text) != std::end(list);
}

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsDevice(const std::string& id) {
    std::string name = id.substr(0, id.find('.'));
    name.erase(name.find_last_not_of(' ') + 1);
    std::transform(name.begin(), name.end(), name.begin(), LowerAscii);
    if (IsIn(kDevices, name)) return true;
    constexpr std::size_t kLetters = 3;
    return name.size() > kLetters && IsIn(kNumberedDevices, std::string_view(name).substr(0, kLetters)) &&
           IsIn(kDeviceNumbers, std::string_view(name).substr(kLetters));
}

bool IsForbidden(char c) {
    constexpr std::string_view kForbidden = "\\/:*?\"<>|";
    return (c >= 0 && c < ' ') || kForbidden.find(c) != std::string_view::npos;
}

std::string NameOfSystemProfile(const std::string& id) {
    return Quoted(id) + " is the name of a system profile; choose another";
}

}  // namespace

std::string WhyNoFileName(const std::string& id) {
    if (id.empty()) return "an empty ID cannot be a file name";
    const std::string begin = Quoted(id) + " cannot be a file name: ";
    if (id.front() == '.') return begin + "it begins with \".\"";
    if (std::any_of(id.begin(), id.end(), IsForbidden)) {
        return begin + "it has a control character or one of \\ / : * ? \" < > |";
    }
    return IsDevice(id) ? begin + "it is the name of a device" : std::string();
}

std::string WhyNotSaved(PROFILE_EERROR error, const WriteAttempt& attempt) {
    if (error == PROFILE_ERROR_SYSTEM) {
        return attempt.isSystem && attempt.newID == attempt.id
                   ? Quoted(attempt.id) + " is a system profile; save a copy with --as"
                   : NameOfSystemProfile(attempt.newID);
    }
    if (error == PROFILE_ERROR_EXIST) {
        return "a profile " + Quoted(KnownID(kmManager::GetInstance(), attempt.newID)) +
               " exists; replace it with --overwrite";
    }
    const std::string reason = WhyNoFileName(attempt.newID);
    return reason.empty() ? attempt.Path() + ": cannot be written" : reason;
}

std::string WhyNotRenamed(PROFILE_EERROR error, const WriteAttempt& attempt) {
    if (error == PROFILE_ERROR_SYSTEM) {
        return attempt.isSystem ? Quoted(attempt.id) + " is a system profile, which keeps its ID"
                                : NameOfSystemProfile(attempt.newID);
    }
    if (error == PROFILE_ERROR_EXIST) {
        if (attempt.newID == attempt.id) return Quoted(attempt.id) + " is its ID already";
        return "a profile " + Quoted(KnownID(kmManager::GetInstance(), attempt.newID)) + " exists";
    }
    const std::string reason = WhyNoFileName(attempt.newID);
    if (!reason.empty()) return reason;
    if (attempt.targetExisted)
        return attempt.Path() + ": there is such a file already, though it is no profile";
    const bool wasMoved = FileExists(attempt.Path());  // the library moves the file before it writes the ID
    return attempt.Path() +
           (wasMoved ? ": renamed, but the new ID could not be written into it" : ": cannot be written");
}

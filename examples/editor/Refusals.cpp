// SPDX-License-Identifier: MIT
#include "Refusals.h"

#include "Text.h"
#include "kmProfileFile.h"
#include "kmProfileID.h"

// In the order of PROFILE_ID_FAULT.
static constexpr const char* kFaults[] = {
    "",
    "Please type a name.",
    "A name cannot begin with a dot.",
    "A name cannot have control characters or any of \\ / : * ? \" < > |",
    "On some systems that is the name of a device; choose another.",
    "The name has a character that no file name can have.",
};
static_assert(std::size(kFaults) == PROFILE_ID_FAULT_ENCODING + 1, "one text a fault");

QString WhyRefused(PROFILE_EERROR error, const kmProfile& profile, const kmString& newID) {
    const bool isOwn = newID == profile.GetID();
    const QString quoted = "“" + ToQt(newID) + "”";
    if (error == PROFILE_ERROR_NONE) return {};
    if (error == PROFILE_ERROR_SYSTEM) return quoted + " is the name of a system profile; choose another.";
    if (error == PROFILE_ERROR_EXIST && isOwn) return quoted + " is its name already.";
    if (error == PROFILE_ERROR_EXIST) return quoted + " exists; choose another name.";
    const PROFILE_ID_FAULT fault = isOwn ? PROFILE_ID_FAULT_NONE : kmFindIDFault(newID);
    if (fault != PROFILE_ID_FAULT_NONE) return kFaults[fault];
    const kmString folder = kmFolderOf(profile);
    const kmString path = kmProfilePath(profile.IsSystem() ? kmUserFolder(folder) : folder, newID);
    return "The file cannot be written: " + PathToQt(path);
}

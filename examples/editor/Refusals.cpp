// SPDX-License-Identifier: MIT
#include "Refusals.h"

#include "Text.h"
#include "kmFileFault.h"
#include "kmProfileFile.h"
#include "kmProfileID.h"

QString WhyRefused(PROFILE_EERROR error, const kmProfile& profile, const kmString& newID) {
    const bool isOwn = newID == profile.GetID();
    const QString quoted = "“" + ToQt(newID) + "”";
    if (error == PROFILE_ERROR_NONE) return {};
    if (error == PROFILE_ERROR_SYSTEM) return quoted + " is the name of a system profile; choose another.";
    if (error == PROFILE_ERROR_EXIST && isOwn) return quoted + " is its name already.";
    if (error == PROFILE_ERROR_EXIST) return quoted + " exists; choose another name.";
    const PROFILE_ID_FAULT fault = isOwn ? PROFILE_ID_FAULT_NONE : kmFindIDFault(newID);
    if (fault != PROFILE_ID_FAULT_NONE)
        return "This is no name for a file: " + ToQt(kmIDFaultText(fault)) + ".";
    const kmString folder = kmFolderOf(profile);
    const kmString path = kmProfilePath(profile.IsSystem() ? kmUserFolder(folder) : folder, newID);
    return PathToQt(path) + " cannot be written: " + ToQt(kmFileFaultText(kmLastFileFault())) + ".";
}

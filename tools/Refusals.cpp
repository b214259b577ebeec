// SPDX-License-Identifier: MIT
#include "Refusals.h"

#include "Printable.h"
#include "kmFileFault.h"
#include "kmFolders.h"
#include "kmManager.h"
#include "kmProfileFile.h"
#include "kmProfileID.h"
#include "kmText.h"

namespace {

// Empty where the ID is not what was wrong.
std::string WhyNoFileName(const WriteAttempt& attempt) {
    const PROFILE_ID_FAULT fault = kmFindIDFault(attempt.newID);
    const bool isAllowed = fault == PROFILE_ID_FAULT_LEADING_DOT && attempt.newID == attempt.id;
    if (fault == PROFILE_ID_FAULT_NONE || isAllowed) return {};
    return QuotedID(attempt.newID) + " cannot be a file name: " + kmUtf8FromText(kmIDFaultText(fault));
}

std::string PathOf(const WriteAttempt& attempt) {
    return kmUtf8FromPath(kmProfilePath(attempt.folder, attempt.newID));
}

std::string NameOfSystemProfile(const kmString& id) {
    return QuotedID(id) + " is the name of a system profile; choose another";
}

// As the catalogue spells it.
std::string ProfileExists(const kmString& id) {
    const kmProfileInfo* info = kmManager::GetInstance().GetProfileInfo(id.c_str());
    return "a profile " + QuotedID(info == nullptr ? id : info->GetID()) + " exists";
}

std::string WhyNotWritten(const std::string& path) {
    return path + ": cannot be written: " + kmUtf8FromText(kmFileFaultText(kmLastFileFault()));
}

}  // namespace

std::string WhyNotSaved(PROFILE_EERROR error, const WriteAttempt& attempt) {
    if (error == PROFILE_ERROR_SYSTEM) {
        return attempt.isSystem && attempt.newID == attempt.id
                   ? QuotedID(attempt.id) + " is a system profile; save a copy with --as"
                   : NameOfSystemProfile(attempt.newID);
    }
    if (error == PROFILE_ERROR_EXIST) {
        const bool isProfile = kmManager::GetInstance().ProfileExist(attempt.newID.c_str());
        return (isProfile ? ProfileExists(attempt.newID)
                          : PathOf(attempt) + ": there is such a file, though it is no profile") +
               "; replace it with --overwrite";
    }
    const std::string reason = WhyNoFileName(attempt);
    return reason.empty() ? WhyNotWritten(PathOf(attempt)) : reason;
}

std::string WhyNotRenamed(PROFILE_EERROR error, const WriteAttempt& attempt) {
    if (error == PROFILE_ERROR_SYSTEM) {
        return attempt.isSystem ? QuotedID(attempt.id) + " is a system profile, which keeps its ID"
                                : NameOfSystemProfile(attempt.newID);
    }
    if (error == PROFILE_ERROR_EXIST) {
        return attempt.newID == attempt.id ? QuotedID(attempt.id) + " is its ID already"
                                           : ProfileExists(attempt.newID);
    }
    const std::string reason = WhyNoFileName(attempt);
    if (!reason.empty()) return reason;
    const FILE_FAULT fault = kmLastFileFault();
    const std::string path = PathOf(attempt);
    if (fault == FILE_FAULT_EXISTS) return path + ": there is such a file already, though it is no profile";
    // The library moves a file that it cannot read all the same.
    if (!attempt.targetExisted && kmProfileFileExists(attempt.folder, attempt.newID))
        return path + ": renamed, but the new ID could not be written into it";
    return kmUtf8FromPath(kmProfilePath(attempt.folder, attempt.id)) + ": cannot be renamed to " +
           QuotedID(attempt.newID) + ": " + kmUtf8FromText(kmFileFaultText(fault));
}

PROFILE_EERROR ForeseeSave(const WriteAttempt& attempt, bool mayReplace) {
    const kmManager& catalogue = kmManager::GetInstance();
    if (catalogue.IsSysName(attempt.newID)) return PROFILE_ERROR_SYSTEM;
    const bool isTaken =
        catalogue.ProfileExist(attempt.newID.c_str()) || kmProfileFileExists(attempt.folder, attempt.newID);
    if (isTaken && !mayReplace) return PROFILE_ERROR_EXIST;
    return WhyNoFileName(attempt).empty() ? PROFILE_ERROR_NONE : PROFILE_ERROR_FILE;
}

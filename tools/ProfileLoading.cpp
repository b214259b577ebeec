// SPDX-License-Identifier: MIT
#include "ProfileLoading.h"

#include "Failure.h"
#include "Findings.h"
#include "Lookup.h"
#include "Printable.h"
#include "kmFolders.h"
#include "kmProfileID.h"
#include "kmText.h"

std::string WhyNotLoaded(const kmString& folder, const kmString& id) {
    const kmString paths[] = {kmProfilePath(folder, id), kmProfilePath(kmUserFolder(folder), id)};
    const kmLoadReport report = kmReportLoad(folder);
    for (const kmString& path : paths) {
        for (const kmLoadFinding& finding : report.findings) {
            if (!finding.isUsed && kmSameName(finding.path, path)) return Describe(finding);
        }
    }
    return "no profile " + QuotedID(id) + " in " + kmUtf8FromPath(folder);
}

kmProfile LoadProfile(const kmString& folder, const kmString& id) {
    kmProfile profile;
    profile.SetID(id);
    if (!profile.Load(folder)) throw Failure(WhyNotLoaded(folder, id));
    return profile;
}

kmProfile LoadNamedProfile(const kmString& folder, const std::string& name) {
    const kmString id = FindProfileID(folder, name);
    // The library looks in the folder first, in any letter case, where the user's file may be the one that is
    // meant.
    const kmString userFolder = kmUserFolder(folder);
    const bool isUsers = !IsListed(folder, id) && IsListed(userFolder, id);
    return LoadProfile(isUsers ? userFolder : folder, id);
}

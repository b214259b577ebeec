// SPDX-License-Identifier: MIT
#include "kmLint.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "document/DefaultFolder.h"
#include "document/Format.h"
#include "document/ProfileID.h"
#include "lint/Folder.h"
#include "platform/Files.h"
#include "text/Folders.h"

namespace {

// As the load looks for it: the file of the ID in the folder, unless it cannot be read; else the user's.
kmString FindFile(kmString folder, const kmString& id) {
    if (folder.empty()) folder = GetDefaultProfilesFolder();
    NormalizeFolder(folder);
    const kmString path = ProfilePath(folder, id);
    const kmString userPath = ProfilePath(GetUserFolder(folder.c_str()), id);
    if (!XMLNode::ParseDocumentFile(path.c_str(), format::kRoot).IsEmpty()) return path;
    if (EntryExists(userPath.c_str())) return userPath;
    return EntryExists(path.c_str()) ? path : kmString();
}

// As names of files are compared.
bool IsSamePath(const kmString& a, const kmString& b) { return EqualNoCase(a, b); }

}  // namespace

std::vector<kmLintFinding> kmLintFile(const kmString& path) {
    std::vector<kmLintFinding> all;
    const kmString name = path.substr(path.find_last_of(KM_TEXT("\\/")) + 1);
    Findings findings(path.c_str());
    const bool isUserFile = EqualNoCase(name, KM_TEXT("userpf.con"));
    if (isUserFile || EqualNoCase(name, KM_TEXT("pficon.con"))) {
        LintIconFile(path.c_str(), isUserFile, findings);
    } else {
        const SourceFile file(path.c_str(), format::kRoot);
        ProfileLinter(file, findings).Lint();
        AddIDFault(findings, ProfileIDOf(name));
    }
    findings.MoveTo(all);
    return all;
}

std::vector<kmLintFinding> kmLintFolder(const kmString& folder) {
    std::vector<kmLintFinding> all;
    FolderLinter(folder, all).Lint();
    return all;
}

std::vector<kmLintFinding> kmLintProfile(const kmString& folder, const kmString& id) {
    const kmString path = FindFile(folder.c_str(), id.c_str());
    if (path.empty()) {
        std::vector<kmLintFinding> none;
        Findings findings(folder);
        findings.Add(LINT_NO_PROFILE, {}, id.c_str());
        findings.MoveTo(none);
        return none;
    }
    std::vector<kmLintFinding> all = kmLintFolder(folder);
    std::vector<kmLintFinding> own;
    std::copy_if(std::make_move_iterator(all.begin()), std::make_move_iterator(all.end()),
                 std::back_inserter(own),
                 [&path](const kmLintFinding& finding) { return IsSamePath(finding.path, path); });
    return own;
}

// SPDX-License-Identifier: MIT
// A profiles folder: its files one by one, and what fits together.
#pragma once

#include <map>
#include <set>
#include <vector>

#include "kmLint.h"
#include "kmLoadReport.h"
#include "lint/Findings.h"
#include "lint/Icons.h"
#include "lint/Profile.h"

// What keeps the ID from being the name of a file.
void AddIDFault(Findings& findings, const kmString& id);

class FolderLinter {
public:
    // Looks at all of the folder's files. `all` receives the findings.
    FolderLinter(const kmString& folder, std::vector<kmLintFinding>& all);

    void Lint();

private:
    struct File {
        kmString path;
        kmString id;
        Findings findings;
        ProfileFacts facts;
    };

    void LintLoad();
    void LintFiles(const kmString& folder, bool isUserFolder);
    void LintFile(File& file, bool isUserFolder);
    void LintIcons();
    void AddMissingIcons(const IconEntries& index, const IconEntries& user);
    void AddSpareIcons(const IconEntries& index, Findings& indexFindings, const IconEntries& user,
                       Findings& userFindings);

    std::vector<kmLintFinding>& m_all;
    kmLoadReport m_report;
    std::map<kmString, kmString> m_foundInstead;  // by the path of a shadowed file
    std::vector<File> m_files;
    bool m_hasIcons = true;
};

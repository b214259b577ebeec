// SPDX-License-Identifier: MIT
// One profile's file.
#pragma once

#include <vector>

#include "lint/Elements.h"
#include "lint/Findings.h"
#include "lint/Settings.h"
#include "lint/SourceFile.h"

// What the rest of its folder has to know of it.
struct ProfileFacts {
    struct GroupEntry {
        kmString name;
        TextPlace place;
    };
    bool isProfile = false;
    bool isSystem = false;
    TextPlace markPlace;             // of what makes it a system profile
    std::vector<GroupEntry> groups;  // of a system profile: those that it says it is in
};

class ProfileLinter {
public:
    ProfileLinter(const SourceFile& file, Findings& findings)
        : m_file(file), m_findings(findings), m_elements(file, findings) {}

    ProfileFacts Lint();

private:
    void LintRoot();
    void LintMain();
    void LintHeaderField(const XMLNode& child, std::size_t row);
    void LintMark(const XMLNode& mark);
    void LintGroups();
    void LintGroupName(const XMLNode& entry);
    void LintParameter();

    const SourceFile& m_file;
    Findings& m_findings;
    ElementLinter m_elements;
    ProfileFacts m_facts;
    XMLNode m_main, m_group, m_parameter;
};

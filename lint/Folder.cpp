// SPDX-License-Identifier: MIT
// What a load leaves out comes from the load's own report, and what is in the files from the files.
#include "lint/Folder.h"

#include <iterator>
#include <utility>

#include "document/Format.h"
#include "document/ProfileID.h"
#include "kmProfileID.h"
#include "lint/Names.h"
#include "platform/Files.h"
#include "text/Folders.h"

namespace {

// The faults of a load that no file shows by itself.
struct LoadRule {
    LOAD_FAULT fault;
    LINT_CODE code;
};
constexpr LoadRule kLoadRules[] = {
    {LOAD_FAULT_NO_FILE, LINT_NOT_A_FILE},
    {LOAD_FAULT_HIDDEN, LINT_HIDDEN_FILE},
    {LOAD_FAULT_FOLDER_MISSING, LINT_FOLDER_MISSING},
    {LOAD_FAULT_FOLDER_UNREADABLE, LINT_FOLDER_UNREADABLE},
    {LOAD_FAULT_NO_ICONS, LINT_NO_ICONS},
    {LOAD_FAULT_ICONS_IGNORED, LINT_ICONS_IGNORED},
};

// By the numbers of PROFILE_ID_FAULT.
constexpr kmStringView kIDFaults[] = {
    KM_TEXT(""),
    KM_TEXT("it is empty"),
    KM_TEXT("it begins with \".\""),
    KM_TEXT("it holds a control character or one of \\ / : * ? \" < > |"),
    KM_TEXT("it is the name of a device"),
    KM_TEXT("it holds a half of a character"),
};
static_assert(std::size(kIDFaults) == PROFILE_ID_FAULT_ENCODING + 1);

// The groups that every catalogue has, without a profile that names them.
constexpr kmStringView kOwnGroups[] = {KM_TEXT("default"), KM_TEXT("others"), KM_TEXT("User Defined"),
                                       KM_TEXT("Recent")};
constexpr kmStringView kDefault = KM_TEXT("default");

kmString NameIn(const kmString& path) { return path.substr(path.rfind(KM_TEXT('\\')) + 1); }

}  // namespace

FolderLinter::FolderLinter(const kmString& folder, std::vector<kmLintFinding>& all)
    : m_all(all), m_report(kmReportLoad(folder)) {}

void FolderLinter::Lint() {
    LintLoad();
    LintFiles(m_report.folder, /*isUserFolder=*/false);
    LintFiles(GetUserFolder(m_report.folder.c_str()), /*isUserFolder=*/true);
    LintIcons();
}

void FolderLinter::LintLoad() {
    for (const kmLoadFinding& finding : m_report.findings) {
        if (finding.fault == LOAD_FAULT_SHADOWED) m_foundInstead[finding.path] = finding.other;
        if (finding.fault == LOAD_FAULT_NO_ICONS) m_hasIcons = false;
        for (const LoadRule& rule : kLoadRules) {
            if (rule.fault != finding.fault) continue;
            Findings findings(finding.path);
            findings.Add(rule.code, {}, NameIn(finding.path));
            findings.MoveTo(m_all);
        }
    }
}

void FolderLinter::LintFiles(const kmString& folder, bool isUserFolder) {
    std::vector<kmString> names;
    static_cast<void>(InputFolder(folder).List(format::kSuffix, names));
    for (const kmString& name : names) {
        const kmString path = folder + name;
        m_files.push_back({path, ProfileIDOf(name), Findings(path), {}});
        LintFile(m_files.back(), isUserFolder);
    }
}

void FolderLinter::LintFile(File& file, bool isUserFolder) {
    const SourceFile source(file.path, format::kRoot);
    file.facts = ProfileLinter(source, file.findings).Lint();
    AddIDFault(file.findings, file.id);
    const auto found = m_foundInstead.find(file.path);
    if (found != m_foundInstead.end()) file.findings.Add(LINT_SAME_ID, {}, file.id, {found->second});
    if (file.facts.isSystem && isUserFolder)
        file.findings.Add(LINT_SYSTEM_IN_USER, file.facts.markPlace, file.id);
}

void FolderLinter::LintIcons() {
    const kmString indexPath = m_report.folder + KM_TEXT("pficon.con");
    const kmString userPath = GetUserFolder(m_report.folder.c_str()) + KM_TEXT("userpf.con");
    Findings indexFindings(indexPath), userFindings(userPath);
    IconEntries index, user;
    if (m_hasIcons) index = LintIconFile(indexPath, /*isUserFile=*/false, indexFindings);
    if (EntryExists(userPath.c_str())) user = LintIconFile(userPath, /*isUserFile=*/true, userFindings);
    if (index.areRead) AddMissingIcons(index, user);
    for (File& file : m_files) file.findings.MoveTo(m_all);
    AddSpareIcons(index, indexFindings, user, userFindings);
    indexFindings.MoveTo(m_all);
    userFindings.MoveTo(m_all);
}

// A group is told once, where the first profile names it.
void FolderLinter::AddMissingIcons(const IconEntries& index, const IconEntries& user) {
    std::set<kmString> told;
    for (File& file : m_files) {
        if (!file.facts.isProfile) continue;
        if (index.profiles.count(file.id) + user.profiles.count(file.id) == 0)
            file.findings.Add(LINT_PROFILE_WITHOUT_ICON, {}, file.id);
        for (const ProfileFacts::GroupEntry& group : file.facts.groups) {
            if (index.groups.count(group.name) == 0 && told.insert(group.name).second)
                file.findings.Add(LINT_GROUP_WITHOUT_ICON, group.place, group.name);
        }
    }
}

void FolderLinter::AddSpareIcons(const IconEntries& index, Findings& indexFindings, const IconEntries& user,
                                 Findings& userFindings) {
    std::set<kmString> groups(std::begin(kOwnGroups), std::end(kOwnGroups)), ids{kmString(kDefault)};
    for (const File& file : m_files) {
        if (file.facts.isProfile) ids.insert(file.id);
        for (const ProfileFacts::GroupEntry& group : file.facts.groups) groups.insert(group.name);
    }
    const auto add = [](Findings& findings, LINT_CODE code, const std::map<kmString, TextPlace>& entries,
                        const std::set<kmString>& known) {
        for (const auto& [id, place] : entries) {
            if (known.count(id) == 0) findings.Add(code, place, id);
        }
    };
    add(indexFindings, LINT_ICON_WITHOUT_GROUP, index.groups, groups);
    add(indexFindings, LINT_ICON_WITHOUT_PROFILE, index.profiles, ids);
    add(userFindings, LINT_ICON_WITHOUT_PROFILE, user.profiles, ids);
}

void AddIDFault(Findings& findings, const kmString& id) {
    const PROFILE_ID_FAULT fault = kmFindIDFault(id);
    if (fault != PROFILE_ID_FAULT_NONE) findings.Add(LINT_ID_FAULT, {}, id, {kIDFaults[fault]});
}

// SPDX-License-Identifier: MIT
// The report is filled by the load that it is about, so that it cannot say anything else.
#include "kmLoadReport.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "catalogue/LoadNotes.h"
#include "document/ProfileID.h"
#include "kmFileFault.h"
#include "kmIconParser.h"
#include "text/Numbers.h"

namespace {

struct FaultRow {
    LOAD_FAULT fault;
    const char* name;
    bool isUsed;
    kmStringView reason;
};

// In the order of the numbers, from 1.
constexpr FaultRow kRows[] = {
    {LOAD_FAULT_XML, "xml-error", false, KM_TEXT("The file is left out: ")},
    {LOAD_FAULT_XML_WARNING, "xml-warning", true, KM_TEXT("The file is used as far as it goes: ")},
    {LOAD_FAULT_UNREADABLE, "unreadable", false, KM_TEXT("The file cannot be read: ")},
    {LOAD_FAULT_NO_HEADER, "no-header", false, KM_TEXT("The file has no element \"Main\".")},
    {LOAD_FAULT_NO_FILE, "no-file", false,
     KM_TEXT("It is called like the file of a profile, but is a folder, a pipe or a device.")},
    {LOAD_FAULT_HIDDEN, "hidden", false, KM_TEXT("Files whose names begin with \".\" are not read.")},
    {LOAD_FAULT_SHADOWED, "shadowed", true,
     KM_TEXT("Another profile has the same ID, in some letter case, and is the one that is found.")},
    {LOAD_FAULT_FILTERED, "filtered", false, KM_TEXT("The filters of the catalogue do not take it.")},
    {LOAD_FAULT_NO_GROUP, "no-group", true,
     KM_TEXT("The profile is in no group: the file's group entries have no name.")},
    {LOAD_FAULT_FOLDER_MISSING, "folder-missing", false, KM_TEXT("There is no such folder.")},
    {LOAD_FAULT_FOLDER_UNREADABLE, "folder-unreadable", false,
     KM_TEXT("The folder cannot be listed, so that profiles may be missing.")},
    {LOAD_FAULT_NO_ICONS, "no-icons", false,
     KM_TEXT("There is no file of icons, so that no profile and no group has one.")},
    {LOAD_FAULT_ICONS_IGNORED, "icons-ignored", false,
     KM_TEXT("The user's icons are not read where \"pficon.con\" cannot be.")},
    {LOAD_FAULT_ICON_ENTRY, "icon-entry", true,
     KM_TEXT("Entries without an \"id\" or an \"image\" are left out: ")},
};

const FaultRow* FindRow(LOAD_FAULT fault) {
    const auto index = static_cast<std::size_t>(fault) - 1;  // 0 becomes too large
    return index < std::size(kRows) ? &kRows[index] : nullptr;
}

constexpr bool RowsStandAtTheirNumbers() {
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        if (static_cast<std::size_t>(kRows[i].fault) != i + 1) return false;
    }
    return true;
}
static_assert(RowsStandAtTheirNumbers());

// The name of the folder itself, without its final "\".
bool FolderExists(const kmString& folder) {
    return EntryExists(folder.substr(0, folder.size() - (folder.empty() ? 0 : 1)).c_str());
}

struct NameIsLess {
    bool operator()(const kmString& a, const kmString& b) const {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                            [](kmChar x, kmChar y) { return FoldUpper(x) < FoldUpper(y); });
    }
};

}  // namespace

kmLoadFinding& LoadNotes::Add(LOAD_FAULT fault, const kmString& path) {
    kmLoadFinding& finding = m_report.findings.emplace_back();
    finding.fault = fault;
    finding.path = path;
    finding.isUsed = FindRow(fault)->isUsed;
    finding.reason = FindRow(fault)->reason;
    return finding;
}

void LoadNotes::AddXMLFault(const kmString& path, const XMLParseResult& result) {
    const bool isUnreadable = result.code == XML_ERROR_FILE_NOT_FOUND;
    const LOAD_FAULT fault = isUnreadable               ? LOAD_FAULT_UNREADABLE
                             : kmIsWarning(result.code) ? LOAD_FAULT_XML_WARNING
                                                        : LOAD_FAULT_XML;
    kmLoadFinding& finding = Add(fault, path);
    finding.xml = result.code;
    finding.line = result.line;
    finding.column = result.column;
    finding.reason.append(isUnreadable ? kmFileFaultText(kmLastFileFault()) : XMLErrorText(result.code))
        .append(KM_TEXT("."));
}

void LoadNotes::AddListing(const kmString& folder, bool isComplete, const ListingNotes& listing) {
    const bool isProfilesFolder = m_report.folder.empty();
    if (isProfilesFolder) m_report.folder = folder;
    if (!isComplete) {
        Add(LOAD_FAULT_FOLDER_UNREADABLE, folder).xml = XML_ERROR_FILE_NOT_FOUND;
    } else if (!listing.hasBegun && FolderExists(folder)) {
        Add(LOAD_FAULT_FOLDER_UNREADABLE, folder);
    } else if (!listing.hasBegun && isProfilesFolder) {
        Add(LOAD_FAULT_FOLDER_MISSING, folder);
    }
    for (const PassedEntry& entry : listing.passed)
        Add(entry.isHidden ? LOAD_FAULT_HIDDEN : LOAD_FAULT_NO_FILE, folder + entry.name);
}

void LoadNotes::AddFile(const kmString& folder, const kmString& name, const XMLParseResult& result,
                        FilingResult filed) {
    const kmString path = folder + name;
    if (result.code != XML_ERROR_NONE) AddXMLFault(path, result);
    if (filed == FilingResult::Taken || filed == FilingResult::TakenIntoNoGroup)
        m_report.taken.push_back(path);
    if (filed == FilingResult::TakenIntoNoGroup) Add(LOAD_FAULT_NO_GROUP, path);
    if (filed == FilingResult::Filtered) Add(LOAD_FAULT_FILTERED, path);
    const bool isRead = result.code == XML_ERROR_NONE || kmIsWarning(result.code);
    if (filed == FilingResult::NoHeader && isRead) Add(LOAD_FAULT_NO_HEADER, path);
}

void LoadNotes::AddIconFile(const IconFileNotes& file) {
    if (file.result.code != XML_ERROR_NONE) AddXMLFault(file.path, file.result);
    if (file.entriesLeftOut == 0) return;
    Add(LOAD_FAULT_ICON_ENTRY, file.path)
        .reason.append(IntegerText(file.entriesLeftOut))
        .append(KM_TEXT("."));
}

// A user without icons of his own is nothing to tell of.
void LoadNotes::AddIcons(const IconNotes& icons) {
    if (icons.index.path.empty()) return;
    const auto exists = [](const IconFileNotes& file) { return EntryExists(file.path.c_str()); };
    const bool isMissing = icons.index.result.code == XML_ERROR_FILE_NOT_FOUND;
    if (isMissing && !exists(icons.index)) {
        Add(LOAD_FAULT_NO_ICONS, icons.index.path).xml = XML_ERROR_FILE_NOT_FOUND;
    } else {
        AddIconFile(icons.index);
    }
    const bool wasFound = icons.user.result.code != XML_ERROR_FILE_NOT_FOUND || exists(icons.user);
    if (icons.user.wasTried && wasFound) AddIconFile(icons.user);
    if (!icons.user.wasTried && exists(icons.user)) Add(LOAD_FAULT_ICONS_IGNORED, icons.user.path);
}

// The first of each ID is the one that look-ups find.
void LoadNotes::Finish() {
    std::map<kmString, const kmString*, NameIsLess> firstPaths;
    for (const kmString& path : m_report.taken) {
        const kmString id = ProfileIDOf(path.substr(path.rfind(KM_TEXT('\\')) + 1));
        const auto [first, isNew] = firstPaths.try_emplace(id, &path);
        if (!isNew) Add(LOAD_FAULT_SHADOWED, path).other = *first->second;
    }
}

kmLoadReport kmLoadWithReport(kmManager& manager, const kmString& folder) {
    kmLoadReport report;
    LoadNotes notes(report, /*isSilent=*/false);
    manager.LoadNoting(folder, &notes);
    notes.Finish();
    return report;
}

kmLoadReport kmReportLoad(const kmString& folder) {
    struct OwnIcons : kmIconParser {};
    struct OwnCatalogue : kmManager {};
    OwnIcons icons;
    OwnCatalogue own;
    kmManager& catalogue = own;
    catalogue.m_iconParser = &icons;
    kmLoadReport report;
    LoadNotes notes(report, /*isSilent=*/true);
    catalogue.LoadNoting(folder, &notes);
    notes.Finish();
    return report;
}

const char* kmLoadFaultName(LOAD_FAULT fault) {
    const FaultRow* row = FindRow(fault);
    return row == nullptr ? "?" : row->name;
}

// SPDX-License-Identifier: MIT
// Advice about profile files: what is wrong in them or will surprise, where, and what to do.
#pragma once

#include <cstdint>
#include <vector>

#include "kmExport.h"
#include "kmTypes.h"

// How much a finding matters.
enum LINT_SEVERITY : std::int32_t {
    LINT_NOTE = 0,     // works; good to know
    LINT_WARNING = 1,  // used, but hardly as its author meant it
    LINT_ERROR = 2,    // left out by the library, or refused by its own checks
};

// What was found. Applications may keep the numbers; kmFindLintRule has the rest.
enum LINT_CODE : std::int32_t {
    // A file as a whole
    LINT_XML_ERROR = 1,
    LINT_XML_WARNING = 2,
    LINT_UNREADABLE_FILE = 3,
    LINT_NO_HEADER = 4,
    LINT_NO_SETTINGS = 5,
    // Its elements and attributes
    LINT_MISSING_HEADER_FIELD = 6,
    LINT_SYSTEM_MARK = 7,
    LINT_UNKNOWN_ELEMENT = 8,
    LINT_UNKNOWN_ATTRIBUTE = 9,
    LINT_USUAL_SPELLING = 10,
    LINT_REPEATED_ELEMENT = 11,
    LINT_REPEATED_ATTRIBUTE = 12,
    LINT_ATTRIBUTE_WITHOUT_VALUE = 13,
    LINT_IGNORED_TEXT = 14,
    LINT_DROPPED_COMMENT = 15,
    LINT_DROPPED_GROUPS = 16,
    // Settings
    LINT_UNKNOWN_OPTION = 17,
    LINT_OPTION_LETTER_CASE = 18,
    LINT_DOUBLED_OPTION = 19,
    LINT_EMPTY_VALUE = 20,
    LINT_VALUE_REFUSED = 21,
    LINT_NOT_A_NUMBER = 22,
    LINT_SWITCH_VALUE = 23,
    LINT_FLAG_VALUE = 24,
    LINT_QUOTE_IN_VALUE = 25,
    LINT_VALUE_NOT_OFFERED = 26,
    LINT_LIST_LENGTHS = 27,
    LINT_NO_CANDIDATES = 28,
    LINT_BEFORE_TARGET = 29,
    LINT_CORRECTED_VALUE = 30,
    // A profile in its folder
    LINT_ID_FAULT = 31,
    LINT_SAME_ID = 32,
    LINT_SYSTEM_IN_USER = 33,
    LINT_NO_GROUP = 34,
    LINT_GROUP_OUTSIDE_ORDER = 35,
    LINT_NOT_A_FILE = 36,
    LINT_HIDDEN_FILE = 37,
    LINT_FOLDER_MISSING = 38,
    LINT_FOLDER_UNREADABLE = 39,
    LINT_NO_PROFILE = 40,
    // Icons
    LINT_PROFILE_WITHOUT_ICON = 41,
    LINT_GROUP_WITHOUT_ICON = 42,
    LINT_ICON_WITHOUT_PROFILE = 43,
    LINT_ICON_WITHOUT_GROUP = 44,
    LINT_ICON_ENTRY = 45,
    LINT_DOUBLED_ICON = 46,
    LINT_NO_ICONS = 47,
    LINT_ICONS_IGNORED = 48,
    // The list of findings itself
    LINT_MORE_FINDINGS = 49,
};

// What all findings of a code have in common. In the texts $0 stands for the finding's subject, $1 and $2 for
// what else the finding tells. Everything is constant.
struct kmLintRule {
    LINT_CODE code;          // the number
    const char* name;        // short and stable, such as "unknown-option"
    LINT_SEVERITY severity;  // of all its findings
    const kmChar* what;      // one sentence, in English
    const kmChar* advice;    // one more: what to do
};

// The rule of that code; null for any other number. The codes run from 1 without a gap.
KM_EXPORT const kmLintRule* kmFindLintRule(std::int32_t code);

// One finding. Texts out of files stand in `what` and `advice` shortened, with every control character
// replaced, so that they can be shown anywhere; `subject` is shortened alone.
struct kmLintFinding {
    LINT_CODE code = LINT_XML_ERROR;     // the rule
    LINT_SEVERITY severity = LINT_NOTE;  // the rule's
    const char* name = "";               // the rule's
    kmString path;                       // of the file or folder
    std::int32_t line = 0;               // from 1; 0 when the finding is about the file as a whole
    std::int32_t column = 0;  // from 1, in UTF-16 units, of the name or value that it is about; 0 likewise
    kmString subject;         // the setting, element, attribute, group or ID that it is about; may be empty
    kmString suggestion;      // what to write instead, where that can be told; else empty
    kmString what;            // one sentence, in English
    kmString advice;          // one more: what to do
};

// All of these only read, change nothing and send no messages; they need memory in proportion to the largest
// file. Findings stand in the order of their files and places, at most 1000 of each file, and then one that
// says how many more there are.

// What can be said of one file by itself: of a profile, or of icons when it is called "pficon.con" or
// "userpf.con".
KM_EXPORT std::vector<kmLintFinding> kmLintFile(const kmString& path);

// A whole profiles folder with its "user" subfolder: every file, and what fits together and what does not. An
// empty `folder` means the default one. Files that kmReportLoad calls left out have at least one finding.
KM_EXPORT std::vector<kmLintFinding> kmLintFolder(const kmString& folder);

// What kmLintFolder finds about the file of one profile: the file that kmProfile::Load reads for that ID.
KM_EXPORT std::vector<kmLintFinding> kmLintProfile(const kmString& folder, const kmString& id);

// SPDX-License-Identifier: MIT
// Everything that can be found, one row each. A new kind of finding is a row here and a number in kmLint.h.
#include <cstddef>
#include <iterator>

#include "kmLint.h"

namespace {

// clang-format off
constexpr kmLintRule kRules[] = {
    {LINT_XML_ERROR, "xml-error", LINT_ERROR,
     KM_TEXT("The file cannot be read: $1."), KM_TEXT("Correct the XML at this place; until then the file is left out.")},
    {LINT_XML_WARNING, "xml-warning", LINT_WARNING,
     KM_TEXT("The file is read only as far as it makes sense: $1."), KM_TEXT("Close every element in its place.")},
    {LINT_UNREADABLE_FILE, "unreadable-file", LINT_ERROR,
     KM_TEXT("The file cannot be read: $1."), KM_TEXT("Look at its permissions and its size.")},
    {LINT_NO_HEADER, "no-header", LINT_ERROR,
     KM_TEXT("There is no element \"Main\", so that the file is no profile."), KM_TEXT("Add the header, with \"Name\", \"Format\" and \"ExtName\".")},
    {LINT_NO_SETTINGS, "no-settings", LINT_WARNING,
     KM_TEXT("The profile has no settings."), KM_TEXT("Add the element \"Parameter\" with one element a setting.")},
    {LINT_MISSING_HEADER_FIELD, "missing-header-field", LINT_WARNING,
     KM_TEXT("The header has no \"$0\"."), KM_TEXT("Add it: $1.")},
    {LINT_SYSTEM_MARK, "system-mark", LINT_WARNING,
     KM_TEXT("\"$1\" does not mark a system profile."), KM_TEXT("Write \"yes\", or remove the element.")},
    {LINT_UNKNOWN_ELEMENT, "unknown-element", LINT_WARNING,
     KM_TEXT("The element \"$0\" is not read here, and a save drops it."), KM_TEXT("Remove it, or correct its name.")},
    {LINT_UNKNOWN_ATTRIBUTE, "unknown-attribute", LINT_WARNING,
     KM_TEXT("The attribute \"$0\" is not read here, and a save drops it."), KM_TEXT("Remove it, or correct its name.")},
    {LINT_USUAL_SPELLING, "usual-spelling", LINT_WARNING,
     KM_TEXT("\"$0\" is not read: the format has another word for it."), KM_TEXT("Correct the name.")},
    {LINT_REPEATED_ELEMENT, "repeated-element", LINT_WARNING,
     KM_TEXT("Only the first element \"$0\" is read."), KM_TEXT("Put everything into the first, and remove this one.")},
    {LINT_REPEATED_ATTRIBUTE, "repeated-attribute", LINT_WARNING,
     KM_TEXT("Only the first attribute \"$0\" is read."), KM_TEXT("Remove one of them.")},
    {LINT_ATTRIBUTE_WITHOUT_VALUE, "attribute-without-value", LINT_WARNING,
     KM_TEXT("The attribute \"$0\" has no value, and counts as missing."), KM_TEXT("Give it one, after \"=\" and in quotes.")},
    {LINT_IGNORED_TEXT, "ignored-text", LINT_WARNING,
     KM_TEXT("The text in \"$0\" is not read."), KM_TEXT("Values stand in attributes: move it into \"$1\", or remove it.")},
    {LINT_DROPPED_COMMENT, "dropped-comment", LINT_NOTE,
     KM_TEXT("Comments and the like are not read, and a save drops them; this is the first."), KM_TEXT("Keep notes elsewhere if the profile will be edited.")},
    {LINT_DROPPED_GROUPS, "dropped-groups", LINT_NOTE,
     KM_TEXT("The groups of a user's profile are not read, and a save drops them."), KM_TEXT("Remove them, or mark the profile as one of the system's.")},
    {LINT_UNKNOWN_OPTION, "unknown-option", LINT_WARNING,
     KM_TEXT("There is no option \"$0\": the setting never reaches the encoder."), KM_TEXT("Remove it, or correct its name.")},
    {LINT_OPTION_LETTER_CASE, "option-letter-case", LINT_WARNING,
     KM_TEXT("Settings are looked up by their exact names, which \"$0\" is not."), KM_TEXT("Correct its letter case.")},
    {LINT_DOUBLED_OPTION, "doubled-option", LINT_WARNING,
     KM_TEXT("The setting \"$0\" stands on line $1 already; a save keeps one of them."), KM_TEXT("Remove one of them.")},
    {LINT_EMPTY_VALUE, "empty-value", LINT_NOTE,
     KM_TEXT("A save drops the empty value of \"$0\", and the next load takes the default, \"$1\"."), KM_TEXT("Write the value that is meant.")},
    {LINT_VALUE_REFUSED, "value-refused", LINT_ERROR,
     KM_TEXT("The value \"$1\" of \"$0\" would be refused if it were typed: $2"), KM_TEXT("Correct the value.")},
    {LINT_NOT_A_NUMBER, "not-a-number", LINT_WARNING,
     KM_TEXT("The value \"$1\" of \"$0\" is no number."), KM_TEXT("Write a number.")},
    {LINT_SWITCH_VALUE, "switch-value", LINT_WARNING,
     KM_TEXT("\"$1\" does not turn the switch \"$0\" on."), KM_TEXT("Write \"true\" for on, \"false\" for off.")},
    {LINT_FLAG_VALUE, "flag-value", LINT_WARNING,
     KM_TEXT("\"$1\" does not set the flag \"$0\"."), KM_TEXT("Write \"yes\", or remove the attribute.")},
    {LINT_QUOTE_IN_VALUE, "quote-in-value", LINT_WARNING,
     KM_TEXT("The value of \"$0\" holds a quotation mark or a line break, which ends it in the option string."), KM_TEXT("Remove it; be careful with profiles of strangers.")},
    {LINT_VALUE_NOT_OFFERED, "value-not-offered", LINT_WARNING,
     KM_TEXT("The value \"$1\" of \"$0\" is not in its own list \"$2\"."), KM_TEXT("Add the value to the list, or choose one from it.")},
    {LINT_LIST_LENGTHS, "list-lengths", LINT_WARNING,
     KM_TEXT("The list \"$1\" of \"$0\" has another length than \"$2\"."), KM_TEXT("Give each value its text, in the same order.")},
    {LINT_NO_CANDIDATES, "no-candidates", LINT_WARNING,
     KM_TEXT("\"$0\" is to be chosen from a list, but has no \"$1\"."), KM_TEXT("Add the list, or remove the flag.")},
    {LINT_BEFORE_TARGET, "before-target", LINT_WARNING,
     KM_TEXT("\"$0\" stands before \"target\", and so is written all the same."), KM_TEXT("Move \"target\", which decides such settings, in front of them.")},
    {LINT_CORRECTED_VALUE, "corrected-value", LINT_WARNING,
     KM_TEXT("The encoder gets \"$1\" for \"$0\": $2."), KM_TEXT("Write a value that the codec allows.")},
    {LINT_ID_FAULT, "id-fault", LINT_WARNING,
     KM_TEXT("\"$0\" cannot be the name of a file on every system: $1."), KM_TEXT("Rename the file.")},
    {LINT_SAME_ID, "same-id", LINT_WARNING,
     KM_TEXT("Another profile has the ID \"$0\" in some letter case, and is found instead: $1."), KM_TEXT("Rename one of the files.")},
    {LINT_SYSTEM_IN_USER, "system-in-user", LINT_WARNING,
     KM_TEXT("A system profile among the user's: its copies are saved to a folder that nothing lists."), KM_TEXT("Move the file to the profiles folder, or remove \"IsSysProfile\".")},
    {LINT_NO_GROUP, "no-group", LINT_WARNING,
     KM_TEXT("The profile's group entries have no name, so that it is in no group."), KM_TEXT("Write <GroupName language=\"...\"/>, or remove \"Group\".")},
    {LINT_GROUP_OUTSIDE_ORDER, "group-outside-order", LINT_NOTE,
     KM_TEXT("The group \"$0\" has no place in the display order; it comes after those that have."), KM_TEXT("Choose one of the known groups if that matters.")},
    {LINT_NOT_A_FILE, "not-a-file", LINT_WARNING,
     KM_TEXT("It is called like the file of a profile, but is a folder, a pipe or a device."), KM_TEXT("Rename it, or move it away.")},
    {LINT_HIDDEN_FILE, "hidden-file", LINT_WARNING,
     KM_TEXT("Files whose names begin with \".\" are not read."), KM_TEXT("Rename the file.")},
    {LINT_FOLDER_MISSING, "folder-missing", LINT_ERROR,
     KM_TEXT("There is no such folder."), KM_TEXT("Name the folder that holds the profiles.")},
    {LINT_FOLDER_UNREADABLE, "folder-unreadable", LINT_ERROR,
     KM_TEXT("The folder cannot be listed, so that profiles may be missing."), KM_TEXT("Look at its permissions.")},
    {LINT_NO_PROFILE, "no-profile", LINT_ERROR,
     KM_TEXT("There is no profile \"$0\" in the folder, nor in its \"user\" subfolder."), KM_TEXT("Look at the spelling of the ID.")},
    {LINT_PROFILE_WITHOUT_ICON, "profile-without-icon", LINT_NOTE,
     KM_TEXT("\"$0\" has no icon of its own."), KM_TEXT("Add an entry to \"pficon.con\" or \"userpf.con\".")},
    {LINT_GROUP_WITHOUT_ICON, "group-without-icon", LINT_NOTE,
     KM_TEXT("The group \"$0\" has no icon of its own."), KM_TEXT("Add an entry to \"pficon.con\".")},
    {LINT_ICON_WITHOUT_PROFILE, "icon-without-profile", LINT_NOTE,
     KM_TEXT("There is no profile \"$0\" for this icon."), KM_TEXT("Remove the entry, or correct its ID: letter case counts.")},
    {LINT_ICON_WITHOUT_GROUP, "icon-without-group", LINT_NOTE,
     KM_TEXT("There is no group \"$0\" for this icon."), KM_TEXT("Remove the entry, or correct its name: letter case counts.")},
    {LINT_ICON_ENTRY, "icon-entry", LINT_WARNING,
     KM_TEXT("The entry \"$0\" has no \"$1\"."), KM_TEXT("Every entry needs \"id\", \"image\" and \"index\".")},
    {LINT_DOUBLED_ICON, "doubled-icon", LINT_WARNING,
     KM_TEXT("\"$0\" has an entry on line $1 already, which this one replaces."), KM_TEXT("Remove one of them.")},
    {LINT_NO_ICONS, "no-icons", LINT_NOTE,
     KM_TEXT("There is no file of icons, so that no profile and no group has one."), KM_TEXT("Add \"pficon.con\" if the application shows icons.")},
    {LINT_ICONS_IGNORED, "icons-ignored", LINT_WARNING,
     KM_TEXT("The user's icons are not read, because \"pficon.con\" cannot be."), KM_TEXT("Add or correct \"pficon.con\".")},
    {LINT_MORE_FINDINGS, "more-findings", LINT_NOTE,
     KM_TEXT("There are $1 more findings in this file."), KM_TEXT("Correct the first ones, and look again.")},
};
// clang-format on

constexpr bool RulesStandAtTheirNumbers() {
    for (std::size_t i = 0; i < std::size(kRules); ++i) {
        if (static_cast<std::size_t>(kRules[i].code) != i + 1) return false;
    }
    return true;
}
static_assert(RulesStandAtTheirNumbers());

}  // namespace

const kmLintRule* kmFindLintRule(std::int32_t code) {
    const auto index = static_cast<std::size_t>(code) - 1;  // 0 becomes too large
    return index < std::size(kRules) ? &kRules[index] : nullptr;
}

// SPDX-License-Identifier: MIT
// What a load of the catalogue left out, and why.
#pragma once

#include <cstdint>
#include <vector>

#include "kmExport.h"
#include "kmManager.h"
#include "kmMessages.h"
#include "kmTypes.h"

// Why something was left out, or used in part alone. Applications may keep the numbers.
enum LOAD_FAULT : std::int32_t {
    LOAD_FAULT_XML = 1,          // left out: the file cannot be read as XML, or begins with another element
    LOAD_FAULT_XML_WARNING = 2,  // used, as far as it goes: something is wrong with the XML
    LOAD_FAULT_UNREADABLE = 3,   // left out: the file cannot be opened or read, or is too large
    LOAD_FAULT_NO_HEADER = 4,    // left out: no element "Main"
    LOAD_FAULT_NO_FILE = 5,   // left out: a folder, a pipe or a device that is called like a profile's file
    LOAD_FAULT_HIDDEN = 6,    // left out: the file's name begins with "."
    LOAD_FAULT_SHADOWED = 7,  // in the catalogue, but look-ups by its ID find `other`
    LOAD_FAULT_FILTERED = 8,  // left out: the filters of the catalogue do not take it
    LOAD_FAULT_NO_GROUP = 9,  // in the catalogue, but in no group: no name in the file's group entries
    LOAD_FAULT_FOLDER_MISSING = 10,     // there is no such profiles folder
    LOAD_FAULT_FOLDER_UNREADABLE = 11,  // the folder cannot be listed, or only in part
    LOAD_FAULT_NO_ICONS = 12,           // there is no file of icons: no profile and no group has one
    LOAD_FAULT_ICONS_IGNORED = 13,      // the user's icons are not read without the file of all icons
    LOAD_FAULT_ICON_ENTRY = 14,         // entries of the file of icons without an ID or an image are left out
};

// One thing that is not as the files would have it.
struct kmLoadFinding {
    LOAD_FAULT fault = LOAD_FAULT_XML;  // why
    bool isUsed = false;                // in part, or not as it was meant; false: left out
    kmString path;                      // of the file or folder; a folder with a final "\"
    kmString other;                     // of a shadowed profile: the file that is found instead of it
    XMLErrorCode xml = XML_ERROR_NONE;  // the message's code, where there was one
    std::int32_t line = 0;              // from 1; 0 when the fault has no position in the file
    std::int32_t column = 0;            // from 1, in UTF-16 units; 0 likewise
    kmString reason;                    // one sentence, in English
};

// What became of every file of a profiles folder.
struct kmLoadReport {
    kmString folder;                      // the profiles folder, with a final "\"
    std::vector<kmString> taken;          // the paths of the files that became records, in the records' order
    std::vector<kmLoadFinding> findings;  // in the order of the load
};

// kmManager::Load, with the report of this very load. Messages go where they always go.
KM_EXPORT kmLoadReport kmLoadWithReport(kmManager& manager, const kmString& folder);

// The report that a load without filters would give. Sends no messages and changes nothing: neither the
// catalogue of the process nor its icons. An empty `folder` means the default one.
KM_EXPORT kmLoadReport kmReportLoad(const kmString& folder);

// The fault's name, such as "xml-error", for output that programs read; "?" for any other number. Constant.
KM_EXPORT const char* kmLoadFaultName(LOAD_FAULT fault);

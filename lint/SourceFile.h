// SPDX-License-Identifier: MIT
// A file with its tree, and the places of the tree's pieces.
#pragma once

#include "kmFileFault.h"
#include "kmTypes.h"
#include "lint/Findings.h"
#include "xml/LineTable.h"
#include "xml/XMLNode.h"

struct SourceFile {
    kmString path;
    XMLNode root;  // empty after an error
    XMLParseResult result;
    LineTable lines;
    FILE_FAULT fault = FILE_FAULT_NONE;  // why the file could not be read, if so

    // Reads the file, without a message.
    SourceFile(const kmString& path, const kmChar* firstTag);

    TextPlace PlaceOf(const XMLNode& node) const { return lines.PlaceOf(node.GetName()); }
    TextPlace PlaceOf(kmStringView piece) const { return lines.PlaceOf(piece.data()); }

    // What is wrong with the XML.
    void AddFault(Findings& findings) const;
};

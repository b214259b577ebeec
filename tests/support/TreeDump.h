// SPDX-License-Identifier: MIT
// A tree on one line, for comparison: Profiles(Main(Name[language=MyPhone]) Parameter).
#pragma once

#include <string>

#include "tests/support/Text.h"
#include "xml/XMLNode.h"

inline std::string DumpHead(const XMLNode& node) {
    std::string head = node.IsDeclaration() ? "?" : "";
    if (node.GetName() != nullptr) head += Utf8(node.GetName());
    for (int i = 0; i < node.CountAttributes(); ++i) {
        head += (i == 0 ? "[" : " ") + Utf8(node.AttributeNameAt(i));
        const kmStringView value = node.AttributeValueAt(i);
        if (value.data() != nullptr) head += "=" + Utf8(value);
    }
    return node.CountAttributes() == 0 ? head : head + "]";
}

// An element is its name, [attributes], then in parentheses its 'texts' and its children; a declaration has a
// "?" in front, the node around a whole file no name, the empty node is "(empty)".
inline std::string Dump(const XMLNode& node) {
    if (node.IsEmpty()) return "(empty)";
    std::string content;
    for (int i = 0; node.TextAt(i) != nullptr; ++i) content += " '" + Utf8(node.TextAt(i)) + "'";
    for (int i = 0; i < node.CountChildren(); ++i) content += " " + Dump(node.ChildAt(i));
    return DumpHead(node) + (content.empty() ? "" : "(" + content.substr(1) + ")");
}

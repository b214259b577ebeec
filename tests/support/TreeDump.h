// A tree on one line, for comparison: Profiles(Main(Name[language=MyPhone]) Parameter).
#pragma once

#include <string>
#include <utility>
#include <vector>

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
// "?" in front, the node around a whole file no name, the empty node is "(empty)". Takes trees of any depth.
inline std::string Dump(const XMLNode& root) {
    if (root.IsEmpty()) return "(empty)";
    std::string dump = DumpHead(root);
    std::vector<std::pair<XMLNode, int>> open{{root, 0}};
    while (!open.empty()) {
        auto& [node, next] = open.back();
        if (next == 0) {
            for (int i = 0; node.TextAt(i) != nullptr; ++i) {
                dump += (i == 0 ? "('" : " '") + Utf8(node.TextAt(i)) + "'";
            }
        }
        XMLNode child = node.ChildAt(next);
        if (child.IsEmpty()) {
            if (next > 0 || node.TextAt(0) != nullptr) dump += ")";
            open.pop_back();
            continue;
        }
        dump += (next > 0 || node.TextAt(0) != nullptr ? " " : "(") + DumpHead(child);
        ++next;
        open.emplace_back(std::move(child), 0);
    }
    return dump;
}

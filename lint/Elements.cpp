// SPDX-License-Identifier: MIT
#include "lint/Elements.h"

#include <cstddef>
#include <vector>

#include "lint/Names.h"

namespace {

// The index of the name, in any letter case; the number of names when it is none of them.
std::size_t IndexOf(kmStringView name, std::span<const kmStringView> known) {
    std::size_t index = 0;
    while (index < known.size() && !EqualNoCase(known[index], name)) ++index;
    return index;
}

}  // namespace

SourceFile::SourceFile(const kmString& filePath, const kmChar* firstTag) : path(filePath) {
    root = XMLNode::ParseDocumentFile(path.c_str(), firstTag, &result, &lines);
    if (result.code == XML_ERROR_FILE_NOT_FOUND) fault = kmLastFileFault();
}

void SourceFile::AddFault(Findings& findings) const {
    if (result.code == XML_ERROR_NONE) return;
    if (result.code == XML_ERROR_FILE_NOT_FOUND)
        return findings.Add(LINT_UNREADABLE_FILE, {}, {}, {kmFileFaultText(fault)});
    const LINT_CODE code = kmIsWarning(result.code) ? LINT_XML_WARNING : LINT_XML_ERROR;
    findings.Add(code, {result.line, result.column}, {}, {XMLErrorText(result.code)});
}

void ElementLinter::LintAttributes(const XMLNode& node, std::span<const kmStringView> known) {
    std::vector<bool> seen(known.size());
    for (int i = 0; i < node.CountAttributes(); ++i) {
        const kmStringView name = node.AttributeNameAt(i);
        const TextPlace place = m_file.PlaceOf(name);
        const std::size_t index = IndexOf(name, known);
        if (index == known.size()) {
            AddUnknownName(m_findings, LINT_UNKNOWN_ATTRIBUTE, place, name, known);
        } else if (node.AttributeValueAt(i).data() == nullptr) {
            m_findings.Add(LINT_ATTRIBUTE_WITHOUT_VALUE, place, name);
        } else if (seen[index]) {
            m_findings.Add(LINT_REPEATED_ATTRIBUTE, place, name);
        }
        if (index < known.size()) seen[index] = true;
    }
}

void ElementLinter::AddUnknown(const XMLNode& child, std::span<const kmStringView> known) {
    AddUnknownName(m_findings, LINT_UNKNOWN_ELEMENT, m_file.PlaceOf(child), child.GetName(), known);
}

void ElementLinter::LintChildren(const XMLNode& node) {
    for (int i = 0; i < node.CountChildren(); ++i) AddUnknown(node.ChildAt(i), {});
}

void ElementLinter::LintComments(const XMLNode& node) {
    const kmChar* raw = m_hasComment ? nullptr : node.FirstRaw();
    if (raw == nullptr) return;
    m_hasComment = true;
    m_findings.Add(LINT_DROPPED_COMMENT, m_file.lines.PlaceOf(raw), {});
}

void ElementLinter::LintText(const XMLNode& node, kmStringView wanted) {
    const kmChar* text = node.TextAt(0);
    if (text != nullptr)
        m_findings.Add(LINT_IGNORED_TEXT, m_file.lines.PlaceOf(text), node.GetName(), {wanted});
}

// SPDX-License-Identifier: MIT
// What is the same for every element: which attributes and content it may have.
#pragma once

#include <span>

#include "lint/Findings.h"
#include "lint/SourceFile.h"

class ElementLinter {
public:
    ElementLinter(const SourceFile& file, Findings& findings) : m_file(file), m_findings(findings) {}

    // The attributes that are not among `known`, repeated, or without a value.
    void LintAttributes(const XMLNode& node, std::span<const kmStringView> known);

    // A child that is not read.
    void AddUnknown(const XMLNode& child, std::span<const kmStringView> known);

    // All children are unknown.
    void LintChildren(const XMLNode& node);

    // A comment, and a text, which nobody reads; `wanted` is where the text belongs.
    void LintComments(const XMLNode& node);
    void LintText(const XMLNode& node, kmStringView wanted);

private:
    const SourceFile& m_file;
    Findings& m_findings;
    bool m_hasComment = false;
};

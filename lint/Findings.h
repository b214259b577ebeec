// SPDX-License-Identifier: MIT
// The findings about one file, filled from the table of rules. A hostile file cannot make them many.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

#include "kmLint.h"
#include "text/Ascii.h"
#include "xml/LineTable.h"

class Findings {
public:
    static constexpr std::size_t kMost = 1000;

    explicit Findings(kmString path) : m_path(std::move(path)) {}

    // Whether further findings are only counted, so that there is no use in finding out more about them.
    bool IsFull() const { return m_findings.size() >= kMost; }

    // `details` are $1 and $2 of the rule's texts.
    void Add(LINT_CODE code, TextPlace place, kmStringView subject,
             std::initializer_list<kmStringView> details = {}, kmStringView suggestion = {});

    // Appends them to `all`, in the order of their places.
    void MoveTo(std::vector<kmLintFinding>& all);

private:
    void Append(LINT_CODE code, TextPlace place, kmStringView subject,
                std::initializer_list<kmStringView> details, kmStringView suggestion);

    kmString m_path;
    std::vector<kmLintFinding> m_findings;
    std::size_t m_leftOut = 0;
};

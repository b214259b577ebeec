// SPDX-License-Identifier: MIT
#include "lint/Findings.h"

#include <algorithm>
#include <iterator>
#include <tuple>

#include "text/Numbers.h"

namespace {

constexpr std::size_t kLongestShown = 80;
constexpr kmChar kReplacement = 0xFFFD;

// Not in the middle of a character.
kmString Shortened(kmStringView text) {
    if (text.size() <= kLongestShown) return kmString(text);
    std::size_t length = kLongestShown;
    if ((text[length - 1] & 0xFC00) == 0xD800) --length;
    return kmString(text.substr(0, length)) + KM_TEXT("...");
}

// Control characters, and those that turn the direction of writing.
constexpr bool IsControl(kmChar c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x200E && c <= 0x200F) ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

kmString Shown(kmStringView text) {
    kmString shown = Shortened(text);
    std::replace_if(shown.begin(), shown.end(), IsControl, kReplacement);
    return shown;
}

// What is filled in is not looked at again.
kmString Fill(kmStringView pattern, kmStringView subject, std::initializer_list<kmStringView> details) {
    kmString text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != KM_TEXT('$')) {
            text += pattern[i];
            continue;
        }
        const auto number = static_cast<std::size_t>(pattern[++i] - KM_TEXT('0'));
        if (number == 0) text += Shown(subject);
        if (number > 0 && number <= details.size()) text += Shown(std::data(details)[number - 1]);
    }
    return text;
}

}  // namespace

void Findings::Add(LINT_CODE code, TextPlace place, kmStringView subject,
                   std::initializer_list<kmStringView> details, kmStringView suggestion) {
    if (IsFull()) {
        ++m_leftOut;
    } else {
        Append(code, place, subject, details, suggestion);
    }
}

void Findings::Append(LINT_CODE code, TextPlace place, kmStringView subject,
                      std::initializer_list<kmStringView> details, kmStringView suggestion) {
    const kmLintRule& rule = *kmFindLintRule(code);
    kmLintFinding& finding = m_findings.emplace_back();
    finding.code = code;
    finding.severity = rule.severity;
    finding.name = rule.name;
    finding.path = m_path;
    finding.line = place.line;
    finding.column = place.column;
    finding.subject = Shortened(subject);
    finding.suggestion = suggestion;
    finding.what = Fill(rule.what, subject, details);
    finding.advice = suggestion.empty() ? Fill(rule.advice, subject, details)
                                        : Fill(KM_TEXT("Write \"$0\"."), suggestion, {});
}

void Findings::MoveTo(std::vector<kmLintFinding>& all) {
    const auto standsBefore = [](const kmLintFinding& a, const kmLintFinding& b) {
        return std::tie(a.line, a.column) < std::tie(b.line, b.column);
    };
    std::stable_sort(m_findings.begin(), m_findings.end(), standsBefore);
    if (m_leftOut != 0) {
        const kmString count = IntegerText(TruncateTo32(static_cast<double>(m_leftOut)));
        Append(LINT_MORE_FINDINGS, {}, {}, {count}, {});
    }
    std::move(m_findings.begin(), m_findings.end(), std::back_inserter(all));
    m_findings.clear();
}

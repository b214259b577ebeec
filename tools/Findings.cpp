// SPDX-License-Identifier: MIT
#include "Findings.h"

#include <iterator>

#include "kmFolders.h"
#include "kmMessages.h"
#include "kmText.h"

namespace {

// In the order of the enumeration.
constexpr const char* kSeverities[] = {"note", "warning", "error"};
static_assert(std::size(kSeverities) == LINT_ERROR + 1);

std::string Place(const kmString& path, std::int32_t line, std::int32_t column) {
    const std::string position = line == 0 ? "" : ':' + std::to_string(line) + ':' + std::to_string(column);
    return kmUtf8FromPath(path) + position + ": ";
}

}  // namespace

std::string Describe(const kmLoadFinding& finding) {
    const std::string other = finding.other.empty() ? "" : " (" + kmUtf8FromPath(finding.other) + ')';
    return Place(finding.path, finding.line, finding.column) + kmUtf8FromText(finding.reason) + other;
}

std::string Describe(const kmLintFinding& finding) {
    return Place(finding.path, finding.line, finding.column) + SeverityName(finding.severity) + ": " +
           kmUtf8FromText(finding.what) + ' ' + kmUtf8FromText(finding.advice) + " [" + finding.name + ']';
}

const char* SeverityName(LINT_SEVERITY severity) { return kSeverities[severity]; }

void SilenceLibrary() {
    kmSetMessageHandler([](const kmMessage&, void*) {}, nullptr);
}

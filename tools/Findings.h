// SPDX-License-Identifier: MIT
// What the library finds wrong with files, as lines for people.
#pragma once

#include <string>

#include "kmLint.h"
#include "kmLoadReport.h"

// "path:line:column: reason", without what there is not; as compilers do, so that editors find the place.
std::string Describe(const kmLoadFinding& finding);

// "path:line:column: severity: what advice [name]".
std::string Describe(const kmLintFinding& finding);

const char* SeverityName(LINT_SEVERITY severity);

// The library's messages go nowhere from now on: its reports say the same, and more.
void SilenceLibrary();

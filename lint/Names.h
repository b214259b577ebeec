// SPDX-License-Identifier: MIT
// What somebody may have meant who wrote a name that nobody knows.
#pragma once

#include <span>

#include "lint/Findings.h"
#include "text/Ascii.h"

// Whether `name` is one of them, in any letter case.
bool IsKnown(kmStringView name, std::span<const kmStringView> known);

// Adds what is to be said of a name that is not among `known`: what the format calls it, where people
// expect another word; else `code`, with the nearest.
void AddUnknownName(Findings& findings, LINT_CODE code, TextPlace place, kmStringView name,
                    std::span<const kmStringView> known);

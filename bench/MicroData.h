// SPDX-License-Identifier: MIT
// What the micro-benchmarks work on.
#pragma once

#include <cstddef>
#include <vector>

#include "kmProfile.h"
#include "kmTypes.h"
#include "xml/XMLNode.h"

// A profile of 30 settings: those that every profile has, and the first of the others.
kmProfile TypicalProfile();

// The same as a document, each setting with its lists.
XMLNode TypicalDocument();

// The option string cut in front of each option.
std::vector<kmString> FinishedPieces(const kmString& options);

// Profiles of 40 settings in the simple view, each with 20 choices of which all profiles share 19.
std::vector<kmProfile> SimpleProfiles(std::size_t count);

// Every option's name twice, in the table's letter case and in the other one, and some names that are none;
// in shuffled order.
std::vector<kmString> OptionNames();

// Fills the catalogue with records of these IDs.
std::vector<kmString> NumberedIDs(std::size_t count);
void FillCatalogue(const std::vector<kmString>& ids);

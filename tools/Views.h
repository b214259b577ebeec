// SPDX-License-Identifier: MIT
// The two views in which profiles are edited, as tables.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "Table.h"
#include "kmProfileItem.h"

inline constexpr std::size_t kIndent = 2;
inline constexpr const char* kReadOnly = "read-only";

// The columns of the two views.
inline const TableRow kSimpleHeadings = {{"Name", "Value", "Note"}, {"Choices"}};
inline const TableRow kAdvancedHeadings = {{"Name", "Setting", "Value", "Note"}, {"Choices"}};

using RowOfItem = std::function<TableRow(const kmProfileItem&)>;

// Each prints its items by priority, a row each, under headings of their own; nothing without items.
void PrintSimpleView(std::vector<kmProfileItem> items, const RowOfItem& rowOf);
void PrintAdvancedView(std::vector<kmProfileItem> items, const RowOfItem& rowOf);

// What the view shows, and after it in brackets what to set, where that cannot be guessed.
std::string TextAndValue(const std::string& shown, const std::string& value);

// SPDX-License-Identifier: MIT
// Aligned columns for people.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct TableRow {
    std::vector<std::string> cells;
    std::vector<std::string> list = {};  // shown after the cells, wrapped between its entries
};

// Prints the rows after `indent` spaces, under `headings` if there are any. Columns in which every cell is
// empty take no room, and no heading. Rows must have the same number of cells. On a terminal lists wrap at
// its edge.
void PrintTable(const std::vector<TableRow>& rows, std::size_t indent, const TableRow& headings = {});

struct TableSection {
    std::string heading;
    std::vector<TableRow> rows;
};

// Prints the sections with an empty line in front of each, the rows of all of them in the same columns, whose
// headings stand once.
void PrintSections(const std::vector<TableSection>& sections, std::size_t indent, const TableRow& headings);

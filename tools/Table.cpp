// SPDX-License-Identifier: MIT
#include "Table.h"

#include <algorithm>

#include "Console.h"
#include "Printable.h"

namespace {

constexpr std::size_t kGap = 2;
constexpr std::size_t kWidestColumn = 36;  // one long title must not push every other row aside
constexpr std::size_t kLineWidth = 108;

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

std::size_t WidthOf(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

void WidenFor(const std::vector<TableRow>& rows, std::vector<std::size_t>& widths) {
    for (const TableRow& row : rows) {
        widths.resize(std::max(widths.size(), row.cells.size()));
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            widths[i] = std::max(widths[i], std::min(WidthOf(row.cells[i]), kWidestColumn));
        }
    }
}

void AppendCells(std::string& line, const TableRow& row, const std::vector<std::size_t>& widths) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (widths[i] == 0) continue;
        const std::string cell = Printable(row.cells[i]);
        const std::size_t width = WidthOf(cell);
        line += cell;
        line.append((widths[i] > width ? widths[i] - width : 0) + kGap, ' ');
    }
}

void AppendList(std::string& text, const std::vector<std::string>& list, std::size_t column) {
    std::size_t at = std::max(column, WidthOf(text));
    for (std::size_t i = 0; i < list.size(); ++i) {
        const std::string entry = Printable(list[i]) + (i + 1 < list.size() ? "," : "");
        const std::size_t width = WidthOf(entry) + (i == 0 ? 0 : 1);
        if (i > 0 && at + width > kLineWidth) {
            text += '\n' + std::string(column, ' ');
            at = column;
        } else if (i > 0) {
            text += ' ';
        }
        text += entry;
        at += width;
    }
}

void PrintRows(const std::vector<TableRow>& rows, const std::vector<std::size_t>& widths,
               std::size_t indent) {
    std::size_t listColumn = indent;
    for (const std::size_t width : widths) listColumn += width == 0 ? 0 : width + kGap;
    for (const TableRow& row : rows) {
        std::string text(indent, ' ');
        AppendCells(text, row, widths);
        AppendList(text, row.list, listColumn);
        text.erase(text.find_last_not_of(' ') + 1);
        Print(text + '\n');
    }
}

}  // namespace

void PrintTable(const std::vector<TableRow>& rows, std::size_t indent) {
    std::vector<std::size_t> widths;
    WidenFor(rows, widths);
    PrintRows(rows, widths, indent);
}

void PrintSections(const std::vector<TableSection>& sections, std::size_t indent) {
    std::vector<std::size_t> widths;
    for (const TableSection& section : sections) WidenFor(section.rows, widths);
    for (std::size_t i = 0; i < sections.size(); ++i) {
        if (i > 0) Print("\n");
        Print(Printable(sections[i].heading) + '\n');
        PrintRows(sections[i].rows, widths, indent);
    }
}

// SPDX-License-Identifier: MIT
#include "Table.h"

#include <algorithm>
#include <utility>

#include "Console.h"
#include "Printable.h"
#include "TextWidth.h"

namespace {

constexpr std::size_t kGap = 2;
constexpr std::size_t kWidestColumn = 36;  // one long title must not push every other row aside
constexpr std::size_t kFileWidth = 108;
constexpr std::size_t kNarrowest = 40;  // on a terminal that has less, the terminal wraps

std::size_t LineWidth() {
    const std::size_t width = TerminalWidth();
    return width == 0 ? kFileWidth : std::max(width, kNarrowest);
}

void WidenFor(const std::vector<TableRow>& rows, std::vector<std::size_t>& widths) {
    for (const TableRow& row : rows) {
        widths.resize(std::max(widths.size(), row.cells.size()));
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            widths[i] = std::max(widths[i], std::min(TextWidth(Printable(row.cells[i])), kWidestColumn));
        }
    }
}

void AppendCells(std::string& line, const TableRow& row, const std::vector<std::size_t>& widths) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (widths[i] == 0) continue;
        const std::string cell = Printable(row.cells[i]);
        const std::size_t width = TextWidth(cell);
        line += cell;
        line.append((widths[i] > width ? widths[i] - width : 0) + kGap, ' ');
    }
}

// Entries stay whole where a line has room for them; longer ones break at their spaces.
std::vector<std::string> WordsOf(const std::vector<std::string>& list, std::size_t room) {
    std::vector<std::string> words;
    for (std::size_t i = 0; i < list.size(); ++i) {
        std::string entry = Printable(list[i]) + (i + 1 < list.size() ? "," : "");
        while (TextWidth(entry) > room && entry.find(' ') < entry.size() - 1) {
            const std::size_t space = entry.find(' ');
            words.push_back(entry.substr(0, space));
            entry.erase(0, space + 1);
        }
        words.push_back(std::move(entry));
    }
    return words;
}

void AppendList(std::string& text, const std::vector<std::string>& list, std::size_t column,
                std::size_t lineWidth) {
    std::size_t at = std::max(column, TextWidth(text));
    bool isFirst = true;
    for (const std::string& word : WordsOf(list, lineWidth > column ? lineWidth - column : 0)) {
        const std::size_t width = TextWidth(word) + (isFirst ? 0 : 1);
        if (!isFirst && at + width > lineWidth) {
            text += '\n' + std::string(column, ' ');
            at = column;
        } else if (!isFirst) {
            text += ' ';
        }
        text += word;
        at += width;
        isFirst = false;
    }
}

void PrintRows(const std::vector<TableRow>& rows, const std::vector<std::size_t>& widths,
               std::size_t indent) {
    const std::size_t lineWidth = LineWidth();
    std::size_t listColumn = indent;
    for (const std::size_t width : widths) listColumn += width == 0 ? 0 : width + kGap;
    for (const TableRow& row : rows) {
        std::string text(indent, ' ');
        AppendCells(text, row, widths);
        AppendList(text, row.list, listColumn, lineWidth);
        text.erase(text.find_last_not_of(' ') + 1);
        Print(text + '\n');
    }
}

// Headings make room for themselves where there is anything below them.
void PrintHeadings(TableRow headings, const std::vector<TableRow>& rows, std::vector<std::size_t>& widths,
                   std::size_t indent) {
    if (headings.cells.empty() || widths.empty()) return;
    if (std::all_of(rows.begin(), rows.end(), [](const TableRow& row) { return row.list.empty(); }))
        headings.list.clear();
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (widths[i] != 0) widths[i] = std::max(widths[i], TextWidth(headings.cells[i]));
    }
    PrintRows({headings}, widths, indent);
}

}  // namespace

void PrintTable(const std::vector<TableRow>& rows, std::size_t indent, const TableRow& headings) {
    std::vector<std::size_t> widths;
    WidenFor(rows, widths);
    PrintHeadings(headings, rows, widths, indent);
    PrintRows(rows, widths, indent);
}

void PrintSections(const std::vector<TableSection>& sections, std::size_t indent, const TableRow& headings) {
    std::vector<std::size_t> widths;
    for (const TableSection& section : sections) WidenFor(section.rows, widths);
    PrintHeadings(headings, {}, widths, indent);
    for (const TableSection& section : sections) {
        Print('\n' + Printable(section.heading) + '\n');
        PrintRows(section.rows, widths, indent);
    }
}

// SPDX-License-Identifier: MIT
#include "bench/Table.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace {

std::string Padding(const std::string& cell, std::size_t width) {
    return std::string(width - std::min(width, cell.size()), ' ');
}

}  // namespace

std::vector<std::size_t> Table::Widths() const {
    std::vector<std::size_t> widths;
    for (std::size_t column = 0; column < m_rows.front().size(); ++column) {
        std::size_t width = 3;  // of "---", the least that makes a table
        for (const auto& row : m_rows) width = std::max(width, row[column].size());
        widths.push_back(width);
    }
    return widths;
}

std::string Table::Text() const {
    const std::vector<std::size_t> widths = Widths();
    std::string text;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        for (std::size_t column = 0; column < widths.size(); ++column) {
            const std::string& cell = m_rows[row][column];
            const std::string padding = Padding(cell, widths[column]);
            text += column == 0 ? "| " + cell + padding : " | " + padding + cell;
        }
        text += " |\n";
        if (row != 0) continue;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            const std::string line(widths[column] - (column == 0 ? 0 : 1), '-');
            text += column == 0 ? "| " + line : " | " + line + ":";
        }
        text += " |\n";
    }
    return text;
}

std::string Fixed(double value, int digits) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", digits, value);
    return text;
}

void Report::Add(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
    m_text += text;
}

void Report::Write(const std::filesystem::path& path) const { WriteText(path, m_text); }

void WriteText(const std::filesystem::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
}

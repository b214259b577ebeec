// SPDX-License-Identifier: MIT
// Results as text.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// A table in Markdown with aligned columns, for reports and terminals alike: the first column on the left,
// figures on the right.
class Table {
public:
    explicit Table(std::vector<std::string> header) : m_rows{std::move(header)} {}

    // As many cells as the header has.
    void Add(std::vector<std::string> cells) { m_rows.push_back(std::move(cells)); }

    std::string Text() const;

private:
    std::vector<std::size_t> Widths() const;

    std::vector<std::vector<std::string>> m_rows;
};

// A figure with that many digits after the point.
std::string Fixed(double value, int digits);

// What a program has to tell: printed at once, and kept for a file.
class Report {
public:
    void Add(const std::string& text);

    // Writes everything so far. Throws std::runtime_error when the disk fails.
    void Write(const std::filesystem::path& path) const;

private:
    std::string m_text;
};

void WriteText(const std::filesystem::path& path, const std::string& text);

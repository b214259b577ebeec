// SPDX-License-Identifier: MIT
// Where the lines of a file begin, for those who want to know where a piece of its tree stands. The tree's
// names, values and texts stay where the file has them, so their addresses are places in it.
#pragma once

#include <cstdint>
#include <vector>

#include "text/Ascii.h"

// Both from 1, the column in UTF-16 units; 0 for a piece that no file has.
struct TextPlace {
    std::int32_t line = 0;
    std::int32_t column = 0;
};

class LineTable {
public:
    // Takes the lines of a text that is about to become a tree, which ends the tree's pieces in place, over
    // line feeds too.
    void Read(const kmChar* text);

    // Of a piece of that tree, as long as the tree lives. Entities count as they are written, up to the
    // piece's beginning.
    TextPlace PlaceOf(const kmChar* piece) const;

private:
    const kmChar* m_text = nullptr;
    std::size_t m_length = 0;
    std::vector<std::uint32_t> m_starts;  // of the lines after the first
};

// SPDX-License-Identifier: MIT
// Finds the rows of a table by their names while a file is walked once.
#pragma once

#include <bitset>
#include <cstddef>

#include "text/Ascii.h"

// `Row` has a member `name`. Files have names in the table's order, so that each is looked for from the row
// after the last one on.
template <class Row, std::size_t kCount>
class RowFinder {
public:
    explicit RowFinder(const Row (&rows)[kCount]) : m_rows(rows) {}

    // The index of the row of that name, in any letter case; kCount when there is none and for a name that
    // was found before: of several the first counts.
    std::size_t FindNew(kmStringView name) {
        std::size_t found = Find(name, m_next, kCount);
        if (found == kCount) found = Find(name, 0, m_next);
        if (found == kCount) return kCount;
        m_next = found + 1;
        if (m_seen[found]) return kCount;
        m_seen[found] = true;
        return found;
    }

private:
    std::size_t Find(kmStringView name, std::size_t from, std::size_t to) const {
        for (; from < to; ++from) {
            if (EqualNoCase(m_rows[from].name, name)) return from;
        }
        return kCount;
    }

    const Row (&m_rows)[kCount];
    std::bitset<kCount> m_seen;
    std::size_t m_next = 0;
};

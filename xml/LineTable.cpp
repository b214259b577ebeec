// SPDX-License-Identifier: MIT
#include "xml/LineTable.h"

#include <algorithm>
#include <functional>

void LineTable::Read(const kmChar* text) {
    m_text = text;
    m_starts.clear();
    const kmChar* at = text;
    for (; *at != 0; ++at) {
        if (*at == KM_TEXT('\n')) m_starts.push_back(static_cast<std::uint32_t>(at + 1 - text));
    }
    m_length = static_cast<std::size_t>(at - text);
}

TextPlace LineTable::PlaceOf(const kmChar* piece) const {
    const std::less<const kmChar*> isBefore;
    if (piece == nullptr || isBefore(piece, m_text) || isBefore(m_text + m_length, piece)) return {};
    const auto offset = static_cast<std::uint32_t>(piece - m_text);
    const auto next = std::upper_bound(m_starts.begin(), m_starts.end(), offset);
    const std::uint32_t start = next == m_starts.begin() ? 0 : *(next - 1);
    return {static_cast<std::int32_t>(next - m_starts.begin()) + 1,
            static_cast<std::int32_t>(offset - start) + 1};
}

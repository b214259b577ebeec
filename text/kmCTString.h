// SPDX-License-Identifier: MIT
// A wide string with the tests, trims and conversions that the whole library uses.
#pragma once

#include <cstdint>
#include <vector>

#include "text/Ascii.h"
#include "text/FindUnit.h"

// Adds no data to the string that it is; works on code units, knows no letters beyond ASCII.
class kmCTString : public kmString {
public:
    kmCTString() = default;
    // Copies `text`, which must not be null.
    kmCTString(const kmChar* text) : kmString(text) {}
    // A copy ends at the first null unit of the other text.
    kmCTString(const kmCTString& other) : kmString(other.c_str()) {}
    kmCTString& operator=(const kmCTString& other);
    virtual ~kmCTString() = default;

    // Whether the two texts are equal, with and without regard to ASCII case. A null text equals nothing.
    bool IsEqualNoCase(const kmChar* text) const;
    bool IsEqual(const kmChar* text) const;

    // The number at the start of the text, with "0x" and "0" as prefixes; see ReadInteger in Numbers.h.
    std::int32_t ToInt() const;

    // Replaces every `target` by `replacement`, which is not searched again. Nothing happens when either
    // is null or `target` is empty.
    void ReplaceAll(const kmChar* replacement, const kmChar* target);

    // Removes every `unit` at the start, or at both ends.
    void TrimLeft(kmChar unit);
    void Trim(kmChar unit);

    // Turns "A" to "Z" into "a" to "z".
    void MakeLower();

    // Replaces `pieces` by the texts between the separators, each without its leading and trailing spaces;
    // empty pieces stay, so an empty text has one.
    void Split(std::vector<kmString>& pieces, kmChar separator) const;

    // Becomes the items with one separator between neighbours.
    void Join(const std::vector<kmString>& items, kmChar separator);
};

// What kmCTString does to a text, for callers that need no copy of it.
kmStringView TrimView(kmStringView text, kmChar unit);
kmStringView TrimLeftView(kmStringView text, kmChar unit);

// Gives `take` each of the pieces that Split makes, in their order.
template <class Take>
void ForEachPiece(kmStringView text, kmChar separator, Take take) {
    const kmChar* const end = text.data() + text.size();
    for (const kmChar* from = text.data();; ++from) {
        const kmChar* to = FindUnit(from, end, separator);
        take(TrimView({from, static_cast<std::size_t>(to - from)}, KM_TEXT(' ')));
        if (to == end) return;
        from = to;
    }
}

void SplitText(kmStringView text, kmChar separator, std::vector<kmString>& pieces);
void JoinTexts(const std::vector<kmString>& items, kmChar separator, kmString& joined);

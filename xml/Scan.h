// SPDX-License-Identifier: MIT
// The inner loops of the parser, each of which finds the next unit that matters, and of the writer. With SSE2
// they look at eight units at a time; the portable forms are the reference. Those of the parser stop at a
// null unit. The SSE2 forms may read up to kScanPadding units from where they start, so that many must be
// readable after the text's end, and may write as many behind what they copy.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/Ascii.h"

#if !defined(KM_NO_SIMD) && (defined(__SSE2__) || defined(_M_X64))
#define KM_SCAN_SSE2 1
#include <emmintrin.h>

#include <bit>
#endif

inline constexpr std::size_t kScanPadding = 48;

constexpr bool IsXMLSpace(kmChar c) {
    return c == KM_TEXT(' ') || c == KM_TEXT('\n') || c == KM_TEXT('\t') || c == KM_TEXT('\r');
}

constexpr bool EndsMarkupSearch(kmChar c) { return c == KM_TEXT('<') || c == 0; }

constexpr bool EndsQuoteSearch(kmChar c, kmChar quote) {
    return c == quote || c == KM_TEXT('<') || c == KM_TEXT('&') || c == 0;
}

// What name="value" ends: a name at anything up to ">", both at units from 0x8000 on, which the SSE2 form
// cannot tell from null units.
constexpr bool EndsPlainName(kmChar c) { return c <= KM_TEXT('>') || c >= 0x8000; }
constexpr bool EndsPlainValue(kmChar c) { return EndsQuoteSearch(c, KM_TEXT('"')) || c >= 0x8000; }

// Where the parts of name="value" end; null when there is no such thing.
struct PlainAttribute {
    const kmChar* nameEnd = nullptr;   // the "="
    const kmChar* valueEnd = nullptr;  // the closing quote
};

// "/" ends a word only in front of ">", which the caller looks at.
constexpr bool MayEndWord(kmChar c) {
    return c == 0 || IsXMLSpace(c) || c == KM_TEXT('/') || (c >= KM_TEXT('<') && c <= KM_TEXT('>'));
}

// What texts and values in files have entities for.
constexpr bool NeedsEntity(kmChar c) {
    return c == KM_TEXT('&') || c == KM_TEXT('<') || c == KM_TEXT('>') || c == KM_TEXT('"') ||
           c == KM_TEXT('\'');
}

namespace portable {

// Copies the units up to `end`.
inline void Copy(const kmChar* at, const kmChar* end, kmChar* to) {
    while (at != end) *to++ = *at++;
}

// Copies the units up to the first that needs an entity, or `end`, and returns where that is.
inline const kmChar* CopyPlain(const kmChar* at, const kmChar* end, kmChar* to) {
    while (at != end && !NeedsEntity(*at)) *to++ = *at++;
    return at;
}

// The next "<" or null.
inline const kmChar* FindMarkup(const kmChar* at) {
    while (!EndsMarkupSearch(*at)) ++at;
    return at;
}

// The next `quote`, "<", "&" or null.
inline const kmChar* FindQuoteEnd(const kmChar* at, kmChar quote) {
    while (!EndsQuoteSearch(*at, quote)) ++at;
    return at;
}

// The next white space, "/", "<", "=", ">" or null.
inline const kmChar* FindWordEnd(const kmChar* at) {
    while (!MayEndWord(*at)) ++at;
    return at;
}

// An attribute as it is nearly always written, name="value" from `name` on without entities. None for
// everything unusual, which the parser then takes token by token.
inline PlainAttribute FindPlainAttribute(const kmChar* name) {
    const kmChar* nameEnd = name;
    while (!EndsPlainName(*nameEnd)) ++nameEnd;
    if (nameEnd == name || nameEnd[0] != KM_TEXT('=') || nameEnd[1] != KM_TEXT('"')) return {};
    const kmChar* valueEnd = nameEnd + 2;
    while (!EndsPlainValue(*valueEnd)) ++valueEnd;
    if (*valueEnd != KM_TEXT('"')) return {};
    return {nameEnd, valueEnd};
}

}  // namespace portable

#if defined(KM_SCAN_SSE2)
namespace sse2 {

inline __m128i Load(const kmChar* at) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at)); }

inline __m128i Equal(__m128i units, kmChar c) {
    return _mm_cmpeq_epi16(units, _mm_set1_epi16(static_cast<short>(c)));
}

// All ones where first <= unit <= last, compared without sign.
inline __m128i InRange(__m128i units, int first, int last) {
    const __m128i fromFirst = _mm_sub_epi16(units, _mm_set1_epi16(static_cast<short>(first)));
    return _mm_cmpeq_epi16(_mm_subs_epu16(fromFirst, _mm_set1_epi16(static_cast<short>(last - first))),
                           _mm_setzero_si128());
}

// The first unit from `at` on for which `marks` sets its lane.
template <class Marks>
inline const kmChar* Find(const kmChar* at, Marks marks) {
    for (;; at += 8) {
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(marks(Load(at))));
        if (mask != 0) return at + std::countr_zero(mask) / 2;
    }
}

inline void Store(kmChar* to, __m128i units) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), units); }

// Most pieces end within sixteen units, so that these take no decision that the processor could guess wrong.
inline void Copy(const kmChar* at, const kmChar* end, kmChar* to) {
    do {
        Store(to, Load(at));
        Store(to + 8, Load(at + 8));
        at += 16;
        to += 16;
    } while (at < end);
}

// Two of the units differ from another one of them in one bit.
inline __m128i NeedEntities(__m128i units) {
    const __m128i quoteOrAmpersand = Equal(_mm_or_si128(units, _mm_set1_epi16(1)), KM_TEXT('\''));
    const __m128i angle = Equal(_mm_or_si128(units, _mm_set1_epi16(2)), KM_TEXT('>'));
    return _mm_or_si128(Equal(units, KM_TEXT('"')), _mm_or_si128(quoteOrAmpersand, angle));
}

inline const kmChar* CopyPlain(const kmChar* at, const kmChar* end, kmChar* to) {
    for (; at < end; at += 16, to += 16) {
        const __m128i low = Load(at);
        const __m128i high = Load(at + 8);
        Store(to, low);
        Store(to + 8, high);
        const __m128i marks = _mm_packs_epi16(NeedEntities(low), NeedEntities(high));
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(marks));
        if (mask == 0) continue;
        const kmChar* found = at + std::countr_zero(mask);
        return found < end ? found : end;
    }
    return end;
}

inline const kmChar* FindMarkup(const kmChar* at) {
    return Find(at, [](__m128i u) { return _mm_or_si128(Equal(u, KM_TEXT('<')), Equal(u, 0)); });
}

inline const kmChar* FindQuoteEnd(const kmChar* at, kmChar quote) {
    return Find(at, [quote](__m128i u) {
        return _mm_or_si128(_mm_or_si128(Equal(u, quote), Equal(u, KM_TEXT('<'))),
                            _mm_or_si128(Equal(u, KM_TEXT('&')), Equal(u, 0)));
    });
}

inline const kmChar* FindWordEnd(const kmChar* at) {
    for (;; ++at) {
        at = Find(at, [](__m128i u) {
            return _mm_or_si128(InRange(u, 0, ' '),
                                _mm_or_si128(Equal(u, KM_TEXT('/')), InRange(u, '<', '>')));
        });
        if (MayEndWord(*at)) return at;  // not a control character that a word may hold
    }
}

// Sixteen units as bytes: those from 0x100 on become 255, those from 0x8000 on 0.
inline __m128i LoadBytes(const kmChar* at) { return _mm_packus_epi16(Load(at), Load(at + 8)); }

inline __m128i EqualBytes(__m128i bytes, char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); }

inline __m128i EndValueBytes(__m128i bytes) {
    return _mm_or_si128(EqualBytes(bytes, '<'), _mm_or_si128(EqualBytes(bytes, '&'), EqualBytes(bytes, 0)));
}

inline std::uint32_t Mask(__m128i low, __m128i high) {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(low)) |
           static_cast<std::uint32_t>(_mm_movemask_epi8(high)) << 16;
}

// The next closing quote, from `at` on; null when something else ends the value first.
inline const kmChar* FindPlainValueEnd(const kmChar* at) {
    for (;; at += 16) {
        const __m128i bytes = LoadBytes(at);
        const __m128i quotes = EqualBytes(bytes, '"');
        const auto mask =
            static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(quotes, EndValueBytes(bytes))));
        if (mask == 0) continue;
        at += std::countr_zero(mask);
        return *at == KM_TEXT('"') ? at : nullptr;
    }
}

// Most attributes end within the 32 units that are looked at together: one set of masks answers for name and
// value.
inline PlainAttribute FindPlainAttribute(const kmChar* name) {
    const __m128i low = LoadBytes(name);
    const __m128i high = LoadBytes(name + 16);
    const __m128i zero = _mm_setzero_si128();
    const __m128i last = _mm_set1_epi8('>');
    const std::uint32_t nameEnds =
        Mask(_mm_cmpeq_epi8(_mm_subs_epu8(low, last), zero), _mm_cmpeq_epi8(_mm_subs_epu8(high, last), zero));
    const int length = std::countr_zero(nameEnds);
    if (length >= 31) return portable::FindPlainAttribute(name);
    const kmChar* nameEnd = name + length;
    if (length == 0 || nameEnd[0] != KM_TEXT('=') || nameEnd[1] != KM_TEXT('"')) return {};

    const std::uint32_t quotes = Mask(EqualBytes(low, '"'), EqualBytes(high, '"'));
    const std::uint32_t ends = quotes | Mask(EndValueBytes(low), EndValueBytes(high));
    const std::uint32_t behindOpening = ends & (ends - 1);  // the opening quote is the first of them
    if (behindOpening == 0) {
        const kmChar* valueEnd = FindPlainValueEnd(name + 32);
        return valueEnd == nullptr ? PlainAttribute() : PlainAttribute{nameEnd, valueEnd};
    }
    const kmChar* valueEnd = name + std::countr_zero(behindOpening);
    return *valueEnd == KM_TEXT('"') ? PlainAttribute{nameEnd, valueEnd} : PlainAttribute();
}

}  // namespace sse2
namespace scan = sse2;
#else
namespace scan = portable;
#endif

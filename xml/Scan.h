// The inner loops of the parser: each finds the next unit that matters. With SSE2 they look at eight units at
// a time; the portable forms are the reference. All of them stop at a null unit, and the SSE2 forms may read
// up to kScanPadding units from where they start, so that many must be readable behind the text's end.
#pragma once

#include <cstddef>

#include "platform/Ascii.h"

#if !defined(KM_NO_SIMD) && (defined(__SSE2__) || defined(_M_X64))
#define KM_SCAN_SSE2 1
#include <emmintrin.h>

#include <bit>
#endif

inline constexpr std::size_t kScanPadding = 16;

constexpr bool IsXMLSpace(kmChar c) {
    return c == KM_TEXT(' ') || c == KM_TEXT('\n') || c == KM_TEXT('\t') || c == KM_TEXT('\r');
}

constexpr bool EndsMarkupSearch(kmChar c) { return c == KM_TEXT('<') || c == 0; }

constexpr bool EndsQuoteSearch(kmChar c, kmChar quote) {
    return c == quote || c == KM_TEXT('<') || c == KM_TEXT('&') || c == 0;
}

// "/" ends a word only in front of ">", which the caller looks at.
constexpr bool MayEndWord(kmChar c) {
    return c == 0 || IsXMLSpace(c) || c == KM_TEXT('/') || (c >= KM_TEXT('<') && c <= KM_TEXT('>'));
}

namespace portable {

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

}  // namespace sse2
namespace scan = sse2;
#else
namespace scan = portable;
#endif

// SPDX-License-Identifier: MIT
// The next unit of a kind in a text. With SSE2 eight units are looked at together, and none behind the text
// is read; the portable form is the reference.
#pragma once

#include <algorithm>

#include "text/Ascii.h"

#if !defined(KM_NO_SIMD) && (defined(__SSE2__) || defined(_M_X64))
#include <emmintrin.h>

#include <bit>
#endif

// The first `unit` in front of `end`, or `end`.
inline const kmChar* FindUnitPortably(const kmChar* at, const kmChar* end, kmChar unit) {
    return std::find(at, end, unit);
}

inline const kmChar* FindUnit(const kmChar* at, const kmChar* end, kmChar unit) {
#if !defined(KM_NO_SIMD) && (defined(__SSE2__) || defined(_M_X64))
    const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
    for (; end - at >= 8; at += 8) {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi16(units, wanted)));
        if (mask != 0) return at + std::countr_zero(mask) / 2;
    }
#endif
    return FindUnitPortably(at, end, unit);
}

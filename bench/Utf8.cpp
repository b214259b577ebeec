// SPDX-License-Identifier: MIT
#include "bench/Utf8.h"

#include <cstdint>
#include <stdexcept>

#include "text/Encoding.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

constexpr std::size_t kBlock = 16;

bool IsHigh(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool IsLow(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

char* Put(std::uint32_t code, char* out) {
    const auto put = [&out](std::uint32_t byte) { *out++ = static_cast<char>(byte); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        put(0x80 | (code & 0x3F));
    } else {
        put(code < 0x10000 ? 0xE0 | code >> 12 : 0xF0 | code >> 18);
        if (code >= 0x10000) put(0x80 | (code >> 12 & 0x3F));
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    }
    return out;
}

// Converts one character at `at`, which moves past it.
char* ConvertOne(const char16_t*& at, const char16_t* end, char* out) {
    const char16_t unit = *at++;
    if (!IsHigh(unit) || at == end || !IsLow(*at)) return Put(unit, out);
    return Put(0x10000u + ((unit - 0xD800u) << 10) + (*at++ - 0xDC00u), out);
}

#if defined(__SSE2__)
// Converts sixteen units when all are ASCII.
bool ConvertBlock(const char16_t* at, char* out) {
    const __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i second = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + kBlock / 2));
    const __m128i beyondAscii =
        _mm_and_si128(_mm_or_si128(first, second), _mm_set1_epi16(static_cast<short>(0xFF80)));
    if (_mm_movemask_epi8(_mm_cmpeq_epi16(beyondAscii, _mm_setzero_si128())) != 0xFFFF) return false;
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_packus_epi16(first, second));
    return true;
}

// Widens sixteen bytes when all are ASCII.
bool WidenBlock(const char* at, char16_t* out) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    if (_mm_movemask_epi8(bytes) != 0) return false;
    const __m128i zero = _mm_setzero_si128();
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_unpacklo_epi8(bytes, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + kBlock / 2), _mm_unpackhi_epi8(bytes, zero));
    return true;
}
#else
bool ConvertBlock(const char16_t*, char*) { return false; }
bool WidenBlock(const char*, char16_t*) { return false; }
#endif

}  // namespace

std::size_t Utf16ToUtf8(const char16_t* units, std::size_t count, char* bytes) {
    const char16_t* at = units;
    const char16_t* end = units + count;
    char* out = bytes;
    while (at != end) {
        if (static_cast<std::size_t>(end - at) >= kBlock && ConvertBlock(at, out)) {
            at += kBlock;
            out += kBlock;
        } else {
            out = ConvertOne(at, end, out);
        }
    }
    return static_cast<std::size_t>(out - bytes);
}

// What follows the first block that is not all ASCII is left to the library's conversion.
std::size_t WidenUtf8(const char* bytes, std::size_t count, char16_t* units) {
    std::size_t at = 0;
    while (count - at >= kBlock && WidenBlock(bytes + at, units + at)) at += kBlock;
    std::size_t rest = 0;
    const auto* tail = reinterpret_cast<const unsigned char*>(bytes + at);
    if (!Utf8ToUtf16(tail, count - at, units + at, rest)) throw std::runtime_error("no valid UTF-8");
    return at + rest;
}

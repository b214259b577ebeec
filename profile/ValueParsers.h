// SPDX-License-Identifier: MIT
// Times and frame sizes as profiles write them.
#pragma once

#include <cstdint>

#include "kmTypes.h"

// A time in microseconds: "h:m:s" of one or two digits each with hours up to 23, or a whole number of
// seconds, either with up to six digits after a "." and a "-" in front. Never fails; text that makes no
// sense gives 0.
std::int64_t ParseDuration(const kmChar* text);

// A frame size in pixels: an abbreviation such as "cif" or "ntsc", or a width, any one separator and a
// height, both at least 1; what follows is ignored. 0 on success; -1, with the results untouched, on failure.
int ParseFrameSize(const kmChar* text, std::int32_t& width, std::int32_t& height);

// The two numbers of a frame size without judging them.
struct FrameSize {
    std::int32_t width;
    std::int32_t height;
};
FrameSize ReadFrameSize(const kmChar* text);

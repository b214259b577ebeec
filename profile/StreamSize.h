// SPDX-License-Identifier: MIT
// What one stream takes, and how far that can be trusted.
#pragma once

#include <cstdint>

#include "kmSizeEstimate.h"
#include "profile/ValueParsers.h"

inline constexpr double kBytesPerBit = 0.125;

// The items of a profile that decide about one stream.
struct StreamSettings {
    const kmChar* codec;
    const kmChar* bitrate;
    const kmChar* disabling;
    const kmChar* quality;      // a fixed one, which decides instead of the bit rate; null: there is none
    const kmChar* sameQuality;  // likewise, as a switch
};
inline constexpr StreamSettings kVideo = {KM_TEXT("vcodec"), KM_TEXT("b"), KM_TEXT("vn"), KM_TEXT("qscale"),
                                          KM_TEXT("sameq")};
inline constexpr StreamSettings kAudio = {KM_TEXT("acodec"), KM_TEXT("ab"), KM_TEXT("an"), nullptr, nullptr};

struct Bitrate {
    std::int32_t kilobits;
    BITRATE_ORIGIN origin;
};

// A stream counts unless its disabling item says "false": that is how profiles have always been read.
bool CountsStream(const kmProfile& profile, const StreamSettings& stream);

Bitrate OwnBitrate(const kmProfile& profile, const StreamSettings& stream);

// Each adds its part to an estimate and to the total: video first, the audio to what is then there. A bit
// rate of 0 is one that nobody knows. Raw PCM has a bit rate of its own.
void AddVideo(kmSizeEstimate& estimate, const kmProfile& profile, Bitrate bitrate, double seconds);
void AddAudio(kmSizeEstimate& estimate, const kmProfile& profile, Bitrate bitrate, double seconds);
void AddPictures(kmSizeEstimate& estimate, const kmProfile& profile, FrameSize source);

// SPDX-License-Identifier: MIT
// What kmProfile's estimates of the output's size are made of, and the video bit rate for a wanted size.
#pragma once

#include <cstdint>

#include "kmExport.h"
#include "kmProfile.h"

// How far the size of a stream can be trusted, from the most certain on. No estimate counts what the
// container itself takes. Applications may keep the numbers.
enum SIZE_CERTAINTY : std::int32_t {
    SIZE_CERTAINTY_ABSENT = 0,   // not counted: the profile makes no such stream or says "false" for "vn" or
                                 // "an", or the caller did not ask for it; 0 bytes
    SIZE_CERTAINTY_EXACT = 1,    // fixed by numbers: raw PCM that counts by its samples, BMP pictures
    SIZE_CERTAINTY_BOUNDED = 2,  // the encoder is asked for this bit rate and keeps to it on average; "dv"
    SIZE_CERTAINTY_ROUGH = 3,    // a guess: compressed pictures, or a bit rate that the encoder is not told
                                 // (any but the profile's own) or does not follow: copied streams, lossless
                                 // codecs, other PCM, fixed quality, disc targets
    SIZE_CERTAINTY_UNKNOWN = 4,  // the profile makes the stream, but says no bit rate (pictures: no interval,
                                 // recording time or frame size); 0 bytes
};

// Where the bit rate that counted came from. Applications may keep the numbers.
enum BITRATE_ORIGIN : std::int32_t {
    BITRATE_ORIGIN_NONE = 0,       // none counted; pictures have none
    BITRATE_ORIGIN_PROFILE = 1,    // the profile's "b" or "ab"
    BITRATE_ORIGIN_CANDIDATE = 2,  // the middle one of the advanced candidates of "b"
    BITRATE_ORIGIN_SOURCE = 3,     // the source's, as the caller gave it
    BITRATE_ORIGIN_FALLBACK = 4,   // 64 kbit/s, which count for audio when nobody says more
    BITRATE_ORIGIN_FORMAT = 5,     // the format's: "dv", "ape", or raw PCM: sample rate x channels x bits
};

// One stream. A stream that counts although the profile turns it off, with "vn" or "an" of "true", is one
// like any other: only "false" has ever left a stream out.
struct kmStreamSize {
    std::int64_t bytes = 0;                            // what the stream takes
    double bitrate = 0;                                // kbit/s
    BITRATE_ORIGIN origin = BITRATE_ORIGIN_NONE;       // of the bit rate
    SIZE_CERTAINTY certainty = SIZE_CERTAINTY_ABSENT;  // of the bytes
};

// A whole estimate. The bytes of the streams add up to the total, which is cut to whole bytes once, so that
// the audio takes up what cutting the video left. "dv" has one bit rate for all, which stands for the video.
struct kmSizeEstimate {
    kmStreamSize video;      // moving pictures
    kmStreamSize audio;      // sound
    kmStreamSize pictures;   // still ones, of a profile that makes them
    std::int64_t total = 0;  // bytes
};

// The estimates of kmProfile::CalcOutputFileSize, CalcAVOutputFileSize, CalcImageOutputFileSize and
// CalcP2VOutputFileSize, stream by stream. Arguments as there; the totals are their results.
KM_EXPORT kmSizeEstimate kmExplainOutputFileSize(const kmProfile& profile, std::int64_t duration,
                                                 bool withAudio, int sourceWidth, int sourceHeight);
KM_EXPORT kmSizeEstimate kmExplainAVOutputFileSize(const kmProfile& profile, std::int64_t duration,
                                                   int sourceAudioBitrate, int sourceVideoBitrate,
                                                   int streams);
KM_EXPORT kmSizeEstimate kmExplainImageOutputFileSize(const kmProfile& profile, std::int64_t duration,
                                                      int sourceWidth, int sourceHeight);
KM_EXPORT kmSizeEstimate kmExplainP2VOutputFileSize(const kmProfile& profile, std::int64_t duration);

// Video bit rates in kbit/s, 0 for none.
struct kmVideoBitrateFit {
    std::int32_t highest = 0;    // of all whole ones
    std::int32_t candidate = 0;  // of the advanced candidates of "b"

    // Of the less certain stream of an output with such a bit rate; absent when there is none.
    SIZE_CERTAINTY certainty = SIZE_CERTAINTY_ABSENT;
};

// The highest bit rates that "b" may have for kmProfile::CalcOutputFileSize to stay within `bytes`. None when
// not even 1 kbit/s does, for a duration that is not above 0, and for a profile whose video does not count or
// that makes pictures. Audio of unknown size counts as 0 here too, and the certainty says so.
KM_EXPORT kmVideoBitrateFit kmFitVideoBitrate(const kmProfile& profile, std::int64_t bytes,
                                              std::int64_t duration, bool withAudio);

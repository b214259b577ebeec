// SPDX-License-Identifier: MIT
// The highest MP3 bit rate that each low sample rate allows.
#pragma once

#include <cstdint>

#include "kmExport.h"

// One limit, and the look-ups in the constant table of four: 8000, 16000 and 22050 Hz allow 160 kbit/s,
// 32000 Hz allows 320. Sample rates above 32000 Hz are never limited.
struct KM_EXPORT _MP3Limit {
    std::int32_t sampleRate;  // Hz
    std::int32_t maxBitrate;  // kbit/s

    // The limit of exactly this sample rate in kbit/s; -1 when it has none.
    static std::int32_t GetmaxBitrate(std::int32_t sampleRate);

    // The lowest listed sample rate in Hz that allows `bitRate` kbit/s; -1 when none does. Exported with
    // this spelling, which therefore stays, as does that of GetmaxBitrate.
    static std::int32_t GetMinSmaple(std::int32_t bitRate);

    // Whether the pair is allowed. With `checkBitrate`: false only for a bit rate above the limit of a
    // listed sample rate. Without: false for every sample rate but 8000 Hz, up to 32000 Hz, once the
    // bit rate reaches 160 kbit/s.
    static bool IsValid(std::int32_t sampleRate, std::int32_t bitRate, bool checkBitrate);
};

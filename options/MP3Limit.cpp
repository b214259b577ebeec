// SPDX-License-Identifier: MIT
// Four records; the walks over them are defined by their order.
#include <algorithm>
#include <iterator>

#include "kmMP3Limit.h"

namespace {

constexpr _MP3Limit kLimits[] = {{8000, 160}, {16000, 160}, {22050, 160}, {32000, 320}};
constexpr std::int32_t kUnlimitedAbove = 32000;  // Hz

const _MP3Limit* FindSampleRate(std::int32_t sampleRate, const _MP3Limit* end) {
    return std::find_if(std::begin(kLimits), end,
                        [=](const _MP3Limit& limit) { return limit.sampleRate == sampleRate; });
}

}  // namespace

std::int32_t _MP3Limit::GetmaxBitrate(std::int32_t sampleRate) {
    const _MP3Limit* limit = FindSampleRate(sampleRate, std::end(kLimits));
    return limit == std::end(kLimits) ? -1 : limit->maxBitrate;
}

std::int32_t _MP3Limit::GetMinSmaple(std::int32_t bitRate) {
    for (const _MP3Limit& limit : kLimits) {
        if (limit.maxBitrate >= bitRate) return limit.sampleRate;
    }
    return -1;
}

bool _MP3Limit::IsValid(std::int32_t sampleRate, std::int32_t bitRate, bool checkBitrate) {
    if (sampleRate > kUnlimitedAbove) return true;
    if (checkBitrate) {
        const std::int32_t limit = GetmaxBitrate(sampleRate);
        return limit == -1 || bitRate <= limit;
    }
    for (std::size_t count = std::size(kLimits); count > 0; --count) {
        const _MP3Limit* end = kLimits + count;  // of the records up to the one that is looked at
        if (kLimits[count - 1].maxBitrate <= bitRate && FindSampleRate(sampleRate, end) == end) return false;
    }
    return true;
}

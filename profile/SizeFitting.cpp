// SPDX-License-Identifier: MIT
// The video bit rate for a wanted size. The estimate itself is asked, by halving: it never falls when the bit
// rate rises, and turning its arithmetic round would be off where that is cut to whole bytes.
#include <algorithm>
#include <limits>

#include "profile/StreamSize.h"
#include "text/Numbers.h"

namespace {

// The profile with an item "b", for any bit rate to be tried.
kmProfile WithBitrateItem(const kmProfile& profile) {
    kmProfile copy = profile;
    if (!copy.ItemExist(kVideo.bitrate)) copy.GetProfileItems().emplace_back().SetID(kVideo.bitrate);
    return copy;
}

void SetBitrate(kmProfile& profile, std::int32_t bitrate) {
    profile.SetItemValue(kVideo.bitrate, IntegerText(bitrate).c_str());
}

SIZE_CERTAINTY CertaintyWith(kmProfile& profile, std::int32_t bitrate, bool withAudio) {
    SetBitrate(profile, bitrate);
    const kmSizeEstimate estimate = kmExplainOutputFileSize(profile, 0, withAudio, 0, 0);
    return std::max(estimate.video.certainty, estimate.audio.certainty);
}

// 0 when not even 1 kbit/s fits.
template <typename Fits>
std::int32_t HighestThatFits(const Fits& fits) {
    std::int64_t fitting = 0;
    std::int64_t tooHigh = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    while (tooHigh - fitting > 1) {
        const std::int64_t middle = (fitting + tooHigh) / 2;
        (fits(static_cast<std::int32_t>(middle)) ? fitting : tooHigh) = middle;
    }
    return static_cast<std::int32_t>(fitting);
}

}  // namespace

kmVideoBitrateFit kmFitVideoBitrate(const kmProfile& profile, std::int64_t bytes, std::int64_t duration,
                                    bool withAudio) {
    kmVideoBitrateFit fit;
    if (duration <= 0 || profile.GetType() != PROFILE_TYPE_VIDEO || !CountsStream(profile, kVideo) ||
        profile.ItemExist(KM_TEXT("pcodec")))
        return fit;
    kmProfile tried = WithBitrateItem(profile);
    fit.highest = HighestThatFits([&](std::int32_t bitrate) {
        SetBitrate(tried, bitrate);
        return tried.CalcOutputFileSize(duration, withAudio, 0, 0) <= bytes;
    });
    if (fit.highest == 0) return fit;
    fit.certainty = CertaintyWith(tried, fit.highest, withAudio);
    for (const kmString& candidate : tried.GetProfileItem(kVideo.bitrate)->GetAdvCandidatesValue()) {
        const std::int32_t bitrate = ReadInteger(candidate.c_str(), 0);
        if (bitrate > fit.candidate && bitrate <= fit.highest) fit.candidate = bitrate;
    }
    return fit;
}

// SPDX-License-Identifier: MIT
// How large the output will be: which streams count in each of the estimates, and with which bit rates.
#include "kmSizeEstimate.h"

#include <vector>

#include "profile/StreamSize.h"
#include "text/Numbers.h"

namespace {

constexpr int kStreamVideo = 1;
constexpr int kStreamAudio = 2;
constexpr std::int32_t kFallbackAudioBitrate = 64;  // kbit/s

double ToSeconds(std::int64_t microseconds) { return static_cast<double>(microseconds) / 1'000'000; }

// bit/s to kbit/s.
std::int32_t ToKilobits(int bitrate) { return TruncateTo32(bitrate / 1000.0); }

Bitrate OwnBitrateOr(const kmProfile& profile, const StreamSettings& stream, int sourceBitrate) {
    const Bitrate own = OwnBitrate(profile, stream);
    return own.kilobits != 0 ? own : Bitrate{ToKilobits(sourceBitrate), BITRATE_ORIGIN_SOURCE};
}

}  // namespace

kmSizeEstimate kmExplainOutputFileSize(const kmProfile& profile, std::int64_t duration, bool withAudio,
                                       int sourceWidth, int sourceHeight) {
    if (profile.GetProfileItem(KM_TEXT("pcodec")) != nullptr)
        return kmExplainImageOutputFileSize(profile, duration, sourceWidth, sourceHeight);
    const double seconds = ToSeconds(duration);
    kmSizeEstimate estimate;
    if (CountsStream(profile, kVideo)) AddVideo(estimate, profile, OwnBitrate(profile, kVideo), seconds);
    if (withAudio && CountsStream(profile, kAudio))
        AddAudio(estimate, profile, OwnBitrate(profile, kAudio), seconds);
    return estimate;
}

kmSizeEstimate kmExplainAVOutputFileSize(const kmProfile& profile, std::int64_t duration,
                                         int sourceAudioBitrate, int sourceVideoBitrate, int streams) {
    const double seconds = ToSeconds(duration);
    const bool wantsAudio = (streams & kStreamAudio) != 0;
    const kmString format = profile.GetFormat();
    kmSizeEstimate estimate;
    if (format == KM_TEXT("dv")) {
        estimate.total = TruncateTo64(seconds * 28 * 1000 * 1000 * kBytesPerBit);
        estimate.video = {estimate.total, 28'000, BITRATE_ORIGIN_FORMAT, SIZE_CERTAINTY_BOUNDED};
        return estimate;
    }
    if (format == KM_TEXT("ape")) {
        if (!wantsAudio) return estimate;
        estimate.total = TruncateTo64(seconds * 600 * 1000 * kBytesPerBit);
        estimate.audio = {estimate.total, 600, BITRATE_ORIGIN_FORMAT, SIZE_CERTAINTY_ROUGH};
        return estimate;
    }
    if (profile.GetType() == PROFILE_TYPE_VIDEO && (streams & kStreamVideo) != 0 &&
        CountsStream(profile, kVideo))
        AddVideo(estimate, profile, OwnBitrateOr(profile, kVideo, sourceVideoBitrate), seconds);
    if (!wantsAudio || !CountsStream(profile, kAudio)) return estimate;
    Bitrate audio = OwnBitrateOr(profile, kAudio, sourceAudioBitrate);
    if (audio.kilobits == 0) audio = {kFallbackAudioBitrate, BITRATE_ORIGIN_FALLBACK};
    AddAudio(estimate, profile, audio, seconds);
    return estimate;
}

kmSizeEstimate kmExplainImageOutputFileSize(const kmProfile& profile, std::int64_t /*duration*/,
                                            int sourceWidth, int sourceHeight) {
    kmSizeEstimate estimate;
    if (profile.GetProfileItem(KM_TEXT("pcodec")) != nullptr)
        AddPictures(estimate, profile, {sourceWidth, sourceHeight});
    return estimate;
}

kmSizeEstimate kmExplainP2VOutputFileSize(const kmProfile& profile, std::int64_t duration) {
    kmSizeEstimate estimate;
    if (profile.GetType() != PROFILE_TYPE_VIDEO || !CountsStream(profile, kVideo)) return estimate;
    Bitrate bitrate = OwnBitrate(profile, kVideo);
    const kmProfileItem* item = profile.GetProfileItem(kVideo.bitrate);
    if (bitrate.kilobits == 0 && item != nullptr && !item->GetAdvCandidatesValue().empty()) {
        const std::vector<kmString>& candidates = item->GetAdvCandidatesValue();
        bitrate = {ReadInteger(candidates[candidates.size() / 2].c_str(), 0), BITRATE_ORIGIN_CANDIDATE};
    }
    AddVideo(estimate, profile, bitrate, ToSeconds(duration));
    return estimate;
}

std::int64_t kmProfile::CalcOutputFileSize(std::int64_t duration, bool withAudio, int sourceWidth,
                                           int sourceHeight) const {
    return kmExplainOutputFileSize(*this, duration, withAudio, sourceWidth, sourceHeight).total;
}

std::int64_t kmProfile::CalcAVOutputFileSize(std::int64_t duration, int sourceAudioBitrate,
                                             int sourceVideoBitrate, int streams) const {
    return kmExplainAVOutputFileSize(*this, duration, sourceAudioBitrate, sourceVideoBitrate, streams).total;
}

std::int64_t kmProfile::CalcImageOutputFileSize(std::int64_t duration, int sourceWidth,
                                                int sourceHeight) const {
    return kmExplainImageOutputFileSize(*this, duration, sourceWidth, sourceHeight).total;
}

std::int64_t kmProfile::CalcP2VOutputFileSize(std::int64_t duration) const {
    return kmExplainP2VOutputFileSize(*this, duration).total;
}

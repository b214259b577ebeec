// How large the output will be. Products of doubles stand in the order in which the estimates are defined,
// because their last bit decides where a result is truncated.
#include <cstdlib>
#include <iterator>

#include "kmProfile.h"
#include "profile/ValueParsers.h"
#include "text/Numbers.h"

namespace {

constexpr int kStreamVideo = 1;
constexpr int kStreamAudio = 2;
constexpr double kBytesPerBit = 0.125;
constexpr std::int32_t kFallbackAudioBitrate = 64;  // kbit/s

constexpr FrameSize kH263Sizes[] = {{128, 96}, {176, 144}, {352, 288}, {704, 576}, {1408, 1152}};

double ToSeconds(std::int64_t microseconds) { return static_cast<double>(microseconds) / 1'000'000; }

std::int64_t VideoBytes(std::int32_t bitrate, double seconds) {
    return TruncateTo64(bitrate * seconds * 1000 * kBytesPerBit);
}

std::int64_t TotalBytes(std::int64_t videoBytes, double audioBytes) {
    return TruncateTo64(audioBytes + static_cast<double>(videoBytes));
}

// bit/s to kbit/s.
std::int32_t ToKilobits(int bitrate) { return TruncateTo32(bitrate / 1000.0); }

bool IsUsable(int sourceSide) { return sourceSide != -1 && sourceSide != 0; }

std::int64_t SumOf(FrameSize size) { return std::int64_t{size.width} + size.height; }

}  // namespace

// A stream counts unless its disabling item says "false": that is how profiles have always been read.
bool kmProfile::CountsStream(const kmChar* disablingItem) const {
    return !IsValue(disablingItem, KM_TEXT("false"));
}

double kmProfile::AudioBytes(double seconds, std::int32_t compressedBitrate) const {
    const auto isCodec = [this](const kmChar* codec) { return IsValue(KM_TEXT("acodec"), codec); };
    const int sampleBits =
        isCodec(KM_TEXT("pcm_s16le"))                                                                 ? 16
        : isCodec(KM_TEXT("pcm_u8")) || isCodec(KM_TEXT("pcm_alaw")) || isCodec(KM_TEXT("pcm_mulaw")) ? 8
                                                                                                      : 0;
    if (sampleBits == 0) return compressedBitrate * seconds * 1000 * kBytesPerBit;
    return WrapMultiply(IntegerOf(KM_TEXT("ar")), IntegerOf(KM_TEXT("ac"))) * seconds * sampleBits *
           kBytesPerBit;
}

std::int64_t kmProfile::PictureBytes(int sourceWidth, int sourceHeight) const {
    const double interval = ReadDecimal(ValueOf(KM_TEXT("pi")).c_str());
    if (interval < 0.01) return 0;
    FrameSize size{0, 0};
    GetSize(size.width, size.height);
    if (size.width == 0 || size.height == 0) {
        if (!IsUsable(sourceWidth) || !IsUsable(sourceHeight)) return 0;
        size = {sourceWidth, sourceHeight};
    }
    const double time = ReadDecimal(ValueOf(KM_TEXT("pt")).c_str());
    const std::int32_t raw = WrapMultiply(WrapMultiply(size.width, size.height), 3);
    const std::int64_t bytes = TruncateTo64(raw * time / interval);
    const auto isFormat = [this](const kmChar* format) { return IsValue(KM_TEXT("pcodec"), format); };
    if (isFormat(KM_TEXT("GIF")) || isFormat(KM_TEXT("JPG"))) return bytes / 20;
    return isFormat(KM_TEXT("PNG")) ? bytes / 3 : bytes;
}

std::int64_t kmProfile::CalcOutputFileSize(std::int64_t duration, bool withAudio, int sourceWidth,
                                           int sourceHeight) const {
    if (GetProfileItem(KM_TEXT("pcodec")) != nullptr) return PictureBytes(sourceWidth, sourceHeight);
    const double seconds = ToSeconds(duration);
    const std::int64_t video = CountsStream(KM_TEXT("vn")) ? VideoBytes(IntegerOf(KM_TEXT("b")), seconds) : 0;
    if (!withAudio || !CountsStream(KM_TEXT("an"))) return video;
    return TotalBytes(video, AudioBytes(seconds, IntegerOf(KM_TEXT("ab"))));
}

std::int64_t kmProfile::CalcAVOutputFileSize(std::int64_t duration, int sourceAudioBitrate,
                                             int sourceVideoBitrate, int streams) const {
    const double seconds = ToSeconds(duration);
    const bool wantsAudio = (streams & kStreamAudio) != 0;
    if (m_header.format == KM_TEXT("dv")) return TruncateTo64(seconds * 28 * 1000 * 1000 * kBytesPerBit);
    if (m_header.format == KM_TEXT("ape"))
        return wantsAudio ? TruncateTo64(seconds * 600 * 1000 * kBytesPerBit) : 0;

    std::int64_t video = 0;
    if (GetType() == PROFILE_TYPE_VIDEO && (streams & kStreamVideo) != 0 && CountsStream(KM_TEXT("vn"))) {
        std::int32_t bitrate = IntegerOf(KM_TEXT("b"));
        if (bitrate == 0) bitrate = ToKilobits(sourceVideoBitrate);
        video = VideoBytes(bitrate, seconds);
    }
    if (!wantsAudio || !CountsStream(KM_TEXT("an"))) return video;
    std::int32_t bitrate = IntegerOf(KM_TEXT("ab"));
    if (bitrate == 0) bitrate = ToKilobits(sourceAudioBitrate);
    if (bitrate == 0) bitrate = kFallbackAudioBitrate;
    return TotalBytes(video, AudioBytes(seconds, bitrate));
}

std::int64_t kmProfile::CalcImageOutputFileSize(std::int64_t /*duration*/, int sourceWidth,
                                                int sourceHeight) const {
    return GetProfileItem(KM_TEXT("pcodec")) == nullptr ? 0 : PictureBytes(sourceWidth, sourceHeight);
}

std::int64_t kmProfile::CalcP2VOutputFileSize(std::int64_t duration) const {
    if (GetType() != PROFILE_TYPE_VIDEO || !CountsStream(KM_TEXT("vn"))) return 0;
    std::int32_t bitrate = IntegerOf(KM_TEXT("b"));
    const kmProfileItem* item = GetProfileItem(KM_TEXT("b"));
    if (bitrate == 0 && item != nullptr && !item->m_advCandidatesValue.empty()) {
        const std::vector<kmString>& candidates = item->m_advCandidatesValue;
        bitrate = ReadInteger(candidates[candidates.size() / 2].c_str(), 0);
    }
    return VideoBytes(bitrate, ToSeconds(duration));
}

void kmProfile::GetOutSizeForSpecialVcodec(int width, int height, int& outWidth, int& outHeight,
                                           const kmChar* codec) const {
    if (codec == nullptr || *codec == 0) {
        outWidth = outHeight = 0;
        return;
    }
    if (!EqualNoCase(codec, KM_TEXT("h263"))) return;
    const std::int64_t wanted = SumOf({width, height});
    const FrameSize* nearest = std::begin(kH263Sizes);
    for (const FrameSize& size : kH263Sizes) {
        if (std::abs(SumOf(size) - wanted) < std::abs(SumOf(*nearest) - wanted)) nearest = &size;
    }
    outWidth = nearest->width;
    outHeight = nearest->height;
}

// SPDX-License-Identifier: MIT
// Products of doubles stand in the order in which the estimates are defined, because their last bit decides
// where a result is truncated.
#include "profile/StreamSize.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "text/Numbers.h"

namespace {

// Whatever bit rate stands beside them.
constexpr kmStringView kCodecsWithoutBitrate[] = {KM_TEXT("copy"),  KM_TEXT("rawvideo"), KM_TEXT("huffyuv"),
                                                  KM_TEXT("ljpeg"), KM_TEXT("zlib"),     KM_TEXT("flac"),
                                                  KM_TEXT("ape"),   KM_TEXT("alac"),     KM_TEXT("dvvideo")};
constexpr kmStringView kPcmPrefix = KM_TEXT("pcm_");

struct SampleFormat {
    kmStringView codec;
    int bits;
};
constexpr SampleFormat kSampleFormats[] = {
    {KM_TEXT("pcm_s16le"), 16}, {KM_TEXT("pcm_u8"), 8}, {KM_TEXT("pcm_alaw"), 8}, {KM_TEXT("pcm_mulaw"), 8}};

struct PictureFormat {
    kmStringView codec;
    int divisor;
    bool isRaw;
};
constexpr PictureFormat kPictureFormats[] = {
    {KM_TEXT("GIF"), 20, false},
    {KM_TEXT("JPG"), 20, false},
    {KM_TEXT("PNG"), 3, false},
    {KM_TEXT("BMP"), 1, true},
    {{}, 1, false},  // any other
};

bool IsUsable(int sourceSide) { return sourceSide != -1 && sourceSide != 0; }

bool IsValue(const kmProfile& profile, const kmChar* id, kmStringView value) {
    return EqualNoCase(profile.GetItemValue(id), value);
}

std::int32_t IntegerOf(const kmProfile& profile, const kmChar* id) {
    return ReadInteger(profile.GetItemValue(id).c_str(), 0);
}

bool IsSwitchedOn(const kmProfile& profile, const kmChar* id) {
    return IsValue(profile, id, KM_TEXT("true")) || IsValue(profile, id, KM_TEXT("yes"));
}

bool IsSet(const kmProfile& profile, const kmChar* id) {
    const kmString value = profile.GetItemValue(id);
    return !value.empty() && !EqualNoCase(value, KM_TEXT("Auto"));
}

bool IsMade(const kmProfile& profile, const StreamSettings& stream) {
    return (profile.ItemExist(stream.codec) || profile.ItemExist(stream.bitrate)) &&
           !IsSwitchedOn(profile, stream.disabling);
}

bool KeepsToBitrate(const kmProfile& profile, const StreamSettings& stream) {
    if (IsSet(profile, KM_TEXT("target")) || IsSet(profile, stream.quality) ||
        IsSwitchedOn(profile, stream.sameQuality))
        return false;
    const kmString codec = profile.GetItemValue(stream.codec);
    return !EqualNoCase(kmStringView(codec).substr(0, kPcmPrefix.size()), kPcmPrefix) &&
           std::none_of(std::begin(kCodecsWithoutBitrate), std::end(kCodecsWithoutBitrate),
                        [&codec](kmStringView other) { return EqualNoCase(codec, other); });
}

kmStreamSize WithoutBitrate(const kmProfile& profile, const StreamSettings& stream) {
    kmStreamSize size;
    if (IsMade(profile, stream)) size.certainty = SIZE_CERTAINTY_UNKNOWN;
    return size;
}

// All but the bytes.
kmStreamSize WithBitrate(const kmProfile& profile, const StreamSettings& stream, Bitrate bitrate) {
    if (bitrate.kilobits == 0) return WithoutBitrate(profile, stream);
    const bool isBounded =
        bitrate.kilobits > 0 && bitrate.origin == BITRATE_ORIGIN_PROFILE && KeepsToBitrate(profile, stream);
    return {0, static_cast<double>(bitrate.kilobits), bitrate.origin,
            isBounded ? SIZE_CERTAINTY_BOUNDED : SIZE_CERTAINTY_ROUGH};
}

// Likewise; the products of hostile numbers wrap around.
kmStreamSize WithSamples(const kmProfile& profile, std::int32_t rate, std::int32_t channels, int bits) {
    const std::int32_t samples = WrapMultiply(rate, channels);
    if (samples == 0) return WithoutBitrate(profile, kAudio);
    const bool isExact = samples > 0 && samples == std::int64_t{rate} * channels;
    return {0, static_cast<double>(samples) * bits / 1000, BITRATE_ORIGIN_FORMAT,
            isExact ? SIZE_CERTAINTY_EXACT : SIZE_CERTAINTY_ROUGH};
}

// 0 for a codec whose bit rate counts.
int SampleBits(const kmProfile& profile) {
    const kmString codec = profile.GetItemValue(kAudio.codec);
    for (const SampleFormat& format : kSampleFormats) {
        if (EqualNoCase(codec, format.codec)) return format.bits;
    }
    return 0;
}

const PictureFormat& FormatOfPictures(const kmProfile& profile) {
    const kmString codec = profile.GetItemValue(KM_TEXT("pcodec"));
    return *std::find_if(std::begin(kPictureFormats), std::prev(std::end(kPictureFormats)),
                         [&codec](const PictureFormat& row) { return EqualNoCase(codec, row.codec); });
}

std::optional<FrameSize> PictureSize(const kmProfile& profile, FrameSize source) {
    FrameSize size{0, 0};
    profile.GetSize(size.width, size.height);
    if (size.width != 0 && size.height != 0) return size;
    if (!IsUsable(source.width) || !IsUsable(source.height)) return std::nullopt;
    return source;
}

}  // namespace

bool CountsStream(const kmProfile& profile, const StreamSettings& stream) {
    return !IsValue(profile, stream.disabling, KM_TEXT("false"));
}

Bitrate OwnBitrate(const kmProfile& profile, const StreamSettings& stream) {
    return {IntegerOf(profile, stream.bitrate), BITRATE_ORIGIN_PROFILE};
}

void AddVideo(kmSizeEstimate& estimate, const kmProfile& profile, Bitrate bitrate, double seconds) {
    estimate.video = WithBitrate(profile, kVideo, bitrate);
    estimate.video.bytes = TruncateTo64(bitrate.kilobits * seconds * 1000 * kBytesPerBit);
    estimate.total = estimate.video.bytes;
}

void AddAudio(kmSizeEstimate& estimate, const kmProfile& profile, Bitrate bitrate, double seconds) {
    double bytes = 0;
    if (const int bits = SampleBits(profile); bits != 0) {
        const std::int32_t rate = IntegerOf(profile, KM_TEXT("ar"));
        const std::int32_t channels = IntegerOf(profile, KM_TEXT("ac"));
        estimate.audio = WithSamples(profile, rate, channels, bits);
        bytes = WrapMultiply(rate, channels) * seconds * bits * kBytesPerBit;
    } else {
        estimate.audio = WithBitrate(profile, kAudio, bitrate);
        bytes = bitrate.kilobits * seconds * 1000 * kBytesPerBit;
    }
    estimate.total = TruncateTo64(bytes + static_cast<double>(estimate.video.bytes));
    // Unsigned, because totals at the limit of 64 bits may be further away from the video than that.
    estimate.audio.bytes = static_cast<std::int64_t>(static_cast<std::uint64_t>(estimate.total) -
                                                     static_cast<std::uint64_t>(estimate.video.bytes));
}

void AddPictures(kmSizeEstimate& estimate, const kmProfile& profile, FrameSize source) {
    estimate.pictures.certainty = SIZE_CERTAINTY_UNKNOWN;
    const double interval = ReadDecimal(profile.GetItemValue(KM_TEXT("pi")).c_str());
    const double time = ReadDecimal(profile.GetItemValue(KM_TEXT("pt")).c_str());
    const std::optional<FrameSize> size = PictureSize(profile, source);
    if (interval < 0.01 || time == 0 || !size) return;
    const std::int32_t raw = WrapMultiply(WrapMultiply(size->width, size->height), 3);
    const PictureFormat& format = FormatOfPictures(profile);
    const bool isExact = format.isRaw && raw == static_cast<double>(size->width) * size->height * 3;
    estimate.total = estimate.pictures.bytes = TruncateTo64(raw * time / interval) / format.divisor;
    estimate.pictures.certainty = isExact ? SIZE_CERTAINTY_EXACT : SIZE_CERTAINTY_ROUGH;
}

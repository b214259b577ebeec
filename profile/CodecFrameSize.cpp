// SPDX-License-Identifier: MIT
// The frame sizes that a codec accepts.
#include <cstdint>
#include <cstdlib>
#include <iterator>

#include "kmProfile.h"
#include "profile/ValueParsers.h"
#include "text/Ascii.h"

namespace {

constexpr FrameSize kH263Sizes[] = {{128, 96}, {176, 144}, {352, 288}, {704, 576}, {1408, 1152}};

std::int64_t SumOf(FrameSize size) { return std::int64_t{size.width} + size.height; }

}  // namespace

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

// SPDX-License-Identifier: MIT
// The one setting that an audio codec does not allow as it is, and its new value.
#pragma once

#include "kmMP3Limit.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"

struct Correction {
    const kmChar* id = nullptr;  // null: none
    kmString value;
    kmStringView why;
};

// `valueOf` gives the text of the setting with that ID, an empty one without such a setting.
template <typename ValueOf>
Correction FindMP3Correction(const ValueOf& valueOf) {
    const auto integerOf = [&](const kmChar* id) { return ReadInteger(valueOf(id).c_str(), 0); };
    const std::int32_t limit = _MP3Limit::GetmaxBitrate(integerOf(KM_TEXT("ar")));
    if (limit == -1 || integerOf(KM_TEXT("ab")) <= limit) return {};
    return {KM_TEXT("ab"), IntegerText(limit), KM_TEXT("MP3 allows no more at this sample rate")};
}

template <typename ValueOf>
Correction FindWMACorrection(const ValueOf& valueOf) {
    const auto is = [&](const kmChar* id, kmStringView value) {
        return TrimView(valueOf(id), KM_TEXT(' ')) == value;
    };
    if (!is(KM_TEXT("ab"), KM_TEXT("320")) || is(KM_TEXT("ar"), KM_TEXT("44100"))) return {};
    return {KM_TEXT("ar"), KM_TEXT("44100"), KM_TEXT("WMA has 320 kbit/s at this sample rate alone")};
}

template <typename ValueOf>
Correction FindCorrection(const ValueOf& valueOf) {
    const kmString& codec = valueOf(KM_TEXT("acodec"));
    if (EqualNoCase(codec, KM_TEXT("mp3"))) return FindMP3Correction(valueOf);
    const bool isWMA = codec == KM_TEXT("wma9x") || codec == KM_TEXT("wma8x") || codec == KM_TEXT("wma7x");
    return isWMA ? FindWMACorrection(valueOf) : Correction();
}

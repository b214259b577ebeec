// SPDX-License-Identifier: MIT
// Both parsers follow the encoder's own reading of these texts, down to what it makes of malformed ones.
#include "profile/ValueParsers.h"

#include "text/Numbers.h"

namespace {

constexpr std::int64_t kMicroseconds = 1'000'000;

struct Abbreviation {
    kmStringView name;
    FrameSize size;
};

constexpr Abbreviation kAbbreviations[] = {
    {KM_TEXT("ntsc"), {720, 480}}, {KM_TEXT("pal"), {720, 576}},       {KM_TEXT("qntsc"), {352, 240}},
    {KM_TEXT("qpal"), {352, 288}}, {KM_TEXT("sntsc"), {640, 480}},     {KM_TEXT("spal"), {768, 576}},
    {KM_TEXT("film"), {352, 240}}, {KM_TEXT("ntsc-film"), {352, 240}}, {KM_TEXT("sqcif"), {128, 96}},
    {KM_TEXT("qcif"), {176, 144}}, {KM_TEXT("cif"), {352, 288}},       {KM_TEXT("4cif"), {704, 576}},
};

// One or two digits with a value up to `limit`; -1, and `at` where it was, when there are none such.
std::int32_t TakeField(const kmChar*& at, std::int32_t limit) {
    if (!IsDigit(at[0])) return -1;
    const int length = IsDigit(at[1]) ? 2 : 1;
    const std::int32_t value =
        length == 2 ? (at[0] - KM_TEXT('0')) * 10 + (at[1] - KM_TEXT('0')) : at[0] - KM_TEXT('0');
    if (value > limit) return -1;
    at += length;
    return value;
}

// "h:m:s" in seconds; -1, and `at` where it was, when the text does not begin with that.
std::int32_t TakeClockTime(const kmChar*& at) {
    const kmChar* next = at;
    const std::int32_t hours = TakeField(next, 23);
    if (hours < 0 || *next++ != KM_TEXT(':')) return -1;
    const std::int32_t minutes = TakeField(next, 59);
    if (minutes < 0 || *next++ != KM_TEXT(':')) return -1;
    const std::int32_t seconds = TakeField(next, 59);
    if (seconds < 0) return -1;
    at = next;
    return (hours * 60 + minutes) * 60 + seconds;
}

std::int64_t ReadFraction(const kmChar* at) {
    std::int64_t fraction = 0;
    for (std::int64_t worth = kMicroseconds / 10; worth > 0 && IsDigit(*at); worth /= 10, ++at) {
        fraction += (*at - KM_TEXT('0')) * worth;
    }
    return fraction;
}

}  // namespace

std::int64_t ParseDuration(const kmChar* text) {
    const bool negative = *text == KM_TEXT('-');
    const kmChar* at = negative ? text + 1 : text;
    std::int32_t seconds = TakeClockTime(at);
    if (seconds < 0) seconds = ReadInteger(at, 10, &at);
    std::int64_t time = seconds * kMicroseconds;
    if (*at == KM_TEXT('.')) time += ReadFraction(at + 1);
    return negative ? -time : time;
}

FrameSize ReadFrameSize(const kmChar* text) {
    const kmChar* at = text;
    const std::int32_t width = ReadInteger(text, 10, &at);
    if (*at != 0) ++at;
    return {width, ReadInteger(at, 10)};
}

int ParseFrameSize(const kmChar* text, std::int32_t& width, std::int32_t& height) {
    FrameSize size = ReadFrameSize(text);
    for (const Abbreviation& abbreviation : kAbbreviations) {
        if (abbreviation.name == text) {
            size = abbreviation.size;
            break;
        }
    }
    if (size.width < 1 || size.height < 1) return -1;
    width = size.width;
    height = size.height;
    return 0;
}

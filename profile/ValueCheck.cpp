// SPDX-License-Identifier: MIT
// What a user may type for the options whose values are free.
#include <algorithm>
#include <iterator>

#include "kmProfileItem.h"
#include "profile/ValueParsers.h"
#include "text/Numbers.h"

namespace {

bool IsAuto(const kmChar* value) { return EqualNoCase(value, KM_TEXT("Auto")); }
bool IsFull(const kmChar* value) { return EqualNoCase(value, KM_TEXT("Full")); }

bool IsTime(const kmChar* value) { return kmProfileItem::IsValidTime(value, nullptr) != -1; }

bool IsTimeOrFull(const kmChar* value) { return IsFull(value) || IsTime(value); }

bool IsEvenFrameSize(const kmChar* value) {
    const FrameSize size = ReadFrameSize(value);
    return size.width >= 1 && size.height >= 1 && size.width % 2 == 0 && size.height % 2 == 0;
}

bool IsBitrate(const kmChar* value) { return IsAuto(value) || ReadInteger(value, 10) > 0; }

bool IsChannelCount(const kmChar* value) {
    const std::int32_t channels = ReadInteger(value, 10);
    return channels == 1 || channels == 2 || channels == 5 || channels == 6;
}

bool IsPictureTime(const kmChar* value) { return ReadDecimal(value) > 0.05; }

bool IsPictureTimeOrFull(const kmChar* value) { return IsFull(value) || IsPictureTime(value); }

// A number, or two numbers around the first of `separators` that occurs.
bool IsRatio(const kmChar* value, kmStringView separators) {
    if (IsAuto(value)) return true;
    const kmStringView text = value;
    const auto isRatioCharacter = [](kmChar c) {
        return IsDigit(c) || c == KM_TEXT('.') || c == KM_TEXT(':') || c == KM_TEXT('/');
    };
    if (!std::all_of(text.begin(), text.end(), isRatioCharacter)) return false;
    for (const kmChar separator : separators) {
        const std::size_t at = text.find(separator);
        if (at != kmStringView::npos)
            return ReadInteger(value, 10) != 0 && ReadInteger(value + at + 1, 10) != 0;
    }
    return ReadDecimal(value) >= 0.01;
}

bool IsFrameRate(const kmChar* value) { return IsRatio(value, KM_TEXT(":/")); }
bool IsAspect(const kmChar* value) { return IsRatio(value, KM_TEXT(":")); }

struct Rule {
    kmStringView id;
    bool (*accepts)(const kmChar* value);
    const kmChar* message;
};

constexpr const kmChar* kBitrateMessage = KM_TEXT("Please input a valid value large than zero!");
constexpr const kmChar* kPictureTimeMessage = KM_TEXT("Pleease input value large than 0.05.");

constexpr Rule kRules[] = {
    {KM_TEXT("ss"), IsTime, KM_TEXT("Please input valid time : 0 - 59!")},
    {KM_TEXT("t"), IsTimeOrFull, KM_TEXT("Please input valid duration: 'xx:xx:xx' or 'Full'.")},
    {KM_TEXT("s"), IsEvenFrameSize, KM_TEXT("Frame size must be a multiple of 2!")},
    {KM_TEXT("b"), IsBitrate, kBitrateMessage},
    {KM_TEXT("ab"), IsBitrate, kBitrateMessage},
    {KM_TEXT("r"), IsFrameRate, KM_TEXT("Please input value such as 29.97, 30000/1001 or 25000:1001.")},
    {KM_TEXT("aspect"), IsAspect, KM_TEXT("Please input value such as 4:3, 16:9 or 1.3333, 1.7777.")},
    {KM_TEXT("ac"), IsChannelCount, KM_TEXT("Please input value '1'(Mono) or '2'(Stereo).")},
    {KM_TEXT("pt"), IsPictureTimeOrFull, kPictureTimeMessage},
    {KM_TEXT("pi"), IsPictureTime, kPictureTimeMessage},
};

// The digits and colons of a time; each field may be empty or have any length.
struct TimeFields {
    const kmChar* firstColon = nullptr;
    const kmChar* secondColon = nullptr;
    const kmChar* end = nullptr;
};

bool ScanTime(const kmChar* time, TimeFields& fields) {
    const kmChar* at = time;
    for (; *at != 0; ++at) {
        if (IsDigit(*at)) continue;
        if (*at != KM_TEXT(':') || fields.secondColon != nullptr) return false;
        (fields.firstColon == nullptr ? fields.firstColon : fields.secondColon) = at;
    }
    fields.end = at;
    return true;
}

}  // namespace

int kmProfileItem::IsValidTime(const kmChar* time, int* seconds) {
    if (time == nullptr || *time == 0) return 1;
    TimeFields fields;
    if (!ScanTime(time, fields)) return -1;
    const bool hasHours = fields.secondColon != nullptr;
    const kmChar* minuteField = hasHours ? fields.firstColon + 1 : time;
    const kmChar* secondField = hasHours                       ? fields.secondColon + 1
                                : fields.firstColon != nullptr ? fields.firstColon + 1
                                                               : time;
    const std::int32_t hour = hasHours ? ReadInteger(time, 10) : 0;
    const std::int32_t minute = fields.firstColon != nullptr ? ReadInteger(minuteField, 10) : 0;
    const std::int32_t second = ReadInteger(secondField, 10);
    // Fields of any length are read, so the total may be beyond 32 bits.
    const std::int32_t total = WrapAdd(WrapMultiply(WrapAdd(WrapMultiply(hour, 60), minute), 60), second);
    if (seconds != nullptr) *seconds = total;
    const bool isWellFormed = hasHours && fields.firstColon - time <= 2 &&
                              fields.secondColon - minuteField <= 2 && fields.end - secondField <= 2 &&
                              minute <= 59 && second <= 59;
    return isWellFormed ? 1 : 0;
}

bool kmProfileItem::Check(kmString& message, const kmChar* id, const kmChar* value) {
    if (id == nullptr || *id == 0) return false;
    const kmStringView wanted = id;
    const auto rule = std::find_if(std::begin(kRules), std::end(kRules), [wanted](const Rule& candidate) {
        return EqualNoCase(candidate.id, wanted);
    });
    if (rule == std::end(kRules) || rule->accepts(value == nullptr ? KM_TEXT("") : value)) return true;
    message = rule->message;
    return false;
}

// SPDX-License-Identifier: MIT
// What a profile's settings mean.
#include "kmProfile.h"
#include "profile/ValueParsers.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"

PROFILE_TYPE kmProfile::GetType() const {
    const auto has = [this](const kmChar* id) { return GetProfileItem(id) != nullptr; };
    if (has(KM_TEXT("vcodec")) || has(KM_TEXT("b"))) return PROFILE_TYPE_VIDEO;
    if (has(KM_TEXT("acodec"))) return PROFILE_TYPE_AUDIO;
    return has(KM_TEXT("pcodec")) ? PROFILE_TYPE_PICTURE : PROFILE_TYPE_UNKNOWN;
}

bool kmProfile::GetSize(std::int32_t& width, std::int32_t& height) const {
    const kmProfileItem* size = GetProfileItem(KM_TEXT("s"));
    if (size == nullptr) return false;
    width = height = 0;
    if (EqualNoCase(TrimView(size->m_value, KM_TEXT(' ')), KM_TEXT("Auto"))) return true;
    return ParseFrameSize(size->m_value.c_str(), width, height) == 0;
}

int kmProfile::GetZoom() const { return IntegerOf(KM_TEXT("zoom")); }

double kmProfile::GetAspectratio() const {
    const kmString& value = ValueOf(KM_TEXT("aspect"));
    if (value.find(KM_TEXT('.')) != kmString::npos) return ReadDecimal(value.c_str());
    if (value.find(KM_TEXT(':')) == kmString::npos) return 0.0;
    std::vector<kmString> parts;
    SplitText(value, KM_TEXT(':'), parts);
    const std::int32_t denominator = ReadInteger(parts[1].c_str(), 0);
    if (denominator == 0) return 0.0;
    return static_cast<double>(ReadInteger(parts[0].c_str(), 0)) / denominator;
}

std::int64_t kmProfile::GetStartTime() const { return ParseDuration(ValueOf(KM_TEXT("ss")).c_str()); }

std::int64_t kmProfile::GetDuration() const {
    const kmChar* id = GetProfileItem(KM_TEXT("t")) != nullptr ? KM_TEXT("t") : KM_TEXT("pt");
    return ParseDuration(ValueOf(id).c_str());
}

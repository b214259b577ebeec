// The options for the encoder's command line. Everything is appended to one text that is large enough from
// the start; options are found by the hash of their names, and what is special about some of them is a bit
// that the compiler puts into a table beside the option table.
#include <algorithm>
#include <array>
#include <cstdint>

#include "kmArgOption.h"
#include "kmMP3Limit.h"
#include "kmProfile.h"
#include "options/OptionTable.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"

namespace {

enum Trait : std::uint8_t {
    TRAIT_HELD_BACK = 1,      // the application passes it on in its own way
    TRAIT_SET_BY_TARGET = 2,  // a disc target decides it
    TRAIT_KILOBITS = 4,       // written with "K" behind the number
    TRAIT_TARGET = 8,
    TRAIT_PICTURE_FORMAT = 16,
    TRAIT_PICTURE_QUALITY = 32,
    TRAIT_CHANNELS = 64,
};

struct NamedTraits {
    kmStringView name;
    int traits;
};

constexpr NamedTraits kNamedTraits[] = {
    {KM_TEXT("ss"), TRAIT_HELD_BACK},
    {KM_TEXT("t"), TRAIT_HELD_BACK},
    {KM_TEXT("pt"), TRAIT_HELD_BACK},
    {KM_TEXT("s"), TRAIT_HELD_BACK},
    {KM_TEXT("r"), TRAIT_HELD_BACK},
    {KM_TEXT("pi"), TRAIT_HELD_BACK},
    {KM_TEXT("zoom"), TRAIT_HELD_BACK},
    {KM_TEXT("b"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("ab"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("bt"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("maxrate"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("minrate"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("bufsize"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("vcodec"), TRAIT_SET_BY_TARGET},
    {KM_TEXT("acodec"), TRAIT_SET_BY_TARGET},
    {KM_TEXT("ar"), TRAIT_SET_BY_TARGET},
    {KM_TEXT("target"), TRAIT_TARGET},
    {KM_TEXT("pcodec"), TRAIT_PICTURE_FORMAT},
    {KM_TEXT("pq"), TRAIT_PICTURE_QUALITY},
    {KM_TEXT("ac"), TRAIT_CHANNELS},
};

// A name that the option table lacks would index beyond the array, which the compiler refuses.
constexpr auto BuildTraits() {
    std::array<std::uint8_t, kOptionCount> traits{};
    for (const NamedTraits& named : kNamedTraits) {
        std::size_t row = 0;
        while (kOptionRows[row].name != named.name) ++row;
        traits[row] = static_cast<std::uint8_t>(named.traits);
    }
    return traits;
}

constexpr auto kTraits = BuildTraits();

constexpr kmStringView kDiscTargets[] = {KM_TEXT("DVD"), KM_TEXT("VCD"), KM_TEXT("SVCD")};

bool IsDiscTarget(kmStringView target) {
    return std::any_of(std::begin(kDiscTargets), std::end(kDiscTargets),
                       [target](kmStringView disc) { return EqualNoCase(disc, target); });
}

void AppendLower(kmString& options, kmStringView text) {
    for (const kmChar c : text) options += FoldLower(c);
}

void AppendSwitch(kmString& options, const _ArgOption& option, kmStringView value) {
    if (!EqualNoCase(value, KM_TEXT("true")) && !EqualNoCase(value, KM_TEXT("yes"))) return;
    options.append(KM_TEXT("-")).append(option.name);
    options.append((option.flags & ARG_SWITCH_ONE) != 0 ? KM_TEXT(" 1 ") : KM_TEXT(" "));
}

bool IsDefault(const _ArgOption& option, kmStringView value) {
    if (option.defVal == nullptr) return false;
    return (option.flags & ARG_LOWER_TEXT) != 0 ? value == option.defVal : EqualNoCase(value, option.defVal);
}

void AppendPictureFormat(kmString& options, kmStringView format) {
    if (EqualNoCase(format, KM_TEXT("JPG"))) {
        options += KM_TEXT("-f image2 -vcodec mjpeg ");
    } else if (EqualNoCase(format, KM_TEXT("GIF"))) {
        options += KM_TEXT("-pix_fmt rgb24 -f gif ");
    } else {
        options += KM_TEXT("-f image2 -vcodec ");
        AppendLower(options, format);
        options += KM_TEXT(' ');
    }
}

// `value` ends where a null-terminated text does, or in front of trailing spaces, which end a number too.
void AppendValue(kmString& options, const _ArgOption& option, int traits, kmStringView value) {
    if ((traits & TRAIT_PICTURE_QUALITY) != 0) {
        options += IntegerText(WrapAdd(WrapMultiply(ReadInteger(value.data(), 0), 60), 1));
    } else if ((traits & TRAIT_CHANNELS) != 0 && value.front() == KM_TEXT('5')) {
        options += KM_TEXT('6');
    } else if ((option.flags & ARG_LOWER_TEXT) != 0) {
        AppendLower(options, value);
    } else {
        options += value;
        if ((traits & TRAIT_KILOBITS) != 0 && FoldLower(value.back()) != KM_TEXT('k'))
            options += KM_TEXT('K');
    }
}

void AppendValuedOption(kmString& options, const _ArgOption& option, int traits, kmStringView value) {
    if (IsDefault(option, value)) return;
    if ((traits & TRAIT_PICTURE_FORMAT) != 0) return AppendPictureFormat(options, value);
    options.append(KM_TEXT("-")).append(option.name).append(KM_TEXT(" \""));
    AppendValue(options, option, traits, value);
    options.append(KM_TEXT("\" "));
}

// " -vn " and the like, unless the options hold it already.
void AppendClosing(kmString& options, kmStringView closing) {
    if (options.find(closing) == kmString::npos) options += closing;
}

}  // namespace

void kmProfile::LimitMP3Bitrate() {
    if (!IsValue(KM_TEXT("acodec"), KM_TEXT("mp3"))) return;
    const std::int32_t limit = _MP3Limit::GetmaxBitrate(IntegerOf(KM_TEXT("ar")));
    if (limit != -1 && IntegerOf(KM_TEXT("ab")) > limit)
        SetItemValue(KM_TEXT("ab"), IntegerText(limit).c_str());
}

void kmProfile::CorrectWMASampleRate() {
    const kmString& codec = ValueOf(KM_TEXT("acodec"));
    if (codec != KM_TEXT("wma9x") && codec != KM_TEXT("wma8x") && codec != KM_TEXT("wma7x")) return;
    const auto trimmed = [this](const kmChar* id) { return TrimView(ValueOf(id), KM_TEXT(' ')); };
    if (trimmed(KM_TEXT("ab")) == KM_TEXT("320") && trimmed(KM_TEXT("ar")) != KM_TEXT("44100")) {
        SetItemValue(KM_TEXT("ar"), KM_TEXT("44100"));
    }
}

void kmProfile::AppendOptions(kmString& options, bool withAudio) const {
    kmStringView target;
    for (const kmProfileItem& item : m_items) {
        const kmStringView value = TrimView(item.m_value, KM_TEXT(' '));
        if (value.empty()) continue;
        const int index = kmArgOption::GetOptionID(item.m_id.c_str());
        if (index < 0) continue;
        const _ArgOption& option = kOptionRows[index];
        if ((option.flags & ARG_NOT_PASSED) != 0 || (!withAudio && (option.flags & ARG_AUDIO) != 0)) continue;
        if ((option.flags & ARG_SWITCH) != 0) {
            AppendSwitch(options, option, value);
            continue;
        }
        const int traits = kTraits[static_cast<std::size_t>(index)];
        if ((traits & TRAIT_HELD_BACK) != 0) continue;
        if ((traits & TRAIT_TARGET) != 0) target = value;
        if ((traits & TRAIT_SET_BY_TARGET) != 0 && IsDiscTarget(target)) continue;
        AppendValuedOption(options, option, traits, value);
    }
}

kmString kmProfile::GetAvcString(bool withAudio) {
    LimitMP3Bitrate();
    CorrectWMASampleRate();
    constexpr std::size_t kPerOption = 20;  // a long name, "-", the quotation marks and spaces
    kmString options;
    std::size_t length = kPerOption;
    for (const kmProfileItem& item : m_items) length += item.m_value.size() + kPerOption;
    options.reserve(length);

    AppendOptions(options, withAudio);
    options += KM_TEXT(' ');
    const PROFILE_TYPE type = GetType();
    if (type == PROFILE_TYPE_AUDIO) AppendClosing(options, KM_TEXT(" -vn "));
    if (type == PROFILE_TYPE_PICTURE) AppendClosing(options, KM_TEXT(" -an "));
    return options;
}

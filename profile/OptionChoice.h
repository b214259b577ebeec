// SPDX-License-Identifier: MIT
// Which settings become options for the encoder, and how their values are written: what the option string and
// the argument list share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "kmTypes.h"
#include "options/FindOption.h"
#include "options/OptionTraits.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"

enum class OptionChoice : std::uint8_t {
    Empty,        // no value but spaces
    NoOption,     // no option of that name
    NotPassed,    // an option that encoders never get
    NoAudio,      // audio is not wanted
    SwitchOff,    // a switch that is not set
    Switch,       // written, without a value
    HeldBack,     // whoever starts the encoder applies it
    SetByTarget,  // the disc target decides it
    Default,      // what the encoder does by itself
    Value,        // written, with a value
};

struct ChosenOption {
    OptionChoice choice;
    const Option* option;  // null for Empty and NoOption
    kmStringView value;    // without spaces at both ends
};

inline bool IsDefault(const Option& option, kmStringView value) {
    if (option.defVal.data() == nullptr) return false;
    return (option.flags & ARG_LOWER_TEXT) != 0 ? value == option.defVal : EqualNoCase(value, option.defVal);
}

// Whether the target decides what comes after it.
inline bool IsDiscTarget(kmStringView target) {
    constexpr kmStringView kDiscTargets[] = {KM_TEXT("DVD"), KM_TEXT("VCD"), KM_TEXT("SVCD")};
    return std::any_of(std::begin(kDiscTargets), std::end(kDiscTargets),
                       [target](kmStringView disc) { return EqualNoCase(disc, target); });
}

// Takes the settings of one profile in their order, because a disc target decides what comes after it.
class OptionChooser {
public:
    explicit OptionChooser(bool withAudio) : m_withAudio(withAudio) {}

    // `value` must live as long as this object: it may be the target.
    ChosenOption Choose(const kmString& id, const kmString& value) {
        const kmStringView trimmed = TrimView(value, KM_TEXT(' '));
        if (trimmed.empty()) return {OptionChoice::Empty, nullptr, trimmed};
        const int index = FindOption(id);
        if (index < 0) return {OptionChoice::NoOption, nullptr, trimmed};
        const Option& option = kOptions[static_cast<std::size_t>(index)];
        return {ChoiceOf(option, trimmed), &option, trimmed};
    }

private:
    OptionChoice ChoiceOf(const Option& option, kmStringView value) {
        if ((option.flags & ARG_NOT_PASSED) != 0) return OptionChoice::NotPassed;
        if (!m_withAudio && (option.flags & ARG_AUDIO) != 0) return OptionChoice::NoAudio;
        if ((option.flags & ARG_SWITCH) != 0) {
            const bool isOn = EqualNoCase(value, KM_TEXT("true")) || EqualNoCase(value, KM_TEXT("yes"));
            return isOn ? OptionChoice::Switch : OptionChoice::SwitchOff;
        }
        if ((option.traits & TRAIT_HELD_BACK) != 0) return OptionChoice::HeldBack;
        if ((option.traits & TRAIT_TARGET) != 0) m_target = value;
        if ((option.traits & TRAIT_SET_BY_TARGET) != 0 && IsDiscTarget(m_target))
            return OptionChoice::SetByTarget;
        return IsDefault(option, value) ? OptionChoice::Default : OptionChoice::Value;
    }

    bool m_withAudio;
    kmStringView m_target;
};

// Puts the value as the encoder takes it; `text` has Put of a unit and of a text, and PutLower. `value` ends
// where a null-terminated text does, or in front of trailing spaces, which end a number too.
template <typename Text>
void PutOptionValue(Text& text, const Option& option, kmStringView value) {
    const int traits = option.traits;
    if ((traits & TRAIT_PICTURE_QUALITY) != 0) {
        text.Put(IntegerText(WrapAdd(WrapMultiply(ReadInteger(value.data(), 0), 60), 1)));
    } else if ((traits & TRAIT_CHANNELS) != 0 && value.front() == KM_TEXT('5')) {
        text.Put(KM_TEXT('6'));
    } else if ((option.flags & ARG_LOWER_TEXT) != 0) {
        text.PutLower(value);
    } else {
        text.Put(value);
        if ((traits & TRAIT_KILOBITS) != 0 && FoldLower(value.back()) != KM_TEXT('k')) text.Put(KM_TEXT('K'));
    }
}

// What stands for a picture format instead of its option.
struct PictureFormatOptions {
    kmStringView options;  // each followed by a space
    bool valueFollows;     // the format itself, in lower case, is the last one's value
};

inline PictureFormatOptions OptionsOfPictureFormat(kmStringView format) {
    if (EqualNoCase(format, KM_TEXT("JPG"))) return {KM_TEXT("-f image2 -vcodec mjpeg "), false};
    if (EqualNoCase(format, KM_TEXT("GIF"))) return {KM_TEXT("-pix_fmt rgb24 -f gif "), false};
    return {KM_TEXT("-f image2 -vcodec "), true};
}

// Puts what the string holds for an option that is written, with the space after it.
template <typename Text>
void PutOption(Text& text, const ChosenOption& chosen) {
    const Option& option = *chosen.option;
    if ((option.traits & TRAIT_PICTURE_FORMAT) != 0) {
        const PictureFormatOptions picture = OptionsOfPictureFormat(chosen.value);
        text.Put(picture.options);
        if (picture.valueFollows) text.PutLower(chosen.value).Put(KM_TEXT(' '));
        return;
    }
    text.Put(KM_TEXT('-')).Put(option.name).Put(KM_TEXT(' '));
    if (chosen.choice == OptionChoice::Switch) {
        if ((option.flags & ARG_SWITCH_ONE) != 0) text.Put(KM_TEXT("1 "));
        return;
    }
    text.Put(KM_TEXT('"'));
    PutOptionValue(text, option, chosen.value);
    text.Put(KM_TEXT("\" "));
}

// What the string ends with: " -vn " for audio and " -an " for pictures, unless it holds that already.
inline kmStringView ClosingOption(kmStringView options, PROFILE_TYPE type) {
    const kmStringView closing = type == PROFILE_TYPE_AUDIO     ? KM_TEXT(" -vn ")
                                 : type == PROFILE_TYPE_PICTURE ? KM_TEXT(" -an ")
                                                                : KM_TEXT("");
    return options.find(closing) == kmStringView::npos ? closing : kmStringView();
}

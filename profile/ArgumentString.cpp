// The options for the encoder's command line. Everything is appended to one text that is large enough from
// the start; options are found by the hash of their names, and what is special about some of them is a bit
// that the compiler puts into a copy of the option table.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "kmMP3Limit.h"
#include "kmProfile.h"
#include "options/FindOption.h"
#include "options/OptionTraits.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"

namespace {

constexpr std::size_t kLongestName = 12;

static_assert(std::all_of(kOptions.begin(), kOptions.end(),
                          [](const Option& option) { return option.name.size() <= kLongestName; }));

constexpr kmStringView kDiscTargets[] = {KM_TEXT("DVD"), KM_TEXT("VCD"), KM_TEXT("SVCD")};

bool IsDiscTarget(kmStringView target) {
    return std::any_of(std::begin(kDiscTargets), std::end(kDiscTargets),
                       [target](kmStringView disc) { return EqualNoCase(disc, target); });
}

// Puts the pieces one after the other into a text that was made large enough beforehand. That it is, is
// checked all the same.
class Pieces {
public:
    // More than any option needs besides its value: its name in "-", a quotation mark, "K" and spaces, where
    // "pq" also turns one digit into a number; or what "pcodec" becomes.
    static constexpr std::size_t kPerOption = kLongestName + 6 + 10;

    explicit Pieces(kmString& text) : m_at(text.data()), m_end(text.data() + text.size()) {}

    const kmChar* End() const { return m_at; }
    Pieces& Put(kmChar unit) {
        *Take(1) = unit;
        return *this;
    }
    Pieces& Put(kmStringView text) {
        std::memcpy(Take(text.size()), text.data(), text.size() * sizeof(kmChar));
        return *this;
    }
    Pieces& PutLower(kmStringView text) {
        std::transform(text.begin(), text.end(), Take(text.size()), FoldLower);
        return *this;
    }

private:
    kmChar* Take(std::size_t count) {
        if (static_cast<std::size_t>(m_end - m_at) < count) throw std::length_error("an option is too long");
        return std::exchange(m_at, m_at + count);
    }

    kmChar* m_at;
    kmChar* m_end;
};

void PutSwitch(Pieces& pieces, const Option& option, kmStringView value) {
    if (!EqualNoCase(value, KM_TEXT("true")) && !EqualNoCase(value, KM_TEXT("yes"))) return;
    pieces.Put(KM_TEXT('-')).Put(option.name);
    pieces.Put((option.flags & ARG_SWITCH_ONE) != 0 ? KM_TEXT(" 1 ") : KM_TEXT(" "));
}

bool IsDefault(const Option& option, kmStringView value) {
    if (option.defVal.data() == nullptr) return false;
    return (option.flags & ARG_LOWER_TEXT) != 0 ? value == option.defVal : EqualNoCase(value, option.defVal);
}

void PutPictureFormat(Pieces& pieces, kmStringView format) {
    if (EqualNoCase(format, KM_TEXT("JPG"))) {
        pieces.Put(KM_TEXT("-f image2 -vcodec mjpeg "));
    } else if (EqualNoCase(format, KM_TEXT("GIF"))) {
        pieces.Put(KM_TEXT("-pix_fmt rgb24 -f gif "));
    } else {
        pieces.Put(KM_TEXT("-f image2 -vcodec ")).PutLower(format).Put(KM_TEXT(' '));
    }
}

// `value` ends where a null-terminated text does, or in front of trailing spaces, which end a number too.
void PutValue(Pieces& pieces, const Option& option, kmStringView value) {
    const int traits = option.traits;
    if ((traits & TRAIT_PICTURE_QUALITY) != 0) {
        pieces.Put(IntegerText(WrapAdd(WrapMultiply(ReadInteger(value.data(), 0), 60), 1)));
    } else if ((traits & TRAIT_CHANNELS) != 0 && value.front() == KM_TEXT('5')) {
        pieces.Put(KM_TEXT('6'));
    } else if ((option.flags & ARG_LOWER_TEXT) != 0) {
        pieces.PutLower(value);
    } else {
        pieces.Put(value);
        if ((traits & TRAIT_KILOBITS) != 0 && FoldLower(value.back()) != KM_TEXT('k'))
            pieces.Put(KM_TEXT('K'));
    }
}

void PutValuedOption(Pieces& pieces, const Option& option, kmStringView value) {
    if (IsDefault(option, value)) return;
    if ((option.traits & TRAIT_PICTURE_FORMAT) != 0) return PutPictureFormat(pieces, value);
    pieces.Put(KM_TEXT('-')).Put(option.name).Put(KM_TEXT(' ')).Put(KM_TEXT('"'));
    PutValue(pieces, option, value);
    pieces.Put(KM_TEXT('"')).Put(KM_TEXT(' '));
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

kmString kmProfile::JoinOptions(bool withAudio) const {
    std::size_t length = 0;
    for (const kmProfileItem& item : m_items) length += item.m_value.size() + Pieces::kPerOption;
    kmString options(length, KM_TEXT(' '));
    Pieces pieces(options);
    kmStringView target;
    for (const kmProfileItem& item : m_items) {
        const kmStringView value = TrimView(item.m_value, KM_TEXT(' '));
        if (value.empty()) continue;
        const int index = FindOption(item.m_id);
        if (index < 0) continue;
        const Option& option = kOptions[static_cast<std::size_t>(index)];
        if ((option.flags & ARG_NOT_PASSED) != 0 || (!withAudio && (option.flags & ARG_AUDIO) != 0)) continue;
        if ((option.flags & ARG_SWITCH) != 0) {
            PutSwitch(pieces, option, value);
            continue;
        }
        if ((option.traits & TRAIT_HELD_BACK) != 0) continue;
        if ((option.traits & TRAIT_TARGET) != 0) target = value;
        if ((option.traits & TRAIT_SET_BY_TARGET) != 0 && IsDiscTarget(target)) continue;
        PutValuedOption(pieces, option, value);
    }
    options.resize(static_cast<std::size_t>(pieces.End() - options.data()));
    return options;
}

kmString kmProfile::GetAvcString(bool withAudio) {
    LimitMP3Bitrate();
    CorrectWMASampleRate();
    kmString options = JoinOptions(withAudio);
    options += KM_TEXT(' ');
    const PROFILE_TYPE type = GetType();
    if (type == PROFILE_TYPE_AUDIO) AppendClosing(options, KM_TEXT(" -vn "));
    if (type == PROFILE_TYPE_PICTURE) AppendClosing(options, KM_TEXT(" -an "));
    return options;
}

// SPDX-License-Identifier: MIT
#include "arguments/Sentences.h"

#include <iterator>

namespace {

struct FateWords {
    const char* name;
    kmStringView sentence;  // without its end
};

constexpr FateWords kFates[] = {
    {"written", KM_TEXT("Written as it is")},
    {"corrected", KM_TEXT("Written with another value")},
    {"translated", KM_TEXT("Translated")},
    {"default", KM_TEXT("Left out: the encoder does so by itself")},
    {"held-back", KM_TEXT("Held back: whoever starts the encoder applies it")},
    {"no-audio", KM_TEXT("Left out: audio is not wanted")},
    {"set-by-target", KM_TEXT("Left out: the disc target before it decides this")},
    {"switch-off", KM_TEXT("Left out: a switch that is neither \"true\" nor \"yes\"")},
    {"empty", KM_TEXT("Left out: it has no value")},
    {"no-option", KM_TEXT("Left out: encoders have no option of that name")},
    {"not-passed", KM_TEXT("Left out: it is for the application, not for encoders")},
    {"dropped", KM_TEXT("Dropped")},
    {"covered", KM_TEXT("Left out by itself: another setting says the same or uses it")},
};
static_assert(std::size(kFates) == ARGUMENT_COVERED + 1);

}  // namespace

const char* kmFateName(ARGUMENT_FATE fate) {
    const auto index = static_cast<std::size_t>(fate);
    return index < std::size(kFates) ? kFates[index].name : "?";
}

kmString DescribeFate(const kmArgument& setting, kmStringView correction, kmStringView why) {
    kmString sentence(kFates[static_cast<std::size_t>(setting.fate)].sentence);
    if (why.empty() && setting.fate == ARGUMENT_TRANSLATED) why = KM_TEXT("the encoder calls it so");
    if (!why.empty()) sentence.append(KM_TEXT(": ")).append(why);
    if (!correction.empty())
        sentence.append(KM_TEXT("; "))
            .append(setting.corrected)
            .append(KM_TEXT(" counts: "))
            .append(correction);
    return sentence + KM_TEXT('.');
}

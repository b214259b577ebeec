// SPDX-License-Identifier: MIT
#include "arguments/HeldBackValue.h"

#include "profile/OptionChoice.h"
#include "profile/ValueParsers.h"

namespace {

constexpr std::int64_t kMicroseconds = 1'000'000;

// No more digits than needed.
kmString SecondsText(std::int64_t microseconds) {
    std::string digits = std::to_string(microseconds / kMicroseconds);
    if (std::string rest = std::to_string(kMicroseconds + microseconds % kMicroseconds); rest != "1000000") {
        rest.front() = '.';
        digits += rest.substr(0, rest.find_last_not_of('0') + 1);
    }
    return {digits.begin(), digits.end()};
}

HeldBackValue ReadTime(const kmString& value) {
    const std::int64_t microseconds = ParseDuration(value.c_str());
    if (microseconds == 0) return {ARGUMENT_DEFAULT, {}, {}};
    if (microseconds < 0) return {ARGUMENT_DROPPED, {}, KM_TEXT("no input has negative times")};
    return {ARGUMENT_WRITTEN, SecondsText(microseconds), {}};
}

HeldBackValue ReadSize(const kmString& value) {
    FrameSize size{0, 0};
    if (ParseFrameSize(value.c_str(), size.width, size.height) != 0)
        return {ARGUMENT_DROPPED, {}, KM_TEXT("it is no frame size")};
    return {ARGUMENT_WRITTEN, IntegerText(size.width) + KM_TEXT('x') + IntegerText(size.height), {}};
}

}  // namespace

HeldBackValue ReadHeldBack(const Option& option, const kmString& value) {
    const kmStringView trimmed = TrimView(value, KM_TEXT(' '));
    if (IsDefault(option, trimmed)) return {ARGUMENT_DEFAULT, {}, {}};
    const auto is = [&option](kmStringView name) { return option.name == name; };
    if (is(KM_TEXT("ss")) || is(KM_TEXT("t")) || is(KM_TEXT("pt"))) return ReadTime(value);
    return is(KM_TEXT("s")) ? ReadSize(value) : HeldBackValue{ARGUMENT_WRITTEN, kmString(trimmed), {}};
}

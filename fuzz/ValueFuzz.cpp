// SPDX-License-Identifier: MIT
// The input is a value that a user typed, and a byte that chooses a separator. The library reads, checks,
// splits and joins it as the plain second implementation does.
#include "fuzz/Law.h"
#include "fuzz/PlainValues.h"
#include "kmProfileItem.h"
#include "profile/ValueParsers.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"

namespace {

// A byte is a unit; those beyond ASCII are units that other systems take for digits, spaces, letters or
// signs.
kmString TextOf(const std::string& bytes) {
    constexpr kmChar kOthers[] = {0x00A0, 0x00B2, 0x00C9, 0x00E9, 0x017F, 0x0085, 0x0663, 0x2003,
                                  0x200B, 0x212A, 0x2212, 0x3000, 0xD800, 0xFEFF, 0xFF11, 0xFF38};
    kmString text;
    for (const char byte : bytes) text += byte >= 0 ? static_cast<kmChar>(byte) : kOthers[byte & 15];
    return text.c_str();
}

void CheckNumbers(const kmString& text, const std::string& given) {
    for (const int base : {0, 10}) {
        const kmChar* end = nullptr;
        const std::int32_t value = ReadInteger(text.c_str(), base, &end);
        const plain::Integer expected = plain::ReadInteger(text, base);
        Require(value == expected.value && end == text.c_str() + expected.end, "integers are read", given);
    }
    const double decimal = ReadDecimal(text.c_str());
    Require(decimal == plain::ReadDecimal(text), "decimals are read", given);
    const kmString written = IntegerText(TruncateTo32(decimal));
    Require(ReadInteger(written.c_str(), 10) == TruncateTo32(decimal), "integers are written", given);
}

void CheckTimesAndSizes(const kmString& text, const std::string& given) {
    Require(ParseDuration(text.c_str()) == plain::ParseDuration(text), "durations are read", given);
    plain::Size size{-7, -7};
    const bool isSize = ParseFrameSize(text.c_str(), size.width, size.height) == 0;
    const plain::Size expected = plain::ReadFrameSize(text);
    const bool isExpected = expected.width >= 1 && expected.height >= 1;
    const std::string names = " ntsc pal qntsc qpal sntsc spal film ntsc-film sqcif qcif cif 4cif ";
    const bool isNamed = given.find(' ') == given.npos && names.find(' ' + given + ' ') != names.npos;
    if (isNamed) {
        Require(isSize, "sizes have names", given);
    } else {
        Require(isSize == isExpected && size.width == (isSize ? expected.width : -7) &&
                    size.height == (isSize ? expected.height : -7),
                "frame sizes are read", given);
    }
    int seconds[] = {-7, -7};
    Require(kmProfileItem::IsValidTime(text.c_str(), &seconds[0]) == plain::IsValidTime(text, seconds[1]) &&
                seconds[0] == seconds[1],
            "times are judged", given);
}

void CheckRules(const kmString& text, const std::string& given) {
    for (const std::string id : {"ss", "t", "s", "b", "ab", "r", "aspect", "ac", "pt", "pi", "vcodec"}) {
        kmString message = KM_TEXT("untouched");
        const kmString wideID(id.begin(), id.end());
        const bool isAccepted = kmProfileItem::Check(message, wideID.c_str(), text.c_str());
        Require(isAccepted == plain::IsAccepted(id, text), "values are checked", id + "=" + given);
        Require((message == KM_TEXT("untouched")) == isAccepted, "only refusals say why", id + "=" + given);
    }
}

void CheckTexts(const kmString& text, kmChar unit, const std::string& given) {
    const kmCTString source(text.c_str());
    std::vector<kmString> pieces;
    source.Split(pieces, unit);
    Require(pieces == plain::Split(text, unit), "texts are split", given);
    kmCTString changed;
    changed.Join(pieces, unit);
    std::vector<kmString> again;
    changed.Split(again, unit);
    Require(again == pieces, "texts are joined", given);
    changed = source;
    changed.Trim(unit);
    Require(changed == plain::Trim(text, unit), "texts are trimmed", given);
    changed = source;
    changed.MakeLower();
    Require(changed.IsEqualNoCase(text.c_str()), "lower case is no difference", given);
    Require(changed.find_first_of(KM_TEXT("ABCDEFGHIJKLMNOPQRSTUVWXYZ")) == kmString::npos,
            "all is lower case", given);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const kmChar unit = KM_TEXT(",:| ")[data[size - 1] % 4];
    const kmString text = TextOf({reinterpret_cast<const char*>(data), size - 1});
    const std::string given = kmUtf8FromText(text);
    CheckNumbers(text, given);
    CheckTimesAndSizes(text, given);
    CheckRules(text, given);
    CheckTexts(text, unit, given);
    return 0;
}

#include "xml/Scan.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

// Every scanner, from every place of texts of every length around the width of a register, in memory that
// ends with the promised padding. The units are those that a comparison with a wrong sign or width confuses.
TEST(Scan, FastFormsAnswerLikeThePortableOnes) {
    constexpr kmChar kUnits[] = {'a',    ';',    '<',    '=',    '>',    '?',    '/',   '&', '"',
                                 '\'',   ' ',    '\t',   '\n',   '\r',   0x01,   0x1F,  '!', 0x8000,
                                 0x800D, 0x7FFF, 0xFFFF, 0xFF3C, 0x3C00, 0x2000, 0x0100};
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        std::vector<kmChar> text(random() % 40 + kScanPadding);
        const kmChar* end = text.data() + text.size() - kScanPadding;
        for (kmChar* at = text.data(); at != end; ++at) {
            *at =
                random() % 8 < static_cast<unsigned>(round % 8) ? 'a' : kUnits[random() % std::size(kUnits)];
        }
        for (const kmChar* at = text.data(); at <= end; ++at) {
            ASSERT_EQ(scan::FindMarkup(at), portable::FindMarkup(at));
            ASSERT_EQ(scan::FindWordEnd(at), portable::FindWordEnd(at));
            for (const kmChar quote : {KM_TEXT('"'), KM_TEXT('\'')}) {
                ASSERT_EQ(scan::FindQuoteEnd(at, quote), portable::FindQuoteEnd(at, quote));
            }
        }
    }
}

// Attributes of every length around the window in which they are looked for, plain and spoilt in one place.
TEST(Scan, PlainAttributesAreFoundLikeThePortableFormFindsThem) {
    constexpr kmChar kSpoilers[] = {'<',    '&',    '"',    '\'',   '=', ' ', 0,
                                    0x8000, 0xFF22, 0x7F22, 0x0122, '>', '?'};
    for (std::size_t name = 0; name < 36; ++name) {
        for (std::size_t value = 0; value < 52; ++value) {
            kmString text = kmString(name, 'n') + KM_TEXT("=\"") + kmString(value, 'v') + KM_TEXT("\" ");
            const std::size_t size = text.size();
            text.append(kScanPadding, kmChar{0});
            ASSERT_EQ(scan::FindPlainAttribute(text.c_str()).valueEnd != nullptr, name > 0)
                << name << ' ' << value;
            for (std::size_t at = 0; at < size; ++at) {
                kmString spoilt = text;
                spoilt[at] = kSpoilers[(name + value + at) % std::size(kSpoilers)];
                const PlainAttribute found = scan::FindPlainAttribute(spoilt.c_str());
                const PlainAttribute expected = portable::FindPlainAttribute(spoilt.c_str());
                ASSERT_EQ(found.nameEnd, expected.nameEnd) << name << ' ' << value << ' ' << at;
                ASSERT_EQ(found.valueEnd, expected.valueEnd) << name << ' ' << value << ' ' << at;
            }
        }
    }
}

}  // namespace

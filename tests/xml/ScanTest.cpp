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

}  // namespace

#include "xml/Scan.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

// Every scanner, from every place of texts of every length around the width of a register, in memory that
// ends with the promised padding. The units are those that a comparison with a wrong sign or width confuses.
TEST(Scan, FastFormsAnswerLikeThePortableOnes) {
    constexpr kmStringView kUnits =
        KM_TEXT("a;<=>?/&\"' \t\n\r\x01\x1F!\x8000\x800D\x7FFF\xFFFF\xFF3C\x3C00\x2000\x0100");
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        std::vector<kmChar> text(random() % 40 + kScanPadding);
        const kmChar* end = text.data() + text.size() - kScanPadding;
        for (kmChar* at = text.data(); at != end; ++at)
            *at = kUnits[static_cast<int>(random() % 8) < round % 8 ? 0 : random() % kUnits.size()];
        for (const kmChar* at = text.data(); at <= end; ++at) {
            ASSERT_TRUE(scan::FindMarkup(at) == portable::FindMarkup(at));
            ASSERT_TRUE(scan::FindWordEnd(at) == portable::FindWordEnd(at));
            for (const kmChar quote : {KM_TEXT('"'), KM_TEXT('\'')})
                ASSERT_EQ(scan::FindQuoteEnd(at, quote), portable::FindQuoteEnd(at, quote));
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
            ASSERT_EQ(scan::FindPlainAttribute(text.c_str()).valueEnd != nullptr, name > 0) << name;
            for (std::size_t at = 0; at < size; ++at) {
                kmString spoilt = text;
                spoilt[at] = kSpoilers[(name + value + at) % std::size(kSpoilers)];
                const PlainAttribute found = scan::FindPlainAttribute(spoilt.c_str());
                const PlainAttribute expected = portable::FindPlainAttribute(spoilt.c_str());
                ASSERT_TRUE(found.nameEnd == expected.nameEnd && found.valueEnd == expected.valueEnd)
                    << name << ' ' << value << ' ' << at;
            }
        }
    }
}

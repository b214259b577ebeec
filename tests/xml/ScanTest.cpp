// SPDX-License-Identifier: MIT
#include "xml/Scan.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

std::string Shown(const kmChar* from, const kmChar* to) {
    return "given " + testing::PrintToString(kmString(from, to));
}

// Where the parts of an attribute end, counted from the start of its name.
std::string Ends(const PlainAttribute& found, const kmChar* name) {
    const auto offset = [name](const kmChar* end) {
        return end == nullptr ? "none" : std::to_string(end - name);
    };
    return "name " + offset(found.nameEnd) + ", value " + offset(found.valueEnd);
}

// Every scanner, from every place of texts of every length around the width of a register, in memory that
// ends with the promised padding. The units are those that a comparison with a wrong sign or width confuses.
TEST(XmlScan, FastFormsAnswerLikeThePortableOnes) {
    constexpr kmStringView kUnits =
        KM_TEXT("a;<=>?/&\"' \t\n\r\x01\x1F!\x8000\x800D\x7FFF\xFFFF\xFF3C\x3C00\x2000\x0100");
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        std::vector<kmChar> text(random() % 40 + kScanPadding);
        const kmChar* end = text.data() + text.size() - kScanPadding;
        for (kmChar* at = text.data(); at != end; ++at)
            *at = kUnits[static_cast<int>(random() % 8) < round % 8 ? 0 : random() % kUnits.size()];
        for (const kmChar* at = text.data(); at <= end; ++at) {
            ASSERT_EQ(scan::FindMarkup(at) - at, portable::FindMarkup(at) - at) << Shown(at, end);
            ASSERT_EQ(scan::FindWordEnd(at) - at, portable::FindWordEnd(at) - at) << Shown(at, end);
            for (const kmChar quote : {KM_TEXT('"'), KM_TEXT('\'')}) {
                ASSERT_EQ(scan::FindQuoteEnd(at, quote) - at, portable::FindQuoteEnd(at, quote) - at)
                    << Shown(at, end) << " and quote " << static_cast<char>(quote);
            }
        }
    }
}

// What is copied is what the portable form copies, and what stands in front of it stays.
TEST(XmlScan, TextsAreCopiedLikeThePortableFormCopiesThem) {
    constexpr kmStringView kUnits = KM_TEXT("aaaaaaa&<>\"'\x01!%#\x7FFF\x2600\x3C00\xFF26\x8022");
    using CopyPlain = const kmChar* (*)(const kmChar*, const kmChar*, kmChar*);
    std::mt19937 random(4);
    for (int round = 0; round < 20000; ++round) {
        kmString text(random() % 40 + kScanPadding, '<');
        const kmChar* end = text.data() + text.size() - kScanPadding;
        for (kmChar* at = text.data(); at != end; ++at)
            *at = kUnits[random() % (round % 2 == 0 ? 7 : kUnits.size())];
        const auto copied = [&](CopyPlain copy) {
            kmString to(1 + text.size(), '-');
            const auto count = static_cast<std::size_t>(copy(text.data(), end, to.data() + 1) - text.data());
            return to.substr(0, 1 + count);
        };
        ASSERT_EQ(copied(scan::CopyPlain), copied(portable::CopyPlain)) << Shown(text.data(), end);
        kmString whole(text.size(), '-');
        scan::Copy(text.data(), end, whole.data());
        ASSERT_EQ(kmStringView(whole.data(), text.size() - kScanPadding), kmStringView(text.data(), end));
    }
}

// Attributes of every length around the window in which they are looked for, plain and spoilt in one place.
TEST(XmlScan, PlainAttributesAreFoundLikeThePortableFormFindsThem) {
    constexpr kmChar kSpoilers[] = {'<',    '&',    '"',    '\'',   '=', ' ', 0,
                                    0x8000, 0xFF22, 0x7F22, 0x0122, '>', '?'};
    for (std::size_t name = 0; name < 36; ++name) {
        for (std::size_t value = 0; value < 52; ++value) {
            const kmString plain =
                kmString(name, 'n') + KM_TEXT("=\"") + kmString(value, 'v') + KM_TEXT("\" ");
            const kmString text = plain + kmString(kScanPadding, kmChar{0});
            const PlainAttribute whole = scan::FindPlainAttribute(text.c_str());
            ASSERT_EQ(whole.valueEnd != nullptr, name > 0) << Ends(whole, text.c_str());
            for (std::size_t at = 0; at < plain.size(); ++at) {
                kmString spoilt = text;
                spoilt[at] = kSpoilers[(name + value + at) % std::size(kSpoilers)];
                const kmChar* start = spoilt.c_str();
                ASSERT_EQ(Ends(scan::FindPlainAttribute(start), start),
                          Ends(portable::FindPlainAttribute(start), start))
                    << Shown(start, start + plain.size());
            }
        }
    }
}

}  // namespace

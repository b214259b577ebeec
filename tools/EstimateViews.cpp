// SPDX-License-Identifier: MIT
#include "EstimateViews.h"

#include <cstdio>
#include <iterator>
#include <string>
#include <vector>

#include "Console.h"
#include "Json.h"
#include "Sizes.h"
#include "Table.h"

namespace {

struct NamedStream {
    const char* name;
    kmStreamSize kmSizeEstimate::*size;
};
constexpr NamedStream kStreams[] = {{"video", &kmSizeEstimate::video},
                                    {"audio", &kmSizeEstimate::audio},
                                    {"pictures", &kmSizeEstimate::pictures}};

// In the order of their enumerations.
constexpr const char* kOrigins[] = {"",          "profile", "middle candidate",
                                    "the input", "default", "fixed by the format"};
constexpr const char* kCertainties[] = {"absent", "exact", "bounded", "rough", "unknown"};
static_assert(std::size(kOrigins) == BITRATE_ORIGIN_FORMAT + 1);
static_assert(std::size(kCertainties) == SIZE_CERTAINTY_UNKNOWN + 1);

// The total, and the streams that it lacks.
std::string TotalText(const kmSizeEstimate& estimate) {
    std::string unknown;
    bool knowsAny = false;
    for (const NamedStream& stream : kStreams) {
        const SIZE_CERTAINTY certainty = (estimate.*stream.size).certainty;
        if (certainty == SIZE_CERTAINTY_UNKNOWN) {
            unknown += (unknown.empty() ? "" : ", ") + std::string(stream.name);
        } else {
            knowsAny = knowsAny || certainty != SIZE_CERTAINTY_ABSENT;
        }
    }
    if (unknown.empty()) return SizeText(estimate.total);
    return knowsAny ? "at least " + SizeText(estimate.total) + ", without " + unknown : "unknown";
}

std::string BitrateText(double bitrate) {
    if (bitrate == 0) return {};
    char text[32];
    std::snprintf(text, sizeof text, "%.12g kbit/s", bitrate);
    return text;
}

std::string BitrateOrNone(std::int32_t bitrate) { return bitrate == 0 ? "none" : BitrateText(bitrate); }

}  // namespace

void PrintEstimate(const kmSizeEstimate& estimate) { Print(TotalText(estimate) + '\n'); }

void PrintBreakdown(const kmSizeEstimate& estimate) {
    std::vector<TableRow> rows;
    for (const NamedStream& stream : kStreams) {
        const kmStreamSize& size = estimate.*stream.size;
        if (size.certainty == SIZE_CERTAINTY_ABSENT) continue;
        const bool isKnown = size.certainty != SIZE_CERTAINTY_UNKNOWN;
        rows.push_back({{stream.name, isKnown ? SizeText(size.bytes) : "", BitrateText(size.bitrate),
                         kOrigins[size.origin], kCertainties[size.certainty]}});
    }
    rows.push_back({{"total", TotalText(estimate), "", "", ""}});
    PrintTable(rows, 0, {{"Stream", "Size", "Bit rate", "From", "Certainty"}});
}

void PrintFit(const kmVideoBitrateFit& fit) {
    PrintTable({{{"candidate", BitrateOrNone(fit.candidate)}},
                {{"any", BitrateOrNone(fit.highest)}},
                {{"certainty", kCertainties[fit.certainty]}}},
               0);
}

void PrintEstimateAsJson(const kmSizeEstimate& estimate) {
    Json json = {{"totalBytes", estimate.total}, {"streams", Json::array()}};
    for (const NamedStream& stream : kStreams) {
        const kmStreamSize& size = estimate.*stream.size;
        json["streams"].push_back({{"stream", stream.name},
                                   {"bytes", size.bytes},
                                   {"kbitPerSecond", size.bitrate},
                                   {"origin", kOrigins[size.origin]},
                                   {"certainty", kCertainties[size.certainty]}});
    }
    PrintJson(json);
}

void PrintFitAsJson(const kmVideoBitrateFit& fit) {
    PrintJson({{"candidateKbitPerSecond", fit.candidate},
               {"highestKbitPerSecond", fit.highest},
               {"certainty", kCertainties[fit.certainty]}});
}

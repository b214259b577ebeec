// SPDX-License-Identifier: MIT
// What the bar shows for what the encoder says.
#include <gtest/gtest.h>

#include "tools/conversion/EncoderLog.h"
#include "tools/conversion/Lines.h"
#include "tools/conversion/ProgressBar.h"

namespace {

constexpr std::int64_t kSecond = 1'000'000;

const struct {
    const char* fault;
    std::string report;
    Expectation expectation;
    std::string line;
} kReports[] = {
    {"estimate_not_shown_at_first",
     "out_time_us=0\ntotal_size=44\nspeed=N/A\n",
     {20 * kSecond, 3 << 20},
     "  0 % [                        ]  about 3.0 MiB"},
    {"size_not_told_from_what_came",
     "out_time_us=5000000\ntotal_size=1048576\nspeed=   3x\n",
     {20 * kSecond, 1},
     " 25 % [######                  ]  3x  about 4.0 MiB"},
    {"older_name_of_the_time_missed",
     "out_time_ms=10000000\nspeed=1x\n",
     {20 * kSecond, 0},
     " 50 % [############            ]  1x"},
    {"more_than_everything",
     "out_time_us=20500000\ntotal_size=2048\nspeed=1x\n",
     {20 * kSecond, 0},
     "100 % [########################]  1x  2.0 KiB"},
    {"unknown_duration_divided_by",
     "out_time_us=3725000000\ntotal_size=2048\nspeed=1x\n",
     {},
     "1:02:05  1x  2.0 KiB"},
};

TEST(Progress, ReportBecomesALine) {
    for (const auto& row : kReports) {
        for (const std::size_t piece : {1, 1000}) {
            Lines lines;
            Progress progress;
            std::string shown;
            const std::string report = row.report + "progress=continue\n";
            for (std::size_t i = 0; i < report.size(); i += piece)
                lines.Add(std::string_view(report).substr(i, piece), [&](std::string_view line) {
                    if (ReadProgressLine(line, progress)) shown += ProgressLine(progress, row.expectation);
                });
            EXPECT_EQ(shown, row.line) << row.fault << ", in pieces of " << piece;
        }
    }
}

TEST(Progress, DurationIsTheInputsOwn) {
    EncoderLog log;
    for (const char* line :
         {"[info] Input #0, avi, from 'file:x':", "[info]     title           : Duration: 99:00:00.00",
          "[info]   Duration: N/A, start: 0.0", "[info]   Duration: 01:02:03.50, start: 0.000000",
          "[info]   Duration: 09:00:00.00, start: 0.000000"})
        log.Add(line);
    EXPECT_EQ(log.InputDuration(), 3723 * kSecond + kSecond / 2);
}

}  // namespace

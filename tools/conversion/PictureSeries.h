// SPDX-License-Identifier: MIT
// An output of many pictures, numbered by the encoder.
#pragma once

#include <cstddef>
#include <optional>
#include <set>

#include "conversion/ConversionOutput.h"

// A file's name with one number in it: "picture%03d.jpg".
struct PicturePattern {
    std::string before;
    std::string after;
    std::size_t width = 1;  // the least number of digits
};

// Empty for a name without a number, and for one that the encoder would not take.
std::optional<PicturePattern> ReadPattern(const std::string& name);

// Whether the pattern gives that name with some number.
bool Matches(const PicturePattern& pattern, const std::string& name);

// The encoder writes such files itself. Which ones is known only afterwards, so that none of them may be
// there unless they may be replaced, and those that were there are never removed.
class PictureSeries : public ConversionOutput {
public:
    PictureSeries(const OutputRequest& request, const PicturePattern& pattern);
    ~PictureSeries() override;

    std::string EncoderPath() const override;
    void Finish() override;
    std::string KeepHalf() override;

private:
    using Files = std::set<std::filesystem::path>;
    Files FindFiles() const;

    std::filesystem::path m_path;
    PicturePattern m_pattern;
    Files m_earlier;
    bool m_isSettled = false;
};

// SPDX-License-Identifier: MIT
// An output of one file.
#pragma once

#include "conversion/ConversionOutput.h"

// The file is written under a temporary name beside the output, whose name it gets in one step at the end:
// what carries it is always whole.
class SingleOutput : public ConversionOutput {
public:
    explicit SingleOutput(const OutputRequest& request);
    ~SingleOutput() override;

    std::string EncoderPath() const override;
    void Finish() override;
    std::string KeepHalf() override;

private:
    std::filesystem::path m_path;
    std::filesystem::path m_temporary;  // empty when nothing of that name is ours to remove
    bool m_mayReplace;
};

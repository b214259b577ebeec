// SPDX-License-Identifier: MIT
// Where a conversion's output goes, and what becomes of it.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

// What is not finished is removed with the object, unless it is kept. All throw Failures.
class ConversionOutput {
public:
    ConversionOutput() = default;
    ConversionOutput(const ConversionOutput&) = delete;
    ConversionOutput& operator=(const ConversionOutput&) = delete;
    virtual ~ConversionOutput() = default;

    // What the encoder has to write, UTF-8.
    virtual std::string EncoderPath() const = 0;

    // The encoder has done its work.
    virtual void Finish() = 0;

    // Leaves what is half written where it is. What and where that is, in words; empty when there is nothing.
    virtual std::string KeepHalf() = 0;
};

struct OutputRequest {
    std::filesystem::path path;
    std::filesystem::path input;  // never to be written
    bool mayReplace = false;
    bool isPictures = false;  // a "%03d" in the file's name stands for the numbers of pictures
};

std::unique_ptr<ConversionOutput> OpenOutput(const OutputRequest& request);

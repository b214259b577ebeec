// SPDX-License-Identifier: MIT
// The ways of reading a folder of profiles that are measured against each other.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "bench/Folder.h"

// What a reader saw. Readers of whole documents touch every attribute, and so agree in every field; the
// others count files alone.
struct Counts {
    std::uint64_t files = 0;
    std::uint64_t elements = 0;
    std::uint64_t attributes = 0;
    std::uint64_t checksum = 0;  // of the first character of every attribute's name and value

    bool operator==(const Counts&) const = default;

    void AddAttribute(std::uint64_t nameStart, std::uint64_t valueStart) {
        ++attributes;
        checksum += nameStart * 31 + valueStart;
    }
};

struct Reader {
    std::string key;    // on the command line
    std::string title;  // in the table
    bool seesDocuments;
    std::function<Counts(const ProfileFolder&)> read;
};

// The keys that the targets speak of.
inline constexpr const char* kFloor = "floor";
inline constexpr const char* kPugixml = "pugixml";
inline constexpr const char* kPugixmlSimd = "pugixml-simd";
inline constexpr const char* kDocuments = "documents";
inline constexpr const char* kProfiles = "profiles";
inline constexpr const char* kCatalogue = "catalogue";

// This library's, and the others with the floor.
std::vector<Reader> OwnReaders();
std::vector<Reader> OtherReaders();

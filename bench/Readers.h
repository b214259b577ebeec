// SPDX-License-Identifier: MIT
// The ways of reading a folder of profiles that are measured against each other.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "bench/Folder.h"

// What a reader saw: of documents every element and attribute, of profiles every field of every setting, or
// files alone. Readers that see the same agree in every count.
enum class Sight { Files, Documents, Fields };

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
    Sight sees;
    std::function<Counts(const ProfileFolder&)> read;
};

// The keys that the targets speak of.
inline constexpr const char* kFloor = "floor";
inline constexpr const char* kPugixml = "pugixml";
inline constexpr const char* kPugixmlSimd = "pugixml-simd";
inline constexpr const char* kDocuments = "documents";
inline constexpr const char* kPugixmlFields = "pugixml-fields";
inline constexpr const char* kProfiles = "profiles";
inline constexpr const char* kProfileOptions = "profile-options";
inline constexpr const char* kProfileFields = "profile-fields";
inline constexpr const char* kCatalogue = "catalogue";

// The others with the floor, this library's of documents and folders, and both of single profiles.
std::vector<Reader> OtherReaders();
std::vector<Reader> OwnReaders();
std::vector<Reader> FieldReaders();

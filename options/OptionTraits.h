// SPDX-License-Identifier: MIT
// What is special about some options when they are written for the encoder.
#pragma once

#include <array>
#include <cstdint>

#include "options/OptionTable.h"
#include "text/Ascii.h"

enum OptionTrait : std::uint8_t {
    TRAIT_HELD_BACK = 1,      // the application passes it on in its own way
    TRAIT_SET_BY_TARGET = 2,  // a disc target decides it
    TRAIT_KILOBITS = 4,       // written with "K" after the number
    TRAIT_TARGET = 8,
    TRAIT_PICTURE_FORMAT = 16,
    TRAIT_PICTURE_QUALITY = 32,
    TRAIT_CHANNELS = 64,
};

struct NamedTraits {
    kmStringView name;
    int traits;
};

inline constexpr NamedTraits kNamedTraits[] = {
    {KM_TEXT("ss"), TRAIT_HELD_BACK},
    {KM_TEXT("t"), TRAIT_HELD_BACK},
    {KM_TEXT("pt"), TRAIT_HELD_BACK},
    {KM_TEXT("s"), TRAIT_HELD_BACK},
    {KM_TEXT("r"), TRAIT_HELD_BACK},
    {KM_TEXT("pi"), TRAIT_HELD_BACK},
    {KM_TEXT("zoom"), TRAIT_HELD_BACK},
    {KM_TEXT("b"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("ab"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("bt"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("maxrate"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("minrate"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("bufsize"), TRAIT_SET_BY_TARGET | TRAIT_KILOBITS},
    {KM_TEXT("vcodec"), TRAIT_SET_BY_TARGET},
    {KM_TEXT("acodec"), TRAIT_SET_BY_TARGET},
    {KM_TEXT("ar"), TRAIT_SET_BY_TARGET},
    {KM_TEXT("target"), TRAIT_TARGET},
    {KM_TEXT("pcodec"), TRAIT_PICTURE_FORMAT},
    {KM_TEXT("pq"), TRAIT_PICTURE_QUALITY},
    {KM_TEXT("ac"), TRAIT_CHANNELS},
};

// A row of the option table with its lengths measured, and its traits.
struct Option {
    kmStringView name;
    kmStringView defVal;  // of null: none
    std::uint32_t flags = 0;
    int traits = 0;
};

// A named trait whose option the table lacks would index beyond the array, which the compiler refuses.
constexpr auto BuildOptions() {
    std::array<Option, kOptionCount> options{};
    for (std::size_t row = 0; row < options.size(); ++row) {
        options[row].name = kOptionRows[row].name;
        if (kOptionRows[row].defVal != nullptr) options[row].defVal = kOptionRows[row].defVal;
        options[row].flags = kOptionRows[row].flags;
    }
    for (const NamedTraits& named : kNamedTraits) {
        std::size_t row = 0;
        while (options[row].name != named.name) ++row;
        options[row].traits = named.traits;
    }
    return options;
}

// In the order of the option table.
inline constexpr auto kOptions = BuildOptions();

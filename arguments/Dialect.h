// SPDX-License-Identifier: MIT
// What an encoder calls the options of profiles, as data.
//
// A pattern is a list of arguments separated by spaces, in which "{value}" stands for the value as it is
// written for the profiles' own encoder ("768K", "my clip"), "{typed}" for the value as the profile has it
// without spaces at both ends, and "{ID}" for the value of another setting of the profile, or its default,
// after its value has been translated too. The arguments of several settings after "-vf", or after "-af",
// become one, joined by ",". An option that encoders never get is written when it has a row here.
#pragma once

#include <span>

#include "kmArguments.h"
#include "text/Ascii.h"

// What becomes of an option. The first row of its name whose codec fits decides; without a row it is
// written as the profiles' own encoder takes it, switches without a value.
struct DialectOption {
    kmStringView name;     // as the option table spells it
    kmStringView codec;    // only with this video codec, by the dialect's own name; empty: with any
    kmStringView pattern;  // empty: dropped
    kmStringView why;      // the part of a sentence after "because": why it is another one, or dropped
};

// What the dialect calls a value of an option, which is compared without regard to letter case.
// The first row that fits decides; without one the value stays.
struct DialectValue {
    kmStringView name;
    kmStringView with;        // as the codec in DialectOption; of "vcodec" itself: only in this output format
    kmStringView value;       // as the profile has it, without spaces at both ends
    kmStringView translated;  // empty: the option is dropped; within the pattern of another one, nothing
    kmStringView why;
};

// The name of an output format, compared without regard to letter case; without a row the name stays.
struct DialectContainer {
    kmStringView format;
    kmStringView translated;
    kmStringView why;
};

// What a value of an option makes the encoder use without naming it as an argument.
struct DialectNeed {
    kmStringView name;
    kmStringView value;    // as the profile has it, without spaces at both ends
    kmStringView encoder;  // one of these is empty
    kmStringView muxer;
};

struct Dialect {
    std::span<const DialectOption> options;
    std::span<const DialectValue> values;
    std::span<const DialectContainer> containers;
    std::span<const DialectNeed> needs;
    std::span<const kmStringView> codecOptions;  // arguments that an encoder's name follows: "-vcodec"
};

extern const Dialect kFfmpegDialect;

const Dialect& DialectOf(KM_DIALECT dialect);

// The rows that decide about an option and about its value as the profile has it, or null. `codec` is the
// name of the video encoder.
const DialectOption* FindDialectOption(const Dialect& dialect, kmStringView name, kmStringView codec);
const DialectValue* FindDialectValue(const Dialect& dialect, kmStringView name, kmStringView with,
                                     kmStringView value);

// The row of the output format, or null.
const DialectContainer* FindDialectContainer(const Dialect& dialect, kmStringView format);

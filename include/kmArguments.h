// SPDX-License-Identifier: MIT
// A profile's options as separate arguments, ready to start an encoder with, and what became of each setting.
#pragma once

#include <cstdint>
#include <vector>

#include "kmExport.h"
#include "kmProfile.h"
#include "kmTypes.h"

// Which encoder the arguments are for. Applications may keep the numbers.
enum KM_DIALECT : std::int32_t {
    KM_DIALECT_OWN = 0,     // the one whose options profiles hold, as kmProfile::GetAvcString writes them
    KM_DIALECT_FFMPEG = 1,  // ffmpeg 5.1 and newer
};

// What became of a setting. Applications may keep the numbers.
enum ARGUMENT_FATE : std::int32_t {
    ARGUMENT_WRITTEN = 0,
    ARGUMENT_CORRECTED = 1,   // written with another value than the profile's, which the codec does not allow
    ARGUMENT_TRANSLATED = 2,  // written as what the dialect has for it
    ARGUMENT_DEFAULT = 3,     // left out: the encoder does so by itself
    ARGUMENT_HELD_BACK = 4,   // left out: whoever starts the encoder applies it (kmIsHeldBack)
    ARGUMENT_NO_AUDIO = 5,    // left out: audio is not wanted
    ARGUMENT_SET_BY_TARGET = 6,  // left out: the disc target before it decides this
    ARGUMENT_SWITCH_OFF = 7,     // left out: a switch with any value but "true" and "yes"
    ARGUMENT_EMPTY = 8,          // left out: no value
    ARGUMENT_NO_OPTION = 9,      // left out: encoders have no option of that name
    ARGUMENT_NOT_PASSED = 10,    // left out: an option for the application itself
    ARGUMENT_DROPPED = 11,       // left out: the dialect has nothing for it
    ARGUMENT_COVERED = 12,       // left out: part of what another setting writes, or replaced by it
};

// One setting of a profile.
struct kmArgument {
    kmString id;                            // the item's ID, as the profile spells it
    kmString value;                         // as the profile has it
    kmString corrected;                     // the value that counted instead of it; empty when none did
    ARGUMENT_FATE fate = ARGUMENT_WRITTEN;  // what became of it
    std::vector<kmString> arguments;        // what it put into the list; empty when it was left out
    kmString sentence;                      // why, in English
};

// What to build. Held back are start ("ss"), duration ("t", else "pt"), both then given in seconds, frame
// size ("s", as width x height), frame rate ("r"), picture interval ("pi") and zoom.
struct kmArgumentRequest {
    KM_DIALECT dialect = KM_DIALECT_OWN;  // the encoder that is to understand them
    bool withAudio = true;                // false: audio options are left out
    bool withHeldBack = false;   // what is held back too, as options, each at the place of its setting
    bool withContainer = false;  // at the end, the output format of the profile's header as "-f"
};

// A profile's arguments, and where each came from.
struct kmArgumentList {
    // All of them, one an element, without quotation marks: those of the settings (whose filters are joined
    // to one argument), `streams`, those of `format`.
    std::vector<kmString> arguments;
    std::vector<kmArgument> settings;  // one for each item of the profile, in its order
    kmArgument format;                 // the output format of the header, as a setting without an ID
    std::vector<kmString> streams;     // "-vn", "-an"; for KM_DIALECT_OWN only where no setting wrote it
};

// The arguments between an encoder's input and its output. For KM_DIALECT_OWN and nothing held back they are
// what splitting kmProfile::GetAvcString gives, except that values are as they are, whatever they hold, and
// that the profile does not change: its corrections of "ab" and "ar" are in the list alone.
KM_EXPORT kmArgumentList kmBuildArguments(const kmProfile& profile, const kmArgumentRequest& request);

// The fate's name, such as "at-default", for output that programs read; "?" for any other number. Constant.
KM_EXPORT const char* kmFateName(ARGUMENT_FATE fate);

// What the encoder on a machine can do, by the names that it uses itself.
struct kmEncoderAbilities {
    std::vector<kmString> encoders;  // values that its codec options take
    std::vector<kmString> muxers;    // output formats
};

// One thing that a profile asks for and the encoder cannot do.
struct kmMissingAbility {
    kmString option;    // the ID of the setting; empty for the output format of the profile's header
    kmString value;     // as the profile has it
    kmString needed;    // the encoder or output format that is missing, by the encoder's own name
    kmString sentence;  // the same in English
};

// What the encoder lacks for the profile, in the order of the arguments; empty: it can run. Nothing is ever
// replaced by something else that the encoder happens to have.
KM_EXPORT std::vector<kmMissingAbility> kmFindMissingAbilities(const kmProfile& profile, KM_DIALECT dialect,
                                                               const kmEncoderAbilities& abilities);

// SPDX-License-Identifier: MIT
#include "bench/MicroCases.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <stdexcept>

#include "bench/Allocations.h"
#include "bench/MicroData.h"
#include "bench/PerfectHash.h"
#include "kmArgOption.h"
#include "kmManager.h"
#include "kmProfileList.h"
#include "profile/ValueParsers.h"
#include "text/kmCTString.h"

namespace {

// Measures `call`, which does that many operations.
template <class Call>
void Measure(benchmark::State& state, Call call, std::size_t operations = 1) {
    call();  // whatever is set up once
    state.counters[kAllocations] = static_cast<double>(AllocationsOf(call));
    state.counters[kOperations] = static_cast<double>(operations);
    for (auto _ : state) call();
}

// Measures `call` for each of the texts in turn.
template <class Call>
void MeasureEach(benchmark::State& state, const std::vector<kmString>& texts, Call call) {
    const auto callEach = [&] {
        for (const kmString& text : texts) benchmark::DoNotOptimize(call(text.c_str()));
    };
    Measure(state, callEach, texts.size());
}

void MeasureArguments(benchmark::State& state) {
    kmProfile profile = TypicalProfile();
    Measure(state, [&profile] { benchmark::DoNotOptimize(profile.GetAvcString(/*withAudio=*/true)); });
}

void MeasureAppending(benchmark::State& state) {
    const std::vector<kmString> pieces = FinishedPieces(TypicalProfile().GetAvcString(/*withAudio=*/true));
    Measure(state, [&pieces] {
        kmString options;
        for (const kmString& piece : pieces) options += piece;
        benchmark::DoNotOptimize(options);
    });
}

void MeasureLookUp(benchmark::State& state) { MeasureEach(state, OptionNames(), kmArgOption::GetOptionID); }

void MeasurePerfectHash(benchmark::State& state) {
    const std::vector<kmString> names = OptionNames();
    const bool agrees = std::all_of(names.begin(), names.end(), [](const kmString& name) {
        return FindByPerfectHash(name.c_str()) == kmArgOption::GetOptionID(name.c_str());
    });
    if (!agrees) throw std::runtime_error("the perfect hash finds other options than the library");
    MeasureEach(state, names, FindByPerfectHash);
}

// The set-up takes longer than all repetitions, so it is done once.
const std::vector<kmProfile*>& SelectedProfiles() {
    static std::vector<kmProfile> profiles = SimpleProfiles(1000);
    static const std::vector<kmProfile*> selection = [] {
        std::vector<kmProfile*> pointers;
        for (kmProfile& profile : profiles) pointers.push_back(&profile);
        return pointers;
    }();
    return selection;
}

void MeasureSimpleItems(benchmark::State& state, std::size_t count) {
    const auto first = SelectedProfiles().begin();
    const std::vector<kmProfile*> selection(first, first + static_cast<std::ptrdiff_t>(count));
    Measure(state, [&selection] { benchmark::DoNotOptimize(kmProfileList::GetSimpleItems(selection)); });
}

void MeasureProfileInfo(benchmark::State& state, std::size_t count) {
    std::vector<kmString> ids = NumberedIDs(count);
    FillCatalogue(ids);
    std::shuffle(ids.begin(), ids.end(), std::mt19937(1));
    ids.resize(100);
    kmManager& manager = kmManager::GetInstance();
    MeasureEach(state, ids, [&manager](const kmChar* id) { return manager.GetProfileInfo(id); });
    FillCatalogue({});
}

void MeasureToInt(benchmark::State& state) {
    std::vector<kmCTString> texts{KM_TEXT("1500"), KM_TEXT(" 48000 Hz"), KM_TEXT("0x1F"), KM_TEXT("-1")};
    Measure(
        state,
        [&texts] {
            for (const kmCTString& text : texts) benchmark::DoNotOptimize(text.ToInt());
        },
        texts.size());
}

void MeasureSplit(benchmark::State& state) {
    const kmCTString text = KM_TEXT("Auto,1280x720,720x576,720x480,640x480,480x272,352x288,320x240");
    std::vector<kmString> pieces;
    Measure(state, [&] {
        text.Split(pieces, KM_TEXT(','));
        benchmark::DoNotOptimize(pieces);
    });
}

void MeasureParseDuration(benchmark::State& state) {
    MeasureEach(state, {KM_TEXT("01:23:45"), KM_TEXT("00:00:07.250"), KM_TEXT("5400"), KM_TEXT("Full")},
                ParseDuration);
}

void MeasureToText(benchmark::State& state) {
    const XMLNode document = TypicalDocument();
    Measure(state, [&document] { benchmark::DoNotOptimize(document.ToText(/*formatted=*/true)); });
}

// What saving does besides the disk's work: writes the text, reads it again, compares.
void MeasureReadingBack(benchmark::State& state) {
    const XMLNode document = TypicalDocument();
    Measure(state, [&document] {
        if (!document.ReadsBackTheSame()) throw std::runtime_error("a typical document does not read back");
    });
}

}  // namespace

void RegisterMicroCases() {
    const auto add = [](const char* name, auto measure) { benchmark::RegisterBenchmark(name, measure); };
    const auto simpleItems = [](std::size_t count) {
        return [count](benchmark::State& state) { MeasureSimpleItems(state, count); };
    };
    const auto profileInfo = [](std::size_t count) {
        return [count](benchmark::State& state) { MeasureProfileInfo(state, count); };
    };
    add(kArguments, MeasureArguments);
    add(kAppending, MeasureAppending);
    add(kLookUp, MeasureLookUp);
    add(kPerfectHash, MeasurePerfectHash);
    add("GetSimpleItems, 100 profiles", simpleItems(100));
    add("GetSimpleItems, 1,000 profiles", simpleItems(1000));
    add("GetProfileInfo among 2,000", profileInfo(2000));
    add("GetProfileInfo among 20,000", profileInfo(20000));
    add("kmCTString::ToInt", MeasureToInt);
    add("kmCTString::Split, 8 pieces", MeasureSplit);
    add("ParseDuration", MeasureParseDuration);
    add("XMLNode::ToText, 30 items", MeasureToText);
    add("XMLNode::ReadsBackTheSame", MeasureReadingBack);
}

// SPDX-License-Identifier: MIT
#include "conversion/Conversion.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "Failure.h"
#include "conversion/SystemPaths.h"
#include "conversion/ChildProcess.h"
#include "conversion/ConversionOutput.h"
#include "conversion/EncoderArguments.h"
#include "conversion/EncoderLog.h"
#include "conversion/Lines.h"
#include "conversion/ProgressBar.h"
#include "conversion/ProgressOutput.h"

namespace {

void RequireInput(const ConversionRequest& request) {
    std::error_code error;
    const auto status = std::filesystem::status(SystemPath(request.input), error);
    if (!std::filesystem::exists(status))
        throw Failure(request.input + ": " + (error ? error.message() : "no such file"));
    if (std::filesystem::is_directory(status)) throw Failure(request.input + ": is a folder");
}

// What the encoder says while it works.
class Listener {
public:
    Listener(const kmProfile& profile, bool withAudio) : m_profile(profile), m_withAudio(withAudio) {}

    void HearProgress(std::string_view bytes) {
        m_progressLines.Add(bytes, [this](std::string_view line) {
            if (ReadProgressLine(line, m_progress)) m_bar.Show(ProgressLine(m_progress, Expected()));
        });
    }

    void HearLog(std::string_view bytes) {
        m_logLines.Add(bytes, [this](std::string_view line) { m_log.Add(line); });
    }

    std::string LastWords() {
        m_logLines.Finish([this](std::string_view line) { m_log.Add(line); });
        return m_log.LastWords();
    }

private:
    Expectation Expected() const {
        const std::int64_t wanted = m_profile.GetDuration();
        std::int64_t duration = wanted;
        if (m_log.InputDuration() > 0) {
            duration = std::max<std::int64_t>(m_log.InputDuration() - m_profile.GetStartTime(), 0);
            if (wanted > 0) duration = std::min(duration, wanted);
        }
        if (duration <= 0) return {};
        return {duration, m_profile.CalcOutputFileSize(duration, m_withAudio, 0, 0)};
    }

    const kmProfile& m_profile;
    bool m_withAudio;
    Lines m_progressLines;
    Lines m_logLines;
    Progress m_progress;
    EncoderLog m_log;
    ProgressBar m_bar;
};

// Empty, with status 0, for an encoder that did its work.
struct Outcome {
    std::string fault;
    int status = kExitDone;
};

Outcome OutcomeOf(const ChildEnd& end, const std::string& encoder, const std::string& lastWords) {
    const std::string name = Utf8FromSystemPath(SystemPath(encoder).filename());
    const std::string reason = lastWords.empty() ? "" : ": " + lastWords;
    if (end.kind == ChildEnd::Kind::Interrupted) return {"stopped", 128 + end.code};
    if (end.kind == ChildEnd::Kind::Died)
        return {name + " was ended by " + CauseOfDeath(end) + reason, kExitFailure};
    if (end.code == 0) return {};
    return {name + " failed (status " + std::to_string(end.code) + ')' + reason, end.code};
}

Outcome RunEncoder(const kmProfile& profile, const ConversionRequest& request,
                   const std::vector<std::string>& arguments) {
    Listener listener(profile, request.withAudio);
    const ChildEnd end = RunChild(
        request.encoder, arguments, [&listener](std::string_view bytes) { listener.HearProgress(bytes); },
        [&listener](std::string_view bytes) { listener.HearLog(bytes); });
    return OutcomeOf(end, request.encoder, listener.LastWords());
}

}  // namespace

void Convert(const kmProfile& profile, const ConversionRequest& request) {
    RequireInput(request);
    const std::vector<std::string> settings = ProfileArguments(profile, request.withAudio);
    DeferInterrupts();
    const auto output = OpenOutput(
        {SystemPath(request.output), SystemPath(request.input), request.mayReplace, MakesPictures(settings)});
    const Outcome outcome =
        RunEncoder(profile, request, EncoderArguments(settings, request.input, output->EncoderPath()));
    if (outcome.status == kExitDone) return output->Finish();
    const std::string half = request.keepsHalf ? output->KeepHalf() : "";
    throw Failure(outcome.fault + (half.empty() ? "" : "; " + half), outcome.status);
}

// SPDX-License-Identifier: MIT
// What an encoder lacks for a profile.
#include <algorithm>

#include "arguments/Dialect.h"
#include "kmArguments.h"
#include "text/kmCTString.h"

namespace {

constexpr kmStringView kFormatOption = KM_TEXT("-f");
constexpr kmStringView kNoEncoder = KM_TEXT("copy");  // the stream stays as it is

class AbilityCheck {
public:
    AbilityCheck(const Dialect& dialect, const kmEncoderAbilities& abilities)
        : m_dialect(dialect), m_abilities(abilities) {}

    void CheckSetting(const kmArgument& setting) {
        if (setting.arguments.empty()) return;
        CheckArguments(setting.id, setting.value, setting.arguments);
        const kmStringView typed = TrimView(setting.value, KM_TEXT(' '));
        for (const DialectNeed& need : m_dialect.needs) {
            if (!EqualNoCase(need.name, setting.id) || !EqualNoCase(need.value, typed)) continue;
            if (!need.encoder.empty()) NeedEncoder(setting.id, setting.value, need.encoder);
            if (!need.muxer.empty()) NeedMuxer(setting.id, setting.value, need.muxer);
        }
    }

    void CheckArguments(const kmString& id, const kmString& value, const std::vector<kmString>& arguments) {
        for (std::size_t i = 0; i + 1 < arguments.size(); ++i) {
            if (arguments[i] == kFormatOption) NeedMuxer(id, value, arguments[i + 1]);
            if (std::find(m_dialect.codecOptions.begin(), m_dialect.codecOptions.end(), arguments[i]) !=
                m_dialect.codecOptions.end())
                NeedEncoder(id, value, arguments[i + 1]);
        }
    }

    std::vector<kmMissingAbility> missing;

private:
    void NeedEncoder(const kmString& id, const kmString& value, kmStringView name) {
        const std::vector<kmString>& there = m_abilities.encoders;
        if (name != kNoEncoder && std::find(there.begin(), there.end(), name) == there.end())
            Add(id, value, name, KM_TEXT("The encoder has no codec \""));
    }
    void NeedMuxer(const kmString& id, const kmString& value, kmStringView name) {
        // Encoders find formats in any letter case, but codecs by their exact name.
        const bool isThere = std::any_of(m_abilities.muxers.begin(), m_abilities.muxers.end(),
                                         [name](const kmString& muxer) { return EqualNoCase(muxer, name); });
        if (!isThere) Add(id, value, name, KM_TEXT("The encoder has no output format \""));
    }
    void Add(const kmString& id, const kmString& value, kmStringView name, const kmChar* words) {
        missing.push_back({id, value, kmString(name), words + kmString(name) + KM_TEXT("\".")});
    }

    const Dialect& m_dialect;
    const kmEncoderAbilities& m_abilities;
};

}  // namespace

std::vector<kmMissingAbility> kmFindMissingAbilities(const kmProfile& profile, KM_DIALECT dialect,
                                                     const kmEncoderAbilities& abilities) {
    kmArgumentRequest request;
    request.dialect = dialect;
    request.withContainer = true;
    const kmArgumentList list = kmBuildArguments(profile, request);
    AbilityCheck check(DialectOf(dialect), abilities);
    for (const kmArgument& setting : list.settings) check.CheckSetting(setting);
    check.CheckArguments({}, list.format.value, list.format.arguments);
    return std::move(check.missing);
}

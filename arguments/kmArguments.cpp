// SPDX-License-Identifier: MIT
// The argument list: the decisions of the option string, each then said in the encoder's dialect.
#include "kmArguments.h"

#include <algorithm>
#include <map>

#include "arguments/Dialect.h"
#include "arguments/HeldBackValue.h"
#include "arguments/Pattern.h"
#include "arguments/Sentences.h"
#include "profile/Correction.h"
#include "profile/OptionChoice.h"

namespace {

struct GrowingText {
    kmString text;
    GrowingText& Put(kmChar unit) {
        text += unit;
        return *this;
    }
    GrowingText& Put(kmStringView more) {
        text += more;
        return *this;
    }
    GrowingText& PutLower(kmStringView more) {
        std::transform(more.begin(), more.end(), std::back_inserter(text), FoldLower);
        return *this;
    }
};

ARGUMENT_FATE FateOf(OptionChoice choice) {
    switch (choice) {
        case OptionChoice::Empty:
            return ARGUMENT_EMPTY;
        case OptionChoice::NoOption:
            return ARGUMENT_NO_OPTION;
        case OptionChoice::NotPassed:
            return ARGUMENT_NOT_PASSED;
        case OptionChoice::NoAudio:
            return ARGUMENT_NO_AUDIO;
        case OptionChoice::SwitchOff:
            return ARGUMENT_SWITCH_OFF;
        case OptionChoice::HeldBack:
            return ARGUMENT_HELD_BACK;
        case OptionChoice::SetByTarget:
            return ARGUMENT_SET_BY_TARGET;
        case OptionChoice::Default:
            return ARGUMENT_DEFAULT;
        case OptionChoice::Switch:
        case OptionChoice::Value:
            break;
    }
    return ARGUMENT_WRITTEN;
}

class ListBuilder {
public:
    ListBuilder(const kmProfile& profile, const kmArgumentRequest& request)
        : m_profile(profile), m_request(request), m_dialect(DialectOf(request.dialect)) {}

    kmArgumentList Build() {
        TakeSettings();
        m_codec = ValueOfOther(KM_TEXT("vcodec"));
        m_hasDuration = m_profile.ItemExist(KM_TEXT("t"));
        OptionChooser chooser(m_request.withAudio);
        for (kmArgument& setting : m_list.settings)
            Decide(setting, chooser.Choose(setting.id, Counted(setting)));
        CoverUsedSettings();
        for (kmArgument& setting : m_list.settings) Explain(setting);
        WriteFormat();
        JoinArguments();
        Close();
        return std::move(m_list);
    }

private:
    static const kmString& Counted(const kmArgument& setting) {
        return setting.corrected.empty() ? setting.value : setting.corrected;
    }

    void TakeSettings() {
        for (const kmProfileItem& item : m_profile.GetProfileItems()) {
            kmArgument& setting = m_list.settings.emplace_back();
            setting.id = item.GetID();
            setting.value = item.GetValue();
        }
        m_why.resize(m_list.settings.size());
        const auto find = [this](kmStringView id) {
            return std::find_if(m_list.settings.begin(), m_list.settings.end(),
                                [id](const kmArgument& setting) { return setting.id == id; });
        };
        m_correction = FindCorrection([&, none = kmString()](const kmChar* id) -> const kmString& {
            const auto found = find(id);
            return found == m_list.settings.end() ? none : found->value;
        });
        if (m_correction.id == nullptr) return;
        const auto corrected = find(m_correction.id);
        if (corrected != m_list.settings.end()) corrected->corrected = m_correction.value;
    }

    kmString& WhyOf(const kmArgument& setting) {
        return m_why[static_cast<std::size_t>(&setting - m_list.settings.data())];
    }

    void Decide(kmArgument& setting, const ChosenOption& chosen) {
        setting.fate = FateOf(chosen.choice);
        const bool isWanted =
            m_request.withAudio || chosen.option == nullptr || (chosen.option->flags & ARG_AUDIO) == 0;
        if (setting.fate == ARGUMENT_WRITTEN) {
            GrowingText value;
            if (chosen.choice == OptionChoice::Value) PutOptionValue(value, *chosen.option, chosen.value);
            PutOption(m_string, chosen);
            Write(setting, chosen, value.text);
        } else if (setting.fate == ARGUMENT_HELD_BACK && m_request.withHeldBack) {
            WriteHeldBack(setting, chosen);
        } else if (setting.fate == ARGUMENT_NOT_PASSED && isWanted &&
                   FindDialectOption(m_dialect, chosen.option->name, m_codec) != nullptr) {
            Write(setting, chosen, kmString(chosen.value));  // this encoder does it itself
        }
    }

    void WriteHeldBack(kmArgument& setting, const ChosenOption& chosen) {
        if (chosen.option->name == KM_TEXT("pt") && m_hasDuration) {
            setting.fate = ARGUMENT_COVERED;
            return;
        }
        const HeldBackValue read = ReadHeldBack(*chosen.option, Counted(setting));
        setting.fate = read.fate;
        WhyOf(setting) = read.why;
        if (read.fate == ARGUMENT_WRITTEN) Write(setting, chosen, read.text);
    }

    void Write(kmArgument& setting, const ChosenOption& chosen, const kmString& ownValue) {
        const kmStringView name = chosen.option->name;
        const DialectOption* option = FindDialectOption(m_dialect, name, m_codec);
        const DialectValue* value = FindValue(name, chosen.value);
        const kmString translated = value == nullptr ? ownValue : kmString(value->translated);
        const bool isDropped = value != nullptr && translated.empty();
        const std::vector<kmString> own = OwnArguments(chosen, ownValue);
        if (isDropped || (option != nullptr && option->pattern.empty())) {
            setting.fate = ARGUMENT_DROPPED;
        } else if (option == nullptr) {
            setting.arguments = value == nullptr ? own : OwnArguments(chosen, translated);
        } else {
            setting.arguments = FillPattern(option->pattern, [&](kmStringView placeholder) {
                if (placeholder == KM_TEXT("value")) return translated;
                return placeholder == KM_TEXT("typed") ? kmString(chosen.value) : UseOther(placeholder);
            });
        }
        if (setting.fate != ARGUMENT_DROPPED)
            setting.fate = setting.arguments == own ? ARGUMENT_WRITTEN : ARGUMENT_TRANSLATED;
        if (setting.fate == ARGUMENT_WRITTEN && !setting.corrected.empty()) setting.fate = ARGUMENT_CORRECTED;
        WhyOf(setting) = JoinReasons(option, value, setting.fate);
    }

    // A dropped setting has one reason; a translated one may have two, which are one sentence.
    static kmString JoinReasons(const DialectOption* option, const DialectValue* value, ARGUMENT_FATE fate) {
        if (fate != ARGUMENT_DROPPED && fate != ARGUMENT_TRANSLATED) return {};
        kmString reasons(value == nullptr ? kmStringView() : value->why);
        if (option == nullptr || (fate == ARGUMENT_DROPPED && !reasons.empty())) return reasons;
        if (!reasons.empty()) reasons += KM_TEXT(", and ");
        return reasons.append(option->why);
    }

    static std::vector<kmString> OwnArguments(const ChosenOption& chosen, const kmString& value) {
        const Option& option = *chosen.option;
        if ((option.traits & TRAIT_PICTURE_FORMAT) != 0) {
            const PictureFormatOptions picture = OptionsOfPictureFormat(chosen.value);
            std::vector<kmString> arguments = FillPattern(picture.options, nullptr);
            GrowingText format;
            if (picture.valueFollows) arguments.push_back(format.PutLower(value).text);
            return arguments;
        }
        std::vector<kmString> arguments = {KM_TEXT('-') + kmString(option.name)};
        if (chosen.choice != OptionChoice::Switch) {
            arguments.push_back(value);
        } else if ((option.flags & ARG_SWITCH_ONE) != 0) {
            arguments.push_back(KM_TEXT("1"));
        }
        return arguments;
    }

    const DialectValue* FindValue(kmStringView name, kmStringView value) const {
        const bool isCodec = name == KM_TEXT("vcodec");
        return FindDialectValue(m_dialect, name, isCodec ? m_profile.GetFormat() : m_codec, value);
    }

    // The dialect's value of the first setting of that name, or of the option's default.
    kmString ValueOfOther(kmStringView name) const {
        kmStringView value;
        const auto found =
            std::find_if(m_list.settings.begin(), m_list.settings.end(),
                         [name](const kmArgument& setting) { return EqualNoCase(setting.id, name); });
        if (found != m_list.settings.end()) value = TrimView(Counted(*found), KM_TEXT(' '));
        if (const int index = FindOption(name); value.empty() && index >= 0)
            value = kOptions[static_cast<std::size_t>(index)].defVal;
        const DialectValue* row = FindValue(name, value);
        return kmString(row == nullptr ? value : row->translated);
    }

    // Looked for once, however many settings use it.
    const kmString& UseOther(kmStringView name) {
        const auto [used, isNew] = m_used.try_emplace(kmString(name));
        if (isNew) used->second = ValueOfOther(name);
        return used->second;
    }

    // What stands in another setting's arguments is not lost.
    void CoverUsedSettings() {
        for (kmArgument& setting : m_list.settings) {
            if (setting.fate != ARGUMENT_DROPPED && setting.fate != ARGUMENT_NOT_PASSED) continue;
            const int index = FindOption(setting.id);
            if (m_used.count(kmString(kOptions[static_cast<std::size_t>(index)].name)) == 0) continue;
            setting.fate = ARGUMENT_COVERED;
            WhyOf(setting) = {};
        }
    }

    void Explain(kmArgument& setting) {
        const kmStringView correction = setting.corrected.empty() ? kmStringView() : m_correction.why;
        setting.sentence = DescribeFate(setting, correction, WhyOf(setting));
    }

    void JoinArguments() {
        std::vector<kmString>& all = m_list.arguments;
        std::size_t lists[std::size(kFilterLists)] = {};  // where they are; 0: nowhere yet
        for (const kmArgument& setting : m_list.settings) {
            const std::vector<kmString>& added = setting.arguments;
            const auto filters =
                added.size() == 2 ? std::find(std::begin(kFilterLists), std::end(kFilterLists), added.front())
                                  : std::end(kFilterLists);
            std::size_t* list =
                filters == std::end(kFilterLists) ? nullptr : &lists[filters - std::begin(kFilterLists)];
            if (list != nullptr && *list != 0) {
                all[*list] += KM_TEXT(',') + added.back();
                continue;
            }
            all.insert(all.end(), added.begin(), added.end());
            if (list != nullptr) *list = all.size() - 1;
        }
    }

    void Close() {
        // Only the string is searched for it, quirks included; elsewhere saying it twice does no harm.
        m_string.Put(KM_TEXT(' '));
        const bool isOwn = m_request.dialect == KM_DIALECT_OWN;
        const kmStringView closing = TrimView(
            ClosingOption(isOwn ? m_string.text : kmStringView(), m_profile.GetType()), KM_TEXT(' '));
        if (!closing.empty()) m_list.streams.emplace_back(closing);
        // Left to itself another encoder takes what the input has.
        if (!isOwn && !m_request.withAudio) m_list.streams.emplace_back(KM_TEXT("-an"));
        m_list.arguments.insert(m_list.arguments.end(), m_list.streams.begin(), m_list.streams.end());
        const std::vector<kmString>& format = m_list.format.arguments;
        m_list.arguments.insert(m_list.arguments.end(), format.begin(), format.end());
    }

    void WriteFormat() {
        kmArgument& format = m_list.format;
        format.value = m_profile.GetFormat();
        format.fate = format.value.empty()       ? ARGUMENT_EMPTY
                      : HasPictureFormat()       ? ARGUMENT_COVERED
                      : !m_request.withContainer ? ARGUMENT_HELD_BACK
                                                 : ARGUMENT_WRITTEN;
        const DialectContainer* row = FindDialectContainer(m_dialect, format.value);
        if (format.fate == ARGUMENT_WRITTEN) {
            format.arguments = {KM_TEXT("-f"), row == nullptr ? format.value : kmString(row->translated)};
            if (row != nullptr) format.fate = ARGUMENT_TRANSLATED;
        }
        format.sentence = DescribeFate(format, {}, row == nullptr ? kmStringView() : row->why);
    }

    // Which names the output format itself.
    bool HasPictureFormat() const {
        return std::any_of(m_list.settings.begin(), m_list.settings.end(), [](const kmArgument& setting) {
            return !setting.arguments.empty() && EqualNoCase(setting.id, KM_TEXT("pcodec"));
        });
    }

    const kmProfile& m_profile;
    const kmArgumentRequest m_request;
    const Dialect& m_dialect;
    kmArgumentList m_list;
    std::vector<kmString> m_why;  // of each setting: why it was translated or dropped
    Correction m_correction;
    kmString m_codec;
    bool m_hasDuration = false;           // "t", which decides instead of "pt"
    std::map<kmString, kmString> m_used;  // options whose values stand in the arguments of others
    GrowingText m_string;                 // what the option string holds, which decides how it ends
};

}  // namespace

kmArgumentList kmBuildArguments(const kmProfile& profile, const kmArgumentRequest& request) {
    return ListBuilder(profile, request).Build();
}

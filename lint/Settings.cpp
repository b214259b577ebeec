// SPDX-License-Identifier: MIT
// Nothing here looks at two settings at a time: what one of them has to know of those before it is kept in
// ordered tables, so that the cost is in proportion to the file.
#include "lint/Settings.h"

#include <algorithm>
#include <utility>

#include "document/Format.h"
#include "kmArgOption.h"
#include "kmProfileItem.h"
#include "lint/Names.h"
#include "options/FindOption.h"
#include "profile/Correction.h"
#include "profile/OptionChoice.h"
#include "profile/ValueParsers.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"

namespace {

// The rows of kItemFields that are looked at here.
constexpr std::size_t RowOf(kmStringView name) {
    std::size_t row = 0;
    while (kItemFields[row].name != name) ++row;  // beyond the end the compiler refuses
    return row;
}
constexpr std::size_t kValue = RowOf(KM_TEXT("Value"));
constexpr std::size_t kAdvHas = RowOf(KM_TEXT("advHasCandidates"));
constexpr std::size_t kSimpleHas = RowOf(KM_TEXT("simpleHasCandidates"));

constexpr auto OptionNames() {
    std::array<kmStringView, kOptionCount> names;
    for (std::size_t i = 0; i < names.size(); ++i) names[i] = kOptions[i].name;
    return names;
}
constexpr auto kOptionNames = OptionNames();

bool IsOneOf(kmStringView text, std::initializer_list<kmStringView> words) {
    return std::any_of(words.begin(), words.end(),
                       [text](kmStringView word) { return EqualNoCase(text, word); });
}

// What a person writes who means that something is off.
bool IsOff(kmStringView text) {
    return IsOneOf(text, {KM_TEXT(""), KM_TEXT("no"), KM_TEXT("false"), KM_TEXT("0")});
}

// `text` ends where a number does: at a null unit, a quote or a space.
bool IsInteger(kmStringView text) {
    if (text.empty()) return false;
    const kmChar* end = nullptr;
    static_cast<void>(ReadInteger(text.data(), 0, &end));
    return end == text.data() + text.size();
}

bool WantsNumber(const Option& option) {
    return (option.flags & ARG_INTEGER) != 0 || (option.traits & TRAIT_KILOBITS) != 0 ||
           option.name == KM_TEXT("ar");
}

bool IsSuggested(const Option& option, kmStringView value) {
    if (option.defVal.data() != nullptr && EqualNoCase(option.defVal, value)) return true;
    const kmChar* const* suggested = kmArgOption::GetListVal(option.name.data());
    while (*suggested != nullptr && !EqualNoCase(*suggested, value)) ++suggested;
    return *suggested != nullptr;
}

// Profiles may hold abbreviations of frame sizes, which the editor does not let anybody type.
bool IsAbbreviatedSize(const Option& option, const kmString& value) {
    std::int32_t width = 0, height = 0;
    return option.name == KM_TEXT("s") && !IsDigit(value.front()) &&
           ParseFrameSize(value.c_str(), width, height) == 0;
}

std::size_t CountPieces(kmStringView list) {
    return static_cast<std::size_t>(std::count(list.begin(), list.end(), format::kListSeparator)) + 1;
}

bool HoldsPiece(kmStringView list, kmStringView piece) {
    for (std::size_t start = 0; start <= list.size();) {
        const std::size_t end = std::min(list.find(format::kListSeparator, start), list.size());
        if (TrimView(list.substr(start, end - start), KM_TEXT(' ')) == piece) return true;
        start = end + 1;
    }
    return false;
}

kmString LowerText(kmStringView text) {
    kmString lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), FoldLower);
    return lower;
}

}  // namespace

void SettingsLinter::Take(const XMLNode& element) {
    const Setting setting = Read(element);
    LintName(setting);
    LintFields(setting);
    LintView(setting, kAdvHas);
    LintView(setting, kSimpleHas);
    if (setting.option == nullptr) return;
    LintValue(setting);
    LintOrder(setting);
    Remember(setting);
}

SettingsLinter::Setting SettingsLinter::Read(const XMLNode& element) const {
    Setting setting;
    if (element.GetName() != nullptr) setting.id = element.GetName();
    setting.place = m_file.PlaceOf(element);
    const int index = FindOption(setting.id);
    if (index >= 0) setting.option = &kOptions[static_cast<std::size_t>(index)];
    for (int i = 0; i < element.CountAttributes(); ++i) {
        std::size_t row = 0;
        while (row < setting.fields.size() && !EqualNoCase(kItemFields[row].name, element.AttributeNameAt(i)))
            ++row;
        if (row < setting.fields.size() && setting.fields[row].data() == nullptr)
            setting.fields[row] = element.AttributeValueAt(i);
    }
    setting.value = setting.fields[kValue];
    if (setting.value.data() == nullptr && setting.option != nullptr) setting.value = setting.option->defVal;
    setting.value = TrimView(setting.value, KM_TEXT(' '));
    return setting;
}

TextPlace SettingsLinter::PlaceOfField(const Setting& setting, std::size_t field) const {
    const kmStringView text = setting.fields[field];
    return text.data() == nullptr ? setting.place : m_file.PlaceOf(text);
}

void SettingsLinter::LintName(const Setting& setting) {
    if (setting.option == nullptr) {
        AddUnknownName(m_findings, LINT_UNKNOWN_OPTION, setting.place, setting.id, kOptionNames);
    } else if (setting.option->name != setting.id) {
        m_findings.Add(LINT_OPTION_LETTER_CASE, setting.place, setting.id, {}, setting.option->name);
    }
    const auto [first, isNew] = m_known.try_emplace(LowerText(setting.id), setting.place);
    if (isNew) return;
    m_findings.Add(LINT_DOUBLED_OPTION, setting.place, setting.id, {IntegerText(first->second.line)});
}

void SettingsLinter::LintFields(const Setting& setting) {
    for (std::size_t row = 0; row < setting.fields.size(); ++row) {
        const kmStringView text = setting.fields[row];
        const kmStringView name = kItemFields[row].name;
        if (text.data() == nullptr) continue;
        if (kItemFields[row].kind == ItemFieldKind::Number && !IsInteger(text))
            m_findings.Add(LINT_NOT_A_NUMBER, m_file.PlaceOf(text), name, {text});
        const bool isFlag = format::IsFlagSet(text) || IsOff(text);
        if (kItemFields[row].kind == ItemFieldKind::Flag && !isFlag)
            m_findings.Add(LINT_FLAG_VALUE, m_file.PlaceOf(text), name, {text});
    }
}

// The lists of a view stand after its flag: the texts shown, then the values.
void SettingsLinter::LintView(const Setting& setting, std::size_t hasCandidates) {
    const std::size_t display = hasCandidates + 1, values = hasCandidates + 2;
    const kmStringView shown = setting.fields[display], list = setting.fields[values];
    const bool hasBoth = shown.data() != nullptr && list.data() != nullptr;
    if (hasBoth && CountPieces(shown) != CountPieces(list)) {
        m_findings.Add(LINT_LIST_LENGTHS, PlaceOfField(setting, values), setting.id,
                       {kItemFields[values].name, kItemFields[display].name});
    }
    if (!format::IsFlagSet(setting.fields[hasCandidates])) return;
    if (list.data() == nullptr) {
        m_findings.Add(LINT_NO_CANDIDATES, PlaceOfField(setting, hasCandidates), setting.id,
                       {kItemFields[values].name});
        return;
    }
    const bool isShown = IsOneOf(setting.id, {KM_TEXT("pq")}) && HoldsPiece(shown, setting.value);
    // "Auto" stands for the middle of a list of bit rates.
    const bool isAuto = hasCandidates == kSimpleHas && EqualNoCase(setting.value, KM_TEXT("Auto")) &&
                        IsOneOf(setting.id, {KM_TEXT("b"), KM_TEXT("ab")});
    if (setting.value.empty() || isShown || isAuto || HoldsPiece(list, setting.value)) return;
    m_findings.Add(LINT_VALUE_NOT_OFFERED, PlaceOfField(setting, kValue), setting.id,
                   {setting.value, kItemFields[values].name});
}

void SettingsLinter::LintValue(const Setting& setting) {
    const Option& option = *setting.option;
    const TextPlace place = PlaceOfField(setting, kValue);
    const kmStringView written = setting.fields[kValue];
    if (written.data() != nullptr && written.empty() && !option.defVal.empty())
        m_findings.Add(LINT_EMPTY_VALUE, place, setting.id, {option.defVal});
    if (setting.value.empty()) return;
    if (setting.value.find_first_of(KM_TEXT("\"\r\n")) != kmStringView::npos)
        m_findings.Add(LINT_QUOTE_IN_VALUE, place, setting.id);
    if ((option.flags & ARG_SWITCH) != 0) {
        if (!format::IsFlagSet(setting.value) && !IsOff(setting.value))
            m_findings.Add(LINT_SWITCH_VALUE, place, setting.id, {setting.value});
        return;
    }
    if (!IsSuggested(option, setting.value)) LintTypedValue(setting, place);
}

void SettingsLinter::LintTypedValue(const Setting& setting, TextPlace place) {
    const Option& option = *setting.option;
    const kmString value(setting.value);
    kmString message;
    if (!kmProfileItem::Check(message, option.name.data(), value.c_str())) {
        if (!IsAbbreviatedSize(option, value))
            m_findings.Add(LINT_VALUE_REFUSED, place, setting.id, {value, message});
        return;
    }
    kmStringView number = setting.value;
    if ((option.traits & TRAIT_KILOBITS) != 0 && FoldLower(number.back()) == KM_TEXT('k'))
        number.remove_suffix(1);
    if (WantsNumber(option) && !IsInteger(number))
        m_findings.Add(LINT_NOT_A_NUMBER, place, setting.id, {value});
}

// Of the settings before the target those that it would have decided; of each name one, so that there are
// few.
void SettingsLinter::LintOrder(const Setting& setting) {
    const int traits = setting.option->traits;
    if (m_hasTarget || setting.value.empty()) return;
    if ((traits & TRAIT_TARGET) != 0 && IsDiscTarget(setting.value)) {
        m_hasTarget = true;
        for (const auto& [id, place] : m_beforeTarget) m_findings.Add(LINT_BEFORE_TARGET, place, id);
    }
    const bool isNew = std::none_of(m_beforeTarget.begin(), m_beforeTarget.end(), [&](const auto& before) {
        return EqualNoCase(before.first, setting.id);
    });
    if ((traits & TRAIT_SET_BY_TARGET) != 0 && isNew && !IsDefault(*setting.option, setting.value))
        m_beforeTarget.emplace_back(setting.id, setting.place);
}

void SettingsLinter::Remember(const Setting& setting) {
    const bool isNeeded =
        setting.id == KM_TEXT("acodec") || setting.id == KM_TEXT("ab") || setting.id == KM_TEXT("ar");
    if (!isNeeded) return;
    CodecSetting& kept = m_codecSettings[kmString(setting.id)];
    if (kept.exists) return;
    const kmStringView written = setting.fields[kValue];
    kept = {kmString(written.data() == nullptr ? setting.value : written), PlaceOfField(setting, kValue),
            true};
}

void SettingsLinter::Finish() {
    const Correction correction =
        FindCorrection([this](const kmChar* id) -> const kmString& { return m_codecSettings[id].value; });
    if (correction.id == nullptr || !m_codecSettings[correction.id].exists) return;
    m_findings.Add(LINT_CORRECTED_VALUE, m_codecSettings[correction.id].place, correction.id,
                   {correction.value, correction.why});
}

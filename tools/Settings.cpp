// SPDX-License-Identifier: MIT
#include "Settings.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "Console.h"
#include "Failure.h"
#include "Printable.h"
#include "Suggestion.h"
#include "kmText.h"

namespace {

std::string Before(const std::string& where, const std::string& text) {
    return where.empty() ? text : where + ": " + text;
}

std::string Shown(const Setting& setting) {
    return Printable(kmUtf8FromText(setting.name) + '=' + kmUtf8FromText(setting.value));
}

// The exact name counts first: items of names that differ in letter case alone are different ones.
const kmProfileItem* FindItem(const kmProfile& profile, const kmString& name) {
    if (const kmProfileItem* item = profile.GetProfileItem(name.c_str())) return item;
    for (const kmProfileItem& item : profile.GetProfileItems()) {
        if (kmSameName(item.GetID(), name)) return &item;
    }
    return nullptr;
}

std::string NearestItem(const kmProfile& profile, const kmString& name) {
    std::vector<std::string> known;
    for (const kmProfileItem& item : profile.GetProfileItems()) known.push_back(kmUtf8FromText(item.GetID()));
    return DidYouMean(kmUtf8FromText(name), known);
}

using Texts = std::vector<kmString>;

bool Contains(const Texts& values, const kmString& value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

// In one of the two views.
bool IsChoice(const kmProfileItem& item, const kmString& value) {
    return Contains(item.GetAdvCandidatesValue(), value) || Contains(item.GetSimpleCandidatesValue(), value);
}

// The value of the first choice that is shown as that text, in any letter case.
const kmString* FindShown(const Texts& texts, const Texts& values, const kmString& text) {
    for (std::size_t i = 0; i < texts.size() && i < values.size(); ++i) {
        if (kmSameName(texts[i], text)) return &values[i];
    }
    return nullptr;
}

// The text itself where no view shows it.
kmString ValueOfText(const kmProfileItem& item, const kmString& text) {
    const kmString* value = FindShown(item.GetAdvCandidatesDisplay(), item.GetAdvCandidatesValue(), text);
    if (value == nullptr)
        value = FindShown(item.GetSimpleCandidatesDisplay(), item.GetSimpleCandidatesValue(), text);
    return value == nullptr ? text : *value;
}

}  // namespace

Setting ReadSetting(const std::string& text, const std::string& where) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) throw UsageFailure(Before(where, Quoted(text) + " is not name=value"));
    return {kmTextFromUtf8(text.substr(0, equals)), kmTextFromUtf8(text.substr(equals + 1))};
}

Setting Interpret(const kmProfile& profile, const Setting& setting, const std::string& where) {
    const kmProfileItem* item = FindItem(profile, setting.name);
    if (item == nullptr) {
        throw Failure(Before(where, QuotedID(profile.GetID()) + " has no setting " +
                                        Quoted(kmUtf8FromText(setting.name)) +
                                        NearestItem(profile, setting.name)));
    }
    Setting meant = {item->GetID(), setting.value};
    if (!IsChoice(*item, meant.value)) meant.value = ValueOfText(*item, meant.value);
    kmString message;
    if (kmProfileItem::Check(message, meant.name.c_str(), meant.value.c_str())) return meant;
    throw Failure(Before(where, Shown(meant) + ": " + kmUtf8FromText(message)));
}

Setting ApplySetting(kmProfile& profile, const std::string& text, const std::string& where) {
    Setting setting = Interpret(profile, ReadSetting(text, where), where);
    profile.SetItemValue(setting.name.c_str(), setting.value.c_str());
    return setting;
}

void RequireOneLine(const Setting& setting) {
    if (setting.value.find_first_of(KM_TEXT("\r\n")) != kmString::npos)
        throw Failure(Shown(setting) + ": a saved value has no line break");
}

void PrintChange(const kmProfile& profile, const Setting& setting) {
    const kmString old = profile.GetItemValue(setting.name.c_str());
    if (old == setting.value) return;
    Print(QuotedID(profile.GetID()) + ": " + Printable(kmUtf8FromText(setting.name)) + " from " +
          Quoted(kmUtf8FromText(old)) + " to " + Quoted(kmUtf8FromText(setting.value)) + '\n');
}

void WarnAbout(const kmProfile& profile, const Setting& setting) {
    const kmProfileItem& item = *profile.GetProfileItem(setting.name.c_str());
    if (item.GetAdvHasCandidates() && !IsChoice(item, setting.value))
        PrintWarning(Shown(setting) + ": not among the choices of " + QuotedID(profile.GetID()));
    if (item.GetAdvReadOnly())
        PrintWarning(Shown(setting) + ": editors show this setting of " + QuotedID(profile.GetID()) +
                     " read-only");
}

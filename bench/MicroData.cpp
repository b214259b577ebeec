// SPDX-License-Identifier: MIT
#include "bench/MicroData.h"

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

#include "bench/Vocabulary.h"
#include "kmManager.h"
#include "options/OptionTable.h"
#include "text/Encoding.h"
#include "text/Numbers.h"

namespace {

constexpr std::size_t kTypicalItems = 30;

// The last, because the first is often "Auto".
std::string_view ValueOf(const VocabularyItem& item) {
    const std::string_view values = item.candidates.empty() ? item.values : item.candidates;
    return values.substr(values.rfind(',') + 1);
}

std::vector<const VocabularyItem*> TypicalItems() {
    const auto alwaysThere = std::count_if(std::begin(kVocabulary), std::end(kVocabulary),
                                           [](const VocabularyItem& item) { return item.isAlwaysThere; });
    std::size_t others = kTypicalItems - static_cast<std::size_t>(alwaysThere);
    std::vector<const VocabularyItem*> items;
    for (const VocabularyItem& item : kVocabulary) {
        if (item.isAlwaysThere || others > 0) items.push_back(&item);
        if (!item.isAlwaysThere && others > 0) --others;
    }
    return items;
}

void AppendAttribute(XMLNode& element, const kmChar* name, std::string_view value) {
    if (!value.empty()) element.AppendAttribute(name, TextFromBytes(value).c_str());
}

kmProfileItem SimpleItem(int index, std::size_t profile) {
    constexpr int kChoices = 20;
    kmProfileItem item;
    item.SetID(kmArgOption::GetOptionName(index));
    item.SetSimpleName(kmString(KM_TEXT("Setting ")) + IntegerText(index));
    item.SetSimpleHasCandidates(true);
    const int own = static_cast<int>(profile % 7);
    for (int i = 0; i < kChoices; ++i) {
        const int number = i == own ? 100 + own : i;
        item.GetSimpleCandidatesDisplay().push_back(IntegerText(number) + KM_TEXT(" kbit a second"));
        item.GetSimpleCandidatesValue().push_back(IntegerText(number));
    }
    item.SetValue(item.GetSimpleCandidatesValue().back());
    return item;
}

kmString OtherCase(kmString name) {
    for (kmChar& c : name) c = FoldUpper(c) == c ? FoldLower(c) : FoldUpper(c);
    return name;
}

}  // namespace

kmProfile TypicalProfile() {
    kmProfile profile;
    for (const VocabularyItem* typical : TypicalItems()) {
        kmProfileItem item;
        item.SetID(TextFromBytes(typical->id));
        item.SetValue(TextFromBytes(ValueOf(*typical)));
        profile.GetProfileItems().push_back(item);
    }
    return profile;
}

XMLNode TypicalDocument() {
    XMLNode root = XMLNode::CreateRoot(KM_TEXT("Profiles"), /*isDeclaration=*/false);
    XMLNode parameter = root.AppendChild(KM_TEXT("Parameter"), /*isDeclaration=*/false);
    for (const VocabularyItem* item : TypicalItems()) {
        XMLNode element = parameter.AppendChild(TextFromBytes(item->id).c_str(), /*isDeclaration=*/false);
        AppendAttribute(element, KM_TEXT("Value"), ValueOf(*item));
        AppendAttribute(element, KM_TEXT("advName"), item->advName);
        AppendAttribute(element, KM_TEXT("advGroup"), item->advGroup);
        AppendAttribute(element, KM_TEXT("advCandidatesDisplay"), item->display);
        AppendAttribute(element, KM_TEXT("advCandidatesValue"), item->candidates);
        AppendAttribute(element, KM_TEXT("simpleName"), item->simpleName);
        AppendAttribute(element, KM_TEXT("simpleCandidatesDiaplay"), item->simpleDisplay);
        AppendAttribute(element, KM_TEXT("simpleCandidatesValue"), item->simpleCandidates);
    }
    return root;
}

std::vector<kmString> FinishedPieces(const kmString& options) {
    std::vector<kmString> pieces;
    for (std::size_t at = 0; at < options.size();) {
        const std::size_t end = std::min(options.find(KM_TEXT(" -"), at), options.size() - 1) + 1;
        pieces.push_back(options.substr(at, end - at));
        at = end;
    }
    return pieces;
}

std::vector<kmProfile> SimpleProfiles(std::size_t count) {
    constexpr int kItems = 40;
    std::vector<kmProfile> profiles(count);
    for (std::size_t i = 0; i < count; ++i) {
        for (int item = 0; item < kItems; ++item) {
            profiles[i].GetProfileItems().push_back(SimpleItem(item, i));
        }
    }
    return profiles;
}

std::vector<kmString> OptionNames() {
    std::vector<kmString> names{KM_TEXT("vcodecs"), KM_TEXT("bitrate"), KM_TEXT("x"), KM_TEXT("preset"),
                                KM_TEXT("a_name_that_is_longer_than_any")};
    for (int index = 0; index < kOptionCount; ++index) {
        const kmString name = kmArgOption::GetOptionName(index);
        names.push_back(name);
        names.push_back(OtherCase(name));
    }
    std::shuffle(names.begin(), names.end(), std::mt19937(1));
    return names;
}

std::vector<kmString> NumberedIDs(std::size_t count) {
    std::vector<kmString> ids;
    for (std::size_t i = 0; i < count; ++i) {
        ids.push_back(kmString(KM_TEXT("iPod Video H264 640x480 ")) + IntegerText(static_cast<int>(i)));
    }
    return ids;
}

void FillCatalogue(const std::vector<kmString>& ids) {
    std::vector<kmProfileInfo>& records = kmManager::GetInstance().GetProfiles();
    records.clear();
    for (const kmString& id : ids) {
        records.emplace_back().SetID(id);
        records.back().SetName(id);
    }
}

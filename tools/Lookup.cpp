// SPDX-License-Identifier: MIT
#include "Lookup.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "Catalogue.h"
#include "Failure.h"
#include "Folders.h"
#include "Printable.h"
#include "Suggestion.h"
#include "kmFolders.h"
#include "kmProfileFile.h"
#include "kmProfileID.h"
#include "kmText.h"

namespace {

using IDs = std::vector<kmString>;

IDs WithID(const IDs& ids, const kmString& name) {
    IDs found;
    std::copy_if(ids.begin(), ids.end(), std::back_inserter(found),
                 [&name](const kmString& id) { return kmSameName(id, name); });
    return found;
}

IDs WithShownName(kmManager& catalogue, const kmString& name) {
    IDs found;
    for (const kmProfileInfo& info : catalogue.GetProfiles()) {
        const kmString id = info.GetID();
        const bool isNew = std::find(found.begin(), found.end(), id) == found.end();
        if (isNew && kmSameName(info.GetName(), name)) found.push_back(id);
    }
    return found;
}

std::string JoinIDs(const IDs& ids) {
    std::string text;
    for (const kmString& id : ids) text += (text.empty() ? "" : ", ") + QuotedID(id);
    return text;
}

std::string NearestTo(const std::string& name, const IDs& ids, kmManager& catalogue) {
    std::vector<std::string> known;
    for (const kmString& id : ids) known.push_back(kmUtf8FromPath(id));
    for (const kmProfileInfo& info : catalogue.GetProfiles()) known.push_back(kmUtf8FromText(info.GetName()));
    return DidYouMean(name, known);
}

// Whether there is a file that listings pass over: a hidden one, or one that is no file at all.
bool IsPassedOver(const kmString& folder, const kmString& id) {
    const auto isIn = [&id](const kmString& where) { return kmProfileFileExists(where, id); };
    return id.find_first_of(KM_TEXT("\\:")) == kmString::npos && !id.empty() &&
           (isIn(folder) || isIn(kmUserFolder(folder)));
}

}  // namespace

bool IsListed(const kmString& folder, const kmString& id) {
    IDs ids;
    return kmListProfileIDs(folder, ids) && std::find(ids.begin(), ids.end(), id) != ids.end();
}

kmString FindProfileID(const kmString& folder, const std::string& name) {
    const kmString id = kmPathFromUtf8(name);
    if (IsListed(folder, id)) return id;  // whatever the user's folder is like
    const IDs ids = ListIDs(folder);
    if (std::binary_search(ids.begin(), ids.end(), id)) return id;
    IDs found = WithID(ids, id);
    if (found.size() > 1) throw Failure(Quoted(name) + " could be any of " + JoinIDs(found));
    if (found.size() == 1) return found.front();
    if (IsPassedOver(folder, id)) return id;
    kmManager& catalogue = LoadCatalogue(folder);
    found = WithShownName(catalogue, kmTextFromUtf8(name));
    if (found.size() == 1) return found.front();
    if (found.size() > 1)
        throw Failure("several profiles are called " + Quoted(name) + "; give the ID: " + JoinIDs(found));
    throw Failure("no profile " + Quoted(name) + " in " + kmUtf8FromPath(folder) +
                  NearestTo(name, ids, catalogue));
}

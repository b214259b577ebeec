// SPDX-License-Identifier: MIT
// All profiles of the catalogue, by group. itemSelectionChanged tells of the user's choice alone.
#pragma once

#include <QTreeWidget>
#include <vector>

#include "kmGroup.h"

class ProfileTree : public QTreeWidget {
public:
    ProfileTree();

    // Shows the catalogue as it is now; groups stay open and profiles selected. Icons come from `folder`.
    void Fill(const QString& folder);

    std::vector<kmString> SelectedIDs() const;
    void Select(std::vector<kmString> ids);

private:
    void AddGroup(const kmGroup& group, const QString& folder, const QStringList& open);
};

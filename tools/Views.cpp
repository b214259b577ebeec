// SPDX-License-Identifier: MIT
#include "Views.h"

#include <algorithm>
#include <map>

#include "Console.h"
#include "Printable.h"
#include "kmText.h"

namespace {

struct Group {
    kmString name;
    std::vector<TableRow> rows;
};

// In the order of their first items.
std::vector<Group> GroupsOf(const std::vector<kmProfileItem>& items, const RowOfItem& rowOf) {
    std::vector<Group> groups;
    std::map<kmString, std::size_t> positions;
    for (const kmProfileItem& item : items) {
        const kmString name = item.GetAdvGroup();
        const auto [position, isNew] = positions.emplace(name, groups.size());
        if (isNew) groups.push_back({name, {}});
        groups[position->second].rows.push_back(rowOf(item));
    }
    return groups;
}

}  // namespace

void PrintSimpleView(std::vector<kmProfileItem> items, const RowOfItem& rowOf) {
    if (items.empty()) return;
    std::stable_sort(items.begin(), items.end(), [](const kmProfileItem& a, const kmProfileItem& b) {
        return a.GetSimplePriority() < b.GetSimplePriority();
    });
    std::vector<TableRow> rows;
    rows.reserve(items.size());
    for (const kmProfileItem& item : items) rows.push_back(rowOf(item));
    Print("\nSimple view\n");
    PrintTable(rows, kIndent, kSimpleHeadings);
}

void PrintAdvancedView(std::vector<kmProfileItem> items, const RowOfItem& rowOf) {
    std::stable_sort(items.begin(), items.end(), [](const kmProfileItem& a, const kmProfileItem& b) {
        return a.GetAdvPriority() < b.GetAdvPriority();
    });
    for (const Group& group : GroupsOf(items, rowOf)) {
        const std::string name =
            group.name.empty() ? "other settings" : Printable(kmUtf8FromText(group.name));
        Print("\nAdvanced view: " + name + '\n');
        PrintTable(group.rows, kIndent, kAdvancedHeadings);
    }
}

std::string TextAndValue(const std::string& shown, const std::string& value) {
    return shown.starts_with(value) ? shown : shown + " [" + value + ']';
}

#include "Views.h"

#include <algorithm>
#include <utility>

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
    for (const kmProfileItem& item : items) {
        const kmString name = item.GetAdvGroup();
        auto group = std::find_if(groups.begin(), groups.end(),
                                  [&](const Group& known) { return known.name == name; });
        if (group == groups.end()) group = groups.insert(groups.end(), {name, {}});
        group->rows.push_back(rowOf(item));
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
    PrintTable(rows, kIndent);
}

void PrintAdvancedView(std::vector<kmProfileItem> items, const RowOfItem& rowOf) {
    std::stable_sort(items.begin(), items.end(), [](const kmProfileItem& a, const kmProfileItem& b) {
        return a.GetAdvPriority() < b.GetAdvPriority();
    });
    for (const Group& group : GroupsOf(items, rowOf)) {
        const std::string name =
            group.name.empty() ? "other settings" : Printable(kmUtf8FromText(group.name));
        Print("\nAdvanced view: " + name + '\n');
        PrintTable(group.rows, kIndent);
    }
}

std::string TextAndValue(const std::string& shown, const std::string& value) {
    return shown.starts_with(value) ? shown : shown + " [" + value + ']';
}

// SPDX-License-Identifier: MIT
#include "ProfileTree.h"

#include <QBitmap>
#include <QDir>
#include <QPixmapCache>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTreeWidgetItemIterator>
#include <algorithm>

#include "Text.h"
#include "kmIconParser.h"
#include "kmManager.h"

namespace {

// Cut out of its image in the folder; empty where there is none.
QIcon IconOf(const QString& folder, const kmString& id, bool group) {
    const kmIconParser& parser = kmIconParser::GetInstance();
    const int index = parser.GetIconIndex(id.c_str(), group);
    if (index < 0) return {};
    std::int32_t width = 0, height = 0;
    kmString transparent;  // such as "RGB(255, 0, 255)"
    parser.GetIconInfo(width, height, transparent, group);
    const QString path = QDir(folder).filePath(ToQt(parser.GetImageFileName(id.c_str(), group)));
    QPixmap image;
    if (!QPixmapCache::find(path, &image) && image.load(path)) {
        const QStringList rgb = ToQt(transparent).split(QRegularExpression("\\D+"), Qt::SkipEmptyParts);
        const QColor color(rgb.value(0).toInt(), rgb.value(1).toInt(), rgb.value(2).toInt());
        image.setMask(image.createMaskFromColor(color));
        QPixmapCache::insert(path, image);
    }
    return QIcon(image.copy(index * width, 0, width, height));
}

}  // namespace

ProfileTree::ProfileTree() {
    setHeaderHidden(true);
    setIconSize({24, 24});
    setSelectionMode(ExtendedSelection);
    setAccessibleName("Profiles");
}

void ProfileTree::Fill(const QString& folder) {
    const QSignalBlocker blocker(this);
    const std::vector<kmString> selected = SelectedIDs();
    QStringList open = {"User Defined"};
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (topLevelItem(i)->isExpanded()) open.append(topLevelItem(i)->text(0));
    const int position = verticalScrollBar()->value();
    clear();
    kmManager& catalogue = kmManager::GetInstance();
    AddGroup(catalogue.GetUserGroup(), folder, open);
    for (const kmGroup& group : catalogue.GetSystemGroups()) AddGroup(group, folder, open);
    AddGroup(catalogue.GetRecentGroup(), folder, open);
    Select(selected);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(position);
}

void ProfileTree::AddGroup(const kmGroup& group, const QString& folder, const QStringList& open) {
    if (group.GetProfileIDs().empty()) return;
    auto* parent = new QTreeWidgetItem(this, {ToQt(group.GetName())});
    parent->setFlags(Qt::ItemIsEnabled);
    parent->setIcon(0, IconOf(folder, group.GetName(), /*group=*/true));
    for (const kmString& id : group.GetProfileIDs()) {
        const kmProfileInfo* info = kmManager::GetInstance().GetProfileInfo(id.c_str());
        if (info == nullptr) continue;
        auto* item = new QTreeWidgetItem(parent, {ToQt(info->GetName())});
        item->setData(0, Qt::UserRole, ToQt(id));
        item->setToolTip(0, ToQt(info->GetDesc()));
        item->setIcon(0, IconOf(folder, id, /*group=*/false));
    }
    parent->setExpanded(open.contains(parent->text(0)));
}

// A profile may be in several groups.
std::vector<kmString> ProfileTree::SelectedIDs() const {
    std::vector<kmString> ids;
    for (const QTreeWidgetItem* item : selectedItems()) {
        const kmString id = FromQt(item->data(0, Qt::UserRole).toString());
        if (std::ranges::count(ids, id) == 0) ids.push_back(id);
    }
    return ids;
}

void ProfileTree::Select(std::vector<kmString> ids) {
    const QSignalBlocker blocker(this);
    clearSelection();
    for (QTreeWidgetItemIterator at(this, QTreeWidgetItemIterator::Selectable); *at != nullptr; ++at) {
        if (std::erase(ids, FromQt((*at)->data(0, Qt::UserRole).toString())) == 0) continue;
        setCurrentItem(*at, 0, QItemSelectionModel::Select);
    }
}

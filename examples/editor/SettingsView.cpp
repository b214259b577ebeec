// SPDX-License-Identifier: MIT
#include "SettingsView.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QWheelEvent>

#include "Text.h"
#include "kmArgOption.h"

namespace {

// Scrolling the sheet must not change the settings that pass under the pointer.
class Choices : public QComboBox {
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

void Explain(QTreeWidgetItem* row, const QString& id, const QString& message) {
    const kmChar* help = kmArgOption::GetOptionComments(FromQt(id).c_str());
    row->setText(2, message.isEmpty() && help != nullptr ? ToQt(help) : message);
    row->setForeground(2, QColor(message.isEmpty() ? 0x80868b : 0xb3261e));
}

using Enter = std::function<void(const QString& value)>;

QWidget* MakeText(const Setting& setting, const QString& nothing, const Enter& enter) {
    auto* entry = new QLineEdit(setting.value);
    entry->setPlaceholderText(nothing);
    entry->setReadOnly(setting.isReadOnly);
    entry->setFrame(!setting.isReadOnly);
    QObject::connect(entry, &QLineEdit::textEdited, entry, enter);
    return entry;
}

QWidget* MakeChoices(const Setting& setting, const QString& nothing, const Enter& enter) {
    auto* entry = new Choices;
    for (const auto& [text, value] : setting.choices) entry->addItem(text, value);
    entry->setPlaceholderText(setting.value.isEmpty() ? nothing : setting.value);
    entry->setCurrentIndex(entry->findData(setting.value));
    if (setting.isTyped) {
        entry->setEditable(true);
        entry->setInsertPolicy(QComboBox::NoInsert);
        entry->setCompleter(nullptr);
        entry->lineEdit()->setPlaceholderText(nothing);
        if (entry->currentIndex() < 0) entry->setEditText(setting.value);
    }
    QObject::connect(entry, &QComboBox::currentTextChanged, entry, [entry, enter](const QString& text) {
        const int choice = entry->findText(text);
        enter(choice < 0 ? text : entry->itemData(choice).toString());
    });
    return entry;
}

void AddRow(QTreeWidgetItem* section, const Setting& setting, const QString& nothing) {
    auto* row = new QTreeWidgetItem(section, {setting.label});
    Explain(row, setting.id, {});
    const auto enter = [row, setting](const QString& value) {
        Explain(row, setting.id, setting.enter(value));
    };
    const bool isText = setting.isReadOnly || setting.choices.isEmpty();
    QWidget* entry = (isText ? MakeText : MakeChoices)(setting, nothing, enter);
    entry->setObjectName(setting.id);
    entry->setAccessibleName(setting.label);
    QTreeWidget* view = row->treeWidget();
    view->setItemWidget(row, 1, entry);
    const auto keepVisible = [=](QWidget*, QWidget* now) {
        if (entry == now) view->scrollToItem(row);
    };
    QObject::connect(qApp, &QApplication::focusChanged, entry, keepVisible);
}

}  // namespace

SettingsView::SettingsView() {
    setHeaderLabels({"Setting", "Value", "What it does"});
    setRootIsDecorated(false);
    setSelectionMode(NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setVerticalScrollMode(ScrollPerPixel);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    setColumnWidth(1, 190);
}

void SettingsView::Show(const QList<Setting>& settings, const QString& nothing) {
    clear();
    const QFont bold(font().family(), -1, QFont::Bold);
    QHash<QString, QTreeWidgetItem*> sections = {{QString(), invisibleRootItem()}};
    for (const Setting& setting : settings) {
        QTreeWidgetItem*& section = sections[setting.section];
        if (section == nullptr) section = new QTreeWidgetItem(this, {setting.section});
        if (!setting.section.isEmpty()) section->setFont(0, bold);
        AddRow(section, setting, nothing);
    }
    expandAll();
}

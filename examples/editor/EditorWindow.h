// SPDX-License-Identifier: MIT
// The window: what the user can do with profiles, and when.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QTabWidget>

#include "ProfileTree.h"
#include "Selection.h"
#include "SettingsView.h"

class EditorWindow : public QMainWindow {
public:
    explicit EditorWindow(const kmString& folder);

private:
    using Naming = PROFILE_EERROR (*)(kmProfile& profile, const kmString& name);

    void closeEvent(QCloseEvent* event) override;
    void Pick();
    void Open(const std::vector<kmString>& ids);
    void ShowSettings();
    void ShowState();
    void Save();
    void Name(Naming step);
    void Delete();
    void Reload();
    bool MayLeave();

    kmString m_folder;
    Selection m_selection;
    ProfileTree* m_tree = new ProfileTree;
    QLabel* m_heading = new QLabel;
    QTabWidget* m_views = new QTabWidget;
    SettingsView* m_simple = new SettingsView;
    SettingsView* m_advanced = new SettingsView;
    QAction *m_save, *m_saveAs, *m_rename, *m_delete;
};

// SPDX-License-Identifier: MIT
#include "EditorWindow.h"

#include <QCloseEvent>
#include <QInputDialog>
#include <QMessageBox>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "EncoderPane.h"
#include "Refusals.h"
#include "Text.h"
#include "kmLoadReport.h"
#include "kmManager.h"
#include "kmProfileFile.h"

EditorWindow::EditorWindow(const kmString& folder) : m_folder(folder) {
    m_views->addTab(m_simple, "Si&mple");
    m_views->addTab(m_advanced, "Ad&vanced");
    m_heading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* right = new QWidget;
    auto* column = new QVBoxLayout(right);
    column->addWidget(m_heading);
    column->addWidget(m_views, 1);
    column->addWidget(MakeEncoderPane(m_selection));
    auto* panes = new QSplitter;
    panes->addWidget(m_tree);
    panes->addWidget(right);
    panes->setSizes({280, 720});
    setCentralWidget(panes);
    resize(1000, 640);
    QToolBar* bar = addToolBar("Profile");
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [this, bar](const char* text, QStyle::StandardPixmap icon, const char* keys, auto step) {
        QAction* action = bar->addAction(style()->standardIcon(icon), text, this, step);
        action->setShortcut(QKeySequence(keys));
        return action;
    };
    const Naming rename = [](kmProfile& profile, const kmString& name) { return profile.ReName(name); };
    m_save = add("&Save", QStyle::SP_DialogSaveButton, "Ctrl+S", [this] { Save(); });
    m_saveAs = add("Save &As…", QStyle::SP_FileIcon, "Ctrl+Shift+S", [this] { Name(kmSaveAsNew); });
    m_rename = add("Re&name…", QStyle::SP_FileDialogDetailedView, "F2", [=, this] { Name(rename); });
    m_delete = add("&Delete…", QStyle::SP_TrashIcon, "Ctrl+Del", [this] { Delete(); });
    add("&Reload", QStyle::SP_BrowserReload, "F5", [this] { Reload(); });
    // Queued: a question that comes up in the middle of a mouse press would swallow its release.
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &EditorWindow::Pick, Qt::QueuedConnection);
    connect(m_views, &QTabWidget::currentChanged, this, &EditorWindow::ShowSettings);
    connect(&m_selection, &Selection::Replaced, this, &EditorWindow::ShowSettings);
    connect(&m_selection, &Selection::Edited, this, &EditorWindow::ShowState);
    Reload();
}

void EditorWindow::Pick() {
    const std::vector<kmString> picked = m_tree->SelectedIDs();
    if (picked.empty() || picked == m_selection.IDs()) return;
    MayLeave() ? m_selection.Load(m_folder, picked) : m_tree->Select(m_selection.IDs());
}

void EditorWindow::Open(const std::vector<kmString>& ids) {
    m_tree->Fill(PathToQt(m_folder));
    m_tree->Select(ids);
    m_selection.Load(m_folder, ids);
}

void EditorWindow::ShowSettings() {
    ShowState();
    if (m_selection.HasRefused()) return;  // the text that was refused would be lost
    const QString nothing = m_selection.IDs().size() > 1 ? "(differs, or not set)" : "(not set)";
    m_simple->Show(SettingsOf(m_selection, /*isSimple=*/true), nothing);
    m_advanced->Show(SettingsOf(m_selection, /*isSimple=*/false), nothing);
}

void EditorWindow::ShowState() {
    QStringList names;
    for (const kmString& id : m_selection.IDs()) names.append(ToQt(id));
    const bool isOne = names.size() == 1;
    const bool isOwn = !names.empty() && !m_selection.HasSystem();
    const kmProfileInfo* info = kmManager::GetInstance().GetProfileInfo(FromQt(names.value(0)).c_str());
    QString note = isOwn ? "Edited as one" : "System profiles cannot be edited together with others";
    if (isOne && info != nullptr) note = ToQt(info->GetDesc()) + (isOwn ? "" : " (a system profile)");
    if (names.empty()) note = "Choose a profile on the left, or several with Ctrl or Shift";
    if (m_selection.HasRefused()) note = "A value has to be corrected before you can save";
    const QString all = names.join(", ");
    m_heading->setText("<big><b>" + all.toHtmlEscaped() + "</b></big><br>" + note.toHtmlEscaped());
    setWindowTitle(all + "[*] – Encoding Profiles");
    setWindowModified(m_selection.IsModified() || m_selection.HasRefused());
    m_views->setEnabled(isOne || isOwn);
    m_save->setEnabled(isOwn && isWindowModified() && !m_selection.HasRefused());
    m_saveAs->setEnabled(isOne && !m_selection.HasRefused());
    m_rename->setEnabled(isOne && isOwn && !isWindowModified());
    m_delete->setEnabled(isOwn);
}

void EditorWindow::Save() {
    const QString question = "Another program has changed the file since. Replace it?";
    if (m_selection.IsOutdated() && QMessageBox::question(this, "Save", question) != QMessageBox::Yes) return;
    const QString refusal = m_selection.Save();
    if (!refusal.isEmpty()) return void(QMessageBox::warning(this, "Not saved", refusal));
    for (const kmString& id : m_selection.IDs()) kmManager::GetInstance().AddRecentProfile(id.c_str());
    m_tree->Fill(PathToQt(m_folder));
    statusBar()->showMessage("Saved");
}

// Asks again, with the reason, while the library refuses.
void EditorWindow::Name(Naming step) {
    kmProfile& profile = *m_selection.Profiles().front();
    QString name = ToQt(profile.GetID());
    bool isGiven = true;
    for (QString label = "Name:"; !label.isEmpty();) {
        name = QInputDialog::getText(this, "Name", label, QLineEdit::Normal, name, &isGiven).trimmed();
        if (!isGiven) return;
        label = WhyRefused(step(profile, FromQt(name)), profile, FromQt(name));
    }
    Open({FromQt(name)});
}

void EditorWindow::Delete() {
    const QString question = "Delete " + windowTitle().section("[*]", 0, 0) + "? There is no way back.";
    if (QMessageBox::question(this, "Delete", question) != QMessageBox::Yes) return;
    for (const kmString& id : m_selection.IDs())
        if (!kmManager::GetInstance().DeleteProfile(id))
            QMessageBox::warning(this, "Not deleted", ToQt(id) + " cannot be deleted.");
    Open({});
}

void EditorWindow::Reload() {
    if (!MayLeave()) return;
    const kmLoadReport report = kmLoadWithReport(kmManager::GetInstance(), m_folder);
    QString message = QString::number(report.taken.size()) + " profiles";
    for (const kmLoadFinding& finding : report.findings)
        message += "; " + PathToQt(finding.path) + ": " + ToQt(finding.reason);
    statusBar()->showMessage(message);
    Open(m_selection.IDs());
}

bool EditorWindow::MayLeave() {
    if (!isWindowModified()) return true;
    const auto save = m_save->isEnabled() ? QMessageBox::Save : QMessageBox::NoButton;
    const auto answer = QMessageBox::question(this, "Unsaved changes", "What shall become of the changes?",
                                              save | QMessageBox::Discard | QMessageBox::Cancel);
    if (answer == QMessageBox::Save) Save();
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && !isWindowModified());
}

void EditorWindow::closeEvent(QCloseEvent* event) { event->setAccepted(MayLeave()); }

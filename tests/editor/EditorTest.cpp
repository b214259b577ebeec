// SPDX-License-Identifier: MIT
// A user's ways through the editor, by mouse and keys, each on a copy of the sample profiles. With a folder
// in KM_EDITOR_PICTURES the window is saved there at several stages.
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidgetItemIterator>
#include <filesystem>
#include <memory>

#include "EditorWindow.h"
#include "Text.h"
#include "kmMessages.h"

class EditorTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void TypedValueIsCheckedShownAndSaved();
    void SystemProfileIsSavedAsACopy();
    void RenameSaysWhyNot();
    void TwoProfilesAreEditedAsOne();
    void DeletesWhatTheUserConfirms();
    void ChangesFromOutsideLoseNothingUnasked();

private:
    void Pick(const QString& name, Qt::KeyboardModifiers keys = Qt::NoModifier);
    void Enter(const QString& id, const QString& text);
    QTreeWidgetItem* Row(const QString& id);
    template <typename Widget>
    Widget* Entry(const QString& id) {
        return qobject_cast<Widget*>(View()->itemWidget(Row(id), 1));
    }
    QString Message(const QString& id) { return Row(id)->text(2); }
    QToolButton* Button(const QString& text);
    bool CanClick(const QString& button) { return Button(button)->isEnabled(); }
    void Click(const QString& button) { QTest::mouseClick(Button(button), Qt::LeftButton); }
    ProfileTree* Tree() { return m_window->findChild<ProfileTree*>(); }
    QTreeWidgetItem* Find(const QString& name) {
        return Tree()->findItems(name, Qt::MatchRecursive).value(0);
    }
    QTabWidget* Tabs() { return m_window->findChild<QTabWidget*>(); }
    SettingsView* View() { return static_cast<SettingsView*>(Tabs()->currentWidget()); }
    QString Options() { return m_window->findChild<QPlainTextEdit*>("options")->toPlainText(); }
    QString Size() { return m_window->findChild<QLabel*>("size")->text(); }
    QString InFile(const QString& profile, const kmChar* id);
    void Picture(const QString& name);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<EditorWindow> m_window;
};

namespace {

// Presses the button of that name in the next question.
void WillPress(const QString& button) {
    QTimer::singleShot(50, [button] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return WillPress(button);
        for (QAbstractButton* each : box->buttons())
            if (each->text().remove('&') == button) QTest::mouseClick(each, Qt::LeftButton);
    });
}

// Types the names one after the other into the dialogs that ask for one, and notes what these say.
void WillType(const QStringList& names, QStringList& labels) {
    QTimer::singleShot(50, [names, &labels] {
        auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return WillType(names, labels);
        labels.append(dialog->labelText());
        if (names.size() > 1) WillType(names.mid(1), labels);
        auto* text = dialog->findChild<QLineEdit*>();
        text->selectAll();
        QTest::keyClicks(text, names.front());
        QTest::keyClick(text, Qt::Key_Return);
    });
}

}  // namespace

void EditorTest::init() {
    kmSetMessageHandler([](const kmMessage&, void*) {}, nullptr);
    m_folder = std::make_unique<QTemporaryDir>();
    std::filesystem::copy(KM_SAMPLES, m_folder->path().toStdU16String(),
                          std::filesystem::copy_options::recursive);
    m_window = std::make_unique<EditorWindow>(kmPathFromUtf8(m_folder->path().toStdString()));
    m_window->show();
    Tabs()->setCurrentIndex(1);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void EditorTest::Pick(const QString& name, Qt::KeyboardModifiers keys) {
    Tree()->scrollToItem(Find(name));
    QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, keys, Tree()->visualItemRect(Find(name)).center());
    QCoreApplication::processEvents();
}

QTreeWidgetItem* EditorTest::Row(const QString& id) {
    for (QTreeWidgetItemIterator row(View()); *row != nullptr; ++row) {
        const QWidget* entry = View()->itemWidget(*row, 1);
        if (entry != nullptr && entry->objectName() == id) return *row;
    }
    qFatal("no setting %s", qPrintable(id));
}

// Into a field, in place of what stands there; or a choice, by its first letters.
void EditorTest::Enter(const QString& id, const QString& text) {
    auto* box = Entry<QComboBox>(id);
    if (box != nullptr && !box->isEditable()) return QTest::keyClicks(box, text);
    auto* line = box == nullptr ? Entry<QLineEdit>(id) : box->lineEdit();
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, text);
}

QToolButton* EditorTest::Button(const QString& text) {
    for (auto* button : m_window->findChildren<QToolButton*>())
        if (button->text().remove('&') == text) return button;
    qFatal("no button %s", qPrintable(text));
}

QString EditorTest::InFile(const QString& name, const kmChar* id) {
    kmProfile profile;
    profile.SetID(FromQt(name));
    if (!profile.Load(kmPathFromUtf8(m_folder->path().toStdString()))) return "no file";
    return ToQt(profile.GetItemValue(id));
}

void EditorTest::Picture(const QString& name) {
    const QString folder = qEnvironmentVariable("KM_EDITOR_PICTURES");
    QCoreApplication::processEvents();
    if (!folder.isEmpty()) QVERIFY(m_window->grab().save(QDir(folder).filePath(name + ".png")));
}

void EditorTest::TypedValueIsCheckedShownAndSaved() {
    Pick("Holiday Clips");
    const QString options = Options(), size = Size();
    Enter("b", "0");
    QCOMPARE(Message("b"), "Please input a valid value large than zero!");
    QVERIFY(!CanClick("Save") && !CanClick("Save As…") && m_window->isWindowModified());
    QCOMPARE(Options(), options);
    Picture("refused-value");
    Enter("b", "900");
    QCOMPARE(Message("b"), "Set video bitrate (in kbit/s)");
    QVERIFY2(Options().contains("-b 900K"), qPrintable(Options()));
    QVERIFY2(Size() != size, qPrintable(size));
    Picture("editor");
    QTest::keyClick(m_window.get(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(InFile("Holiday Clips", KM_TEXT("b")), "900");
    QVERIFY(Options().contains("-b 900K") && !CanClick("Save") && Find("Recent") != nullptr);
}

void EditorTest::SystemProfileIsSavedAsACopy() {
    Tabs()->setCurrentIndex(0);
    Find("PSP")->setExpanded(true);
    Pick("PSP H264 480x272");
    Enter("b", "Low");
    QVERIFY2(Options().contains("-b 384K"), qPrintable(Options()));
    QVERIFY(!CanClick("Save") && !CanClick("Rename…") && !CanClick("Delete…"));
    Picture("simple-view");
    QStringList labels;
    WillType({"PSP H264 480x272", "phone 240p", "My PSP"}, labels);
    Click("Save As…");
    QCOMPARE(labels,
             QStringList({"Name:", "“PSP H264 480x272” is the name of a system profile; choose another.",
                          "“phone 240p” exists; choose another name."}));
    QCOMPARE(InFile("My PSP", KM_TEXT("b")) + '/' + InFile("PSP H264 480x272", KM_TEXT("b")), "384/768");
    QVERIFY(Find("My PSP") != nullptr && m_window->windowTitle().startsWith("My PSP[*]"));
}

void EditorTest::RenameSaysWhyNot() {
    Pick("Phone 240p");
    QStringList labels;
    WillType({"Phone 240p", "Holiday Clips", "psp h264 480x272", "a/b", "con", "Travel"}, labels);
    QTest::keyClick(m_window.get(), Qt::Key_F2);
    const QStringList expected = {
        "Name:",
        "“Phone 240p” is its name already.",
        "“Holiday Clips” exists; choose another name.",
        "“psp h264 480x272” is the name of a system profile; choose another.",
        "This is no name for a file: it has a control character or one of \\ / : * ? \" < > |.",
        "This is no name for a file: it is the name of a device."};
    QCOMPARE(labels, expected);
    QCOMPARE(InFile("Phone 240p", KM_TEXT("g")) + '/' + InFile("Travel", KM_TEXT("g")), "no file/45");
    QVERIFY(Find("Travel")->isSelected() && !m_window->isWindowModified());
}

void EditorTest::TwoProfilesAreEditedAsOne() {
    Pick("Holiday Clips");
    Pick("Phone 240p", Qt::ControlModifier);
    QCOMPARE(Entry<QLineEdit>("b")->placeholderText(), "(differs, or not set)");
    QCOMPARE(Entry<QComboBox>("zoom")->currentText(), "Letterbox");
    QVERIFY(!CanClick("Rename…") && !CanClick("Save As…"));
    Enter("t", "soon");
    QCOMPARE(Message("t"), "Please input valid duration: 'xx:xx:xx' or 'Full'.");
    Enter("t", "00:02:00");
    Enter("ac", "2");
    Click("Save");
    QCOMPARE(InFile("Holiday Clips", KM_TEXT("t")) + InFile("Phone 240p", KM_TEXT("ac")), "00:02:002");
    QCOMPARE(InFile("Holiday Clips", KM_TEXT("b")) + '/' + InFile("Phone 240p", KM_TEXT("b")), "1800/256");
}

void EditorTest::DeletesWhatTheUserConfirms() {
    Pick("Phone 240p");
    WillPress("No");
    Click("Delete…");
    QVERIFY(Find("Phone 240p") != nullptr);
    WillPress("Yes");
    Click("Delete…");
    QVERIFY(Find("Phone 240p") == nullptr && !CanClick("Delete…"));
    QCOMPARE(InFile("Phone 240p", KM_TEXT("b")), "no file");
}

void EditorTest::ChangesFromOutsideLoseNothingUnasked() {
    Pick("Phone 240p");
    Enter("g", "77");
    QFile file(m_folder->filePath("user/Phone 240p.pf"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QByteArray changed = file.readAll().replace("<g Value=\"45\"", "<g Value=\"99\"");
    QVERIFY(file.seek(0) && file.write(changed) == changed.size() && file.resize(changed.size()));
    file.close();
    for (const auto& [step, answer] : {std::pair("Save", "No"), std::pair("Reload", "Cancel")}) {
        WillPress(answer);
        Click(step);
        QCOMPARE(InFile("Phone 240p", KM_TEXT("g")), "99");
        QCOMPARE(Entry<QLineEdit>("g")->text(), "77");
    }
    WillPress("Cancel");
    Pick("Holiday Clips");
    QVERIFY(m_window->windowTitle().startsWith("Phone 240p") && m_window->isWindowModified());
    WillPress("Discard");
    Click("Reload");
    QCOMPARE(Entry<QLineEdit>("g")->text(), "99");
    QVERIFY(!m_window->isWindowModified());
}

QTEST_MAIN(EditorTest)
#include "EditorTest.moc"

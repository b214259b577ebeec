// SPDX-License-Identifier: MIT
#include "EncoderPane.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <algorithm>

#include "Selection.h"
#include "Text.h"
#include "kmArguments.h"
#include "kmSizeEstimate.h"

namespace {

// For ffmpeg with all that whoever starts the other one applies by other means.
QString OptionsText(const kmProfile& profile, KM_DIALECT dialect) {
    const bool isWhole = dialect == KM_DIALECT_FFMPEG;
    QStringList words;
    for (const kmString& word : kmBuildArguments(profile, {dialect, true, isWhole, isWhole}).arguments)
        words.append(ToQt(word).contains(' ') ? '"' + ToQt(word) + '"' : ToQt(word));
    return words.join(' ');
}

// Of all outputs together.
QString SizeText(const std::vector<kmProfile*>& profiles, std::int64_t duration) {
    std::int64_t total = 0;
    SIZE_CERTAINTY worst = SIZE_CERTAINTY_ABSENT;
    for (const kmProfile* profile : profiles) {
        const kmSizeEstimate size = kmExplainOutputFileSize(*profile, duration, /*withAudio=*/true, 0, 0);
        total += size.total;
        worst = std::max({worst, size.video.certainty, size.audio.certainty, size.pictures.certainty});
    }
    const QString text = QLocale().formattedDataSize(total);
    if (worst == SIZE_CERTAINTY_UNKNOWN) return total == 0 ? "unknown" : "at least " + text;
    return worst == SIZE_CERTAINTY_ROUGH ? "roughly " + text : text;
}

}  // namespace

QWidget* MakeEncoderPane(const Selection& selection) {
    auto* encoder = new QComboBox;
    encoder->addItems({"the profile's own encoder", "ffmpeg"});  // in the order of KM_DIALECT
    auto* duration = new QLineEdit("01:30:00");
    auto* size = new QLabel;
    size->setObjectName("size");
    auto* options = new QPlainTextEdit;
    options->setObjectName("options");
    options->setReadOnly(true);
    options->setTabChangesFocus(true);
    options->setFixedHeight(90);
    options->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* pane = new QWidget;
    auto* layout = new QGridLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    const QWidgetList row = {new QLabel("Options for"), encoder, new QLabel("Input of"), duration, size};
    for (int column = 0; column < row.size(); ++column) layout->addWidget(row[column], 0, column);
    layout->addWidget(options, 1, 0, 1, -1);
    const auto update = [=, &selection] {
        const auto dialect = static_cast<KM_DIALECT>(encoder->currentIndex());
        QStringList texts;
        for (const kmProfile* profile : selection.Profiles()) texts.append(OptionsText(*profile, dialect));
        options->setPlainText(texts.join("\n\n"));
        int seconds = 0;
        const bool isTime = kmProfileItem::IsValidTime(FromQt(duration->text()).c_str(), &seconds) == 1;
        const QString text = SizeText(selection.Profiles(), seconds * 1'000'000LL);
        size->setText(isTime ? "gives <b>" + text + "</b>" : "hours:minutes:seconds, please");
    };
    QObject::connect(encoder, &QComboBox::currentIndexChanged, pane, update);
    QObject::connect(duration, &QLineEdit::textChanged, pane, update);
    QObject::connect(&selection, &Selection::Edited, pane, update);
    QObject::connect(&selection, &Selection::Replaced, pane, update);
    return pane;
}

#include "panels/charts_panel.h"

#include <new>
#include <string_view>

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QVBoxLayout>

#include "bridge/core_text.h"
#include "display/course_texts.h"
#include "export/whole_file.h"
#include "panels/failed_load_note.h"
#include "history/player_csv.h"
#include "session/replay_session.h"
#include "widgets/course_chart.h"

namespace trelvin {

namespace {

constexpr int kChartMinimumHeight = 150;

const QString kSaveCsvTip = QStringLiteral("Ulozit hodnoty vsech hracu po kazde akci jako CSV");

}  // namespace

ChartsPanel::ChartsPanel(ReplaySession& session, QWidget* parent)
    : QWidget(parent),
      quantity(new QComboBox(this)),
      saveCsv(new QPushButton(QStringLiteral("Ulozit jako CSV..."), this)),
      chart(new CourseChart(this)),
      session_(session) {
    quantity->setObjectName(QStringLiteral("quantity"));
    saveCsv->setObjectName(QStringLiteral("saveCsv"));
    chart->setObjectName(QStringLiteral("chart"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 2, 4, 2);
    column->setSpacing(2);
    auto* row = new QHBoxLayout;
    auto* label = new QLabel(QStringLiteral("Zobrazit"), this);
    row->addWidget(label);
    row->addWidget(quantity);
    row->addStretch(1);
    row->addWidget(saveCsv);
    column->addLayout(row);
    column->addWidget(new FailedLoadNote(session, this));
    column->addWidget(chart, 1);
    for (const QuantityChoice& choice : kQuantityChoices)
        quantity->addItem(QString::fromLatin1(choice.caption), int(choice.quantity));
    saveCsv->setEnabled(false);
    saveCsv->setToolTip(kSaveCsvTip);
    // Room for the plot under the legend on any screen; more where the window has it.
    chart->setMinimumHeight(kChartMinimumHeight);

    connect(quantity, &QComboBox::currentIndexChanged, this,
            [this] { chart->setQuantity(Quantity(quantity->currentData().toInt())); });
    connect(saveCsv, &QPushButton::clicked, this, &ChartsPanel::askForCsv);
    // The history is emptied while a replay is replaced: the chart lets go of it first.
    connect(&session, &ReplaySession::replacing, this, [this] { chart->showReplay(session_.history(), 0); });
    connect(&session, &ReplaySession::opened, this, &ChartsPanel::followOpened);
    connect(&session, &ReplaySession::positionChanged, chart, &CourseChart::setPosition);
    connect(chart, &CourseChart::positionRequested, this, [this](int event) {
        if (event != session_.position()) session_.jumpTo(event);
    });
}

void ChartsPanel::followOpened() {
    // A hidden panel costs the opening nothing: its chart is built when it is shown.
    chartStale_ = true;
    if (isVisible()) showOpened();
    const bool complete = session_.history().series.complete();
    saveCsv->setEnabled(session_.actionsRead() >= 1 && complete);
    saveCsv->setToolTip(complete ? kSaveCsvTip : FromUtf8(ChartsMissingText()));
}

void ChartsPanel::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (chartStale_) showOpened();
}

void ChartsPanel::showOpened() {
    chartStale_ = false;
    chart->showReplay(session_.history(), session_.actionsRead());
    chart->setPosition(session_.position());
}

QString ChartsPanel::writeCsv(const QString& path) const {
    QSaveFile file(path);
    if (const QString failure = OpenWhole(file); !failure.isEmpty()) return failure;
    try {
        WritePlayerCsv(session_.history(), session_.actionsRead(),
                       [&file](std::string_view piece) { file.write(piece.data(), qint64(piece.size())); });
    } catch (const std::bad_alloc&) {
        return QStringLiteral("Nedostatek pameti");
    }
    return CommitWhole(file);
}

void ChartsPanel::askForCsv() {
    // Beside the replay where that folder takes files, in the home folder otherwise.
    const QFileInfo replay(session_.fileName());
    const QString folder = QFileInfo(replay.absolutePath()).isWritable() ? replay.absolutePath() : QDir::homePath();
    QFileDialog dialog(window(), QStringLiteral("Ulozit jako CSV"), QDir(folder).filePath(replay.completeBaseName() + ".csv"),
                       QStringLiteral("CSV (*.csv)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("csv"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    const QString path = dialog.selectedFiles().front();
    const QString failure = writeCsv(path);
    if (failure.isEmpty())
        emit csvWritten(path);
    else
        emit csvFailed(failure);
}

}  // namespace trelvin

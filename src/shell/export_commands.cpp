#include "shell/export_commands.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeySequence>

#include "export/web_page.h"
#include "panels/export_dialog.h"
#include "panels/map_panel.h"
#include "shell/message_service.h"

namespace trelvin {

ExportCommands::ExportCommands(ReplaySession& session, const MapPanel& map, MessageService& messages,
                               ProgressShower progress, QWidget* window)
    : QObject(window),
      pictureAction(new QAction(QStringLiteral("&Exportovat obrazek..."), this)),
      animationAction(new QAction(QStringLiteral("Exportovat &animaci..."), this)),
      pageAction(new QAction(QStringLiteral("Exportovat jako &webovou stranku..."), this)),
      session_(session),
      map_(map),
      messages_(messages),
      progress_(std::move(progress)),
      window_(window) {
    pictureAction->setObjectName(QStringLiteral("pictureAction"));
    animationAction->setObjectName(QStringLiteral("animationAction"));
    pictureAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    animationAction->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E));
    connect(pictureAction, &QAction::triggered, this, [this] { ask(false); });
    connect(animationAction, &QAction::triggered, this, [this] { ask(true); });
    connect(pageAction, &QAction::triggered, this, &ExportCommands::askForPage);
    connect(&session, &ReplaySession::opened, this, &ExportCommands::followSession);
    connect(&session, &ReplaySession::positionChanged, this, &ExportCommands::followSession);
    followSession();
}

void ExportCommands::followSession() {
    const bool open = session_.position() >= 1 && session_.actionsRead() >= 1;
    pictureAction->setEnabled(open);
    animationAction->setEnabled(open);
    pageAction->setEnabled(open);
}

void ExportCommands::ask(bool animation) {
    // The current action the dialog offers must stay current while it is open.
    if (session_.isPlaying()) session_.stop();
    ExportChoices& choices = animation ? animationChoices_ : pictureChoices_;
    ExportDialog dialog(session_, map_.fieldPixels(), map_.highlightAction->isChecked(),
                        animation ? ExportDialog::Kind::Animation : ExportDialog::Kind::Picture, window_, choices);
    dialog.setObjectName(QStringLiteral("exportDialog"));
    if (dialog.exec() != QDialog::Accepted) return;
    choices = dialog.choices();
    run(dialog.job());
}

ExportOutcome ExportCommands::run(ExportJob job) {
    job.palette = map_.palette();
    const std::unique_ptr<TaskProgress> progress =
        progress_ ? progress_(QStringLiteral("Export: %1").arg(QFileInfo(job.path).fileName())) : nullptr;
    const ExportOutcome outcome = ExportMap(session_.world(), job, progress.get());
    switch (outcome.status) {
        case ExportOutcome::Status::Written: emit written(job.path); break;
        case ExportOutcome::Status::Cancelled:
            messages_.showMessage(QStringLiteral("Export byl zrusen, soubor %1 nebyl zapsan").arg(job.path));
            break;
        case ExportOutcome::Status::Failed: messages_.showMessage(QStringLiteral("Chyba pri exportu - ") + outcome.failure); break;
    }
    return outcome;
}

void ExportCommands::askForPage() {
    if (session_.isPlaying()) session_.stop();
    // Beside the replay where that folder takes files, in the home folder otherwise.
    const QFileInfo replay(session_.fileName());
    const QString folder = QFileInfo(replay.absolutePath()).isWritable() ? replay.absolutePath() : QDir::homePath();
    QFileDialog dialog(window_, QStringLiteral("Exportovat jako webovou stranku"),
                       QDir(folder).filePath(replay.completeBaseName() + QStringLiteral(".html")),
                       QStringLiteral("Webova stranka (*.html)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("html"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    const QString path = dialog.selectedFiles().front();
    const QString failure = writePage(path);
    if (failure.isEmpty())
        emit written(path);
    else
        messages_.showMessage(QStringLiteral("Chyba pri exportu - ") + failure);
}

QString ExportCommands::writePage(const QString& path) {
    const std::string moment = WebPageMoment(session_.position(), session_.viewMode(), map_.fieldPixels(),
                                             map_.highlightAction->isChecked() ? 1 : 0);
    return WriteReplayPage(path, session_.fileName(), moment);
}

}  // namespace trelvin

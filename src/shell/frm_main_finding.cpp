// Finding one's way through a long replay: the timeline strip, the action list, the prompt
// for an action number and the jumps to the previous or next event of a kind. A jump applies
// the events from the first again, as a step back does, so it reaches exactly the state the
// steps would; the messages of the events it re-applies go to the status line, never into one
// message box each.
#include <QAction>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>

#include "bridge/core_text.h"
#include "playback/action_list.h"
#include "playback/jump_prompt.h"
#include "playback/position_texts.h"
#include "playback/timeline.h"
#include "shell/frm_main.h"
#include "history/replay_history.h"

namespace {

QAction* addJump(QMenu* menu, const char* caption, QKeySequence keys) {
    QAction* action = menu->addAction(QString::fromLatin1(caption));
    action->setShortcut(keys);
    action->setEnabled(false);
    return action;
}

}  // namespace

void frmMain::buildFindingAids(QWidget* central) {
    mnuPrejit = menuBar()->addMenu(QStringLiteral("&Prejit"));
    jumpToAction = addJump(mnuPrejit, "&Na akci...", QKeySequence(Qt::CTRL | Qt::Key_G));
    mnuPrejit->addSeparator();
    previousAttack = addJump(mnuPrejit, "Predchozi utok", QKeySequence(Qt::CTRL | Qt::Key_Left));
    nextAttack = addJump(mnuPrejit, "Dalsi utok", QKeySequence(Qt::CTRL | Qt::Key_Right));
    previousCapture = addJump(mnuPrejit, "Predchozi dobyti veleni", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Left));
    nextCapture = addJump(mnuPrejit, "Dalsi dobyti veleni", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Right));
    previousFailure = addJump(mnuPrejit, "Predchozi chyba", QKeySequence(Qt::SHIFT | Qt::Key_F8));
    nextFailure = addJump(mnuPrejit, "Dalsi chyba", QKeySequence(Qt::Key_F8));
    mnuPrejit->addSeparator();

    auto* strip = new QWidget(central);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(6, 2, 6, 2);
    timeline = new trelvin::Timeline(strip);
    timelinePosition = new QLabel(QStringLiteral("0"), strip);
    timelineTime = new QLabel(strip);
    // Wide enough for the largest position and count, and for a long date and time.
    timelinePosition->setMinimumWidth(timelinePosition->fontMetrics().horizontalAdvance(QStringLiteral("32767 (32767)")) + 8);
    timelinePosition->setAlignment(Qt::AlignCenter);
    timelineTime->setMinimumWidth(timelineTime->fontMetrics().horizontalAdvance(QStringLiteral("00.00.0000 00:00:00")) + 8);
    row->addWidget(timeline, 1);
    row->addWidget(timelinePosition);
    row->addWidget(timelineTime);

    actionList = new trelvin::ActionList(this);
    actionDock = new QDockWidget(QStringLiteral("Seznam akci"), this);
    actionDock->setObjectName(QStringLiteral("actionDock"));
    actionDock->setWidget(actionList);
    actionDock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    addDockWidget(Qt::RightDockWidgetArea, actionDock);
    QAction* showList = actionDock->toggleViewAction();
    showList->setText(QStringLiteral("&Seznam akci"));
    showList->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    mnuPrejit->addAction(showList);
    statusBar()->setSizeGripEnabled(true);

    connect(jumpToAction, &QAction::triggered, this, &frmMain::askForJump);
    const std::pair<QAction*, std::pair<trelvin::EventKind, bool>> jumps[] = {
        {previousAttack, {trelvin::EventKind::Attacks, false}},
        {nextAttack, {trelvin::EventKind::Attacks, true}},
        {previousCapture, {trelvin::EventKind::HeadquartersCaptures, false}},
        {nextCapture, {trelvin::EventKind::HeadquartersCaptures, true}},
        {previousFailure, {trelvin::EventKind::Failures, false}},
        {nextFailure, {trelvin::EventKind::Failures, true}},
    };
    for (const auto& [action, target] : jumps)
        connect(action, &QAction::triggered, this, [this, target] { jumpToNearest(target.first, target.second); });
    connect(timeline, &trelvin::Timeline::positionRequested, this, &frmMain::requestJump);
    connect(actionList, &trelvin::ActionList::eventChosen, this, &frmMain::jumpTo);
    connect(playback, &trelvin::Playback::moved, this, &frmMain::followPosition);
}

void frmMain::showReplayInFindingAids() {
    try {
        log_ = std::make_unique<trelvin::ActionLog>(trelvin::ReplayHistory::Build(world_).log);
    } catch (const std::exception&) {
        log_ = std::make_unique<trelvin::ActionLog>();  // no room for the list: it stays empty
    }
    actionList->showReplay(log_.get());
    timeline->showReplay(*log_, world_.eventCount);
    for (QAction* action : {jumpToAction, previousAttack, nextAttack, previousCapture, nextCapture,
                            previousFailure, nextFailure})
        action->setEnabled(world_.eventCount > 0);
    followPosition();
}

void frmMain::followPosition() {
    const std::int16_t position = playback->position();
    timeline->setPosition(position);
    actionList->setPosition(position);
    timelinePosition->setText(trelvin::PositionText(position, world_.eventCount));
    timelineTime->setText(position >= 1 && position <= world_.lastEventIndex()
                              ? trelvin::GeneralDateText(world_.events[std::size_t(position)].time)
                              : QString());
}

void frmMain::jumpTo(int event) {
    if (playback->position() < 1 || world_.eventCount < 1) return;
    trelvin::RecordingReporter quiet;
    playback->jumpTo(event, quiet);
    QString status = QStringLiteral("Akce %1").arg(playback->position());
    if (!quiet.texts.empty())
        status += QStringLiteral(": pri opakovani akci %1 hlaseni, posledni: %2")
                      .arg(quiet.texts.size())
                      .arg(trelvin::FromCore(quiet.texts.back()));
    statusBar()->showMessage(status);
}

void frmMain::requestJump(int event) {
    const bool scheduled = pendingJump_ != 0;
    pendingJump_ = event;
    if (scheduled) return;
    QTimer::singleShot(0, this, [this] {
        const int event = std::exchange(pendingJump_, 0);
        if (event != playback->position()) jumpTo(event);
    });
}

void frmMain::jumpToNearest(trelvin::EventKind kind, bool forward) {
    if (!log_) return;
    const int found = log_->nearest(playback->position(), kind, forward);
    if (found == 0 || found > world_.eventCount) {
        statusBar()->showMessage(forward ? QStringLiteral("Dale uz zadna takova akce neni")
                                         : QStringLiteral("Drive zadna takova akce nebyla"));
        return;
    }
    jumpTo(found);
}

void frmMain::askForJump() {
    if (playback->position() < 1 || world_.eventCount < 1) return;
    trelvin::JumpPrompt prompt(world_.eventCount, playback->position(), this);
    if (prompt.exec() == QDialog::Accepted) jumpTo(prompt.chosen());
}

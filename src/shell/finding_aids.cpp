// Finding one's way through a long replay: the menu "Prejit" with the prompt for an action
// number and the jumps to the previous or next event of a kind, the action list beside the
// window, and the status line that tells what a jump's events reported. A jump applies the
// events from the first again, as a step back does, so it reaches exactly the state the steps
// would; their messages go to the status line, never into one message box each.
#include <QAction>
#include <QDockWidget>
#include <QKeySequence>
#include <QMenuBar>
#include <QStatusBar>

#include "panels/action_list_panel.h"
#include "playback/jump_prompt.h"
#include "shell/frm_main.h"

namespace {

QAction* addJump(QMenu* menu, const char* caption, QKeySequence keys) {
    QAction* action = menu->addAction(QString::fromLatin1(caption));
    action->setShortcut(keys);
    action->setEnabled(false);
    return action;
}

}  // namespace

void frmMain::buildFindingAids() {
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

    actionList = new trelvin::ActionListPanel(*session_, this);
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
    connect(session_, &trelvin::ReplaySession::opened, this, [this](const QString&, int eventCount) {
        for (QAction* action : {jumpToAction, previousAttack, nextAttack, previousCapture, nextCapture,
                                previousFailure, nextFailure})
            action->setEnabled(eventCount > 0);
    });
    connect(session_, &trelvin::ReplaySession::jumped, this, &frmMain::showJumpStatus);
}

void frmMain::showJumpStatus(int position, const QStringList& messages) {
    QString status = QStringLiteral("Akce %1").arg(position);
    if (!messages.isEmpty())
        status += QStringLiteral(": pri opakovani akci %1 hlaseni, posledni: %2").arg(messages.size()).arg(messages.back());
    statusBar()->showMessage(status);
}

void frmMain::jumpToNearest(trelvin::EventKind kind, bool forward) {
    const int found = session_->nearest(kind, forward);
    if (found == 0) {
        statusBar()->showMessage(forward ? QStringLiteral("Dale uz zadna takova akce neni")
                                         : QStringLiteral("Drive zadna takova akce nebyla"));
        return;
    }
    session_->jumpTo(found);
}

void frmMain::askForJump() {
    if (session_->position() < 1 || session_->eventCount() < 1) return;
    trelvin::JumpPrompt prompt(session_->eventCount(), session_->position(), this);
    if (prompt.exec() == QDialog::Accepted) session_->jumpTo(prompt.chosen());
}

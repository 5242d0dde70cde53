#include "panels/jump_menu.h"

#include <QAction>
#include <QKeySequence>

#include "widgets/jump_prompt.h"
#include "session/replay_session.h"

namespace trelvin {

namespace {

QAction* jump(QMenu* menu, const char* name, const char* caption, QKeySequence keys) {
    QAction* action = menu->addAction(QString::fromLatin1(caption));
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(keys);
    action->setEnabled(false);
    return action;
}

}  // namespace

JumpMenu::JumpMenu(ReplaySession& session, QWidget* parent)
    : QMenu(QStringLiteral("&Prejit"), parent),
      jumpToAction(jump(this, "jumpToAction", "&Na akci...", QKeySequence(Qt::CTRL | Qt::Key_G))),
      previousAttack(jump(this, "previousAttack", "Predchozi utok", QKeySequence(Qt::CTRL | Qt::Key_Left))),
      nextAttack(jump(this, "nextAttack", "Dalsi utok", QKeySequence(Qt::CTRL | Qt::Key_Right))),
      previousCapture(jump(this, "previousCapture", "Predchozi dobyti veleni", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Left))),
      nextCapture(jump(this, "nextCapture", "Dalsi dobyti veleni", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Right))),
      previousFailure(jump(this, "previousFailure", "Predchozi chyba", QKeySequence(Qt::SHIFT | Qt::Key_F8))),
      nextFailure(jump(this, "nextFailure", "Dalsi chyba", QKeySequence(Qt::Key_F8))),
      session_(session) {
    insertSeparator(previousAttack);
    connect(jumpToAction, &QAction::triggered, this, &JumpMenu::askForJump);
    const std::pair<QAction*, std::pair<EventKind, bool>> jumps[] = {
        {previousAttack, {EventKind::Attacks, false}},   {nextAttack, {EventKind::Attacks, true}},
        {previousCapture, {EventKind::HeadquartersCaptures, false}},
        {nextCapture, {EventKind::HeadquartersCaptures, true}},
        {previousFailure, {EventKind::Failures, false}}, {nextFailure, {EventKind::Failures, true}},
    };
    for (const auto& [action, target] : jumps)
        connect(action, &QAction::triggered, this, [this, target] { jumpToNearest(target.first, target.second); });
    connect(&session, &ReplaySession::opened, this, [this] {
        for (QAction* action : {jumpToAction, previousAttack, nextAttack, previousCapture, nextCapture,
                                previousFailure, nextFailure})
            action->setEnabled(session_.actionsRead() > 0);
    });
}

void JumpMenu::jumpToNearest(EventKind kind, bool forward) {
    const int found = session_.nearest(kind, forward);
    if (found == 0) {
        emit nothingFound(forward ? QStringLiteral("Dale uz zadna takova akce neni")
                                  : QStringLiteral("Drive zadna takova akce nebyla"));
        return;
    }
    session_.jumpTo(found);
}

void JumpMenu::askForJump() {
    if (session_.position() < 1 || session_.actionsRead() < 1) return;
    JumpPrompt prompt(session_.actionsRead(), session_.position(), parentWidget());
    prompt.setObjectName(QStringLiteral("jumpPrompt"));
    if (prompt.exec() == QDialog::Accepted) session_.jumpTo(prompt.chosen());
}

}  // namespace trelvin

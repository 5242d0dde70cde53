#pragma once
// The menu "Prejit": a prompt for an action number, and the jumps to the previous or next
// attack, captured headquarters or failed action. A jump applies the events from the first
// again, as a step back does, so it reaches exactly the state the steps would.
#include <QMenu>

namespace trelvin {

class ReplaySession;
enum class EventKind;

class JumpMenu : public QMenu {
    Q_OBJECT

public:
    JumpMenu(ReplaySession& session, QWidget* parent);

    QAction* const jumpToAction;
    QAction* const previousAttack;
    QAction* const nextAttack;
    QAction* const previousCapture;
    QAction* const nextCapture;
    QAction* const previousFailure;
    QAction* const nextFailure;

public slots:
    // Goes to the nearest event of a kind after (or before) the current one.
    void jumpToNearest(trelvin::EventKind kind, bool forward);
    // Asks for an action number and goes there.
    void askForJump();

signals:
    // There is no such event to go to; the text tells so.
    void nothingFound(const QString& text);

private:
    ReplaySession& session_;
};

}  // namespace trelvin

#pragma once
// The commands that move through the replay, as actions: the buttons and the keys trigger
// them, and they are enabled as the session's button groups are.
#include <QObject>

class QAction;

namespace trelvin {

class ReplaySession;

class PlaybackCommands : public QObject {
    Q_OBJECT

public:
    PlaybackCommands(ReplaySession& session, QObject* parent);

    // The backward group.
    QAction* const first;
    QAction* const back;
    QAction* const playBackFast;
    QAction* const playBackSlow;
    // The forward group.
    QAction* const forward;
    QAction* const last;
    QAction* const playForwardSlow;
    QAction* const playForwardFast;
    QAction* const stop;
};

}  // namespace trelvin

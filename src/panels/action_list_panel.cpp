#include "panels/action_list_panel.h"

#include "panels/failed_load_note.h"
#include "session/replay_session.h"

namespace trelvin {

ActionListPanel::ActionListPanel(ReplaySession& session, QWidget* parent) : ActionList(parent) {
    addNote(new FailedLoadNote(session, this));
    connect(&session, &ReplaySession::replacing, this, [this] { showReplay(nullptr, nullptr); });
    connect(&session, &ReplaySession::opened, this, [this, &session] {
        showReplay(&session.history().log, &session.history().players);
        setPosition(session.position());
    });
    connect(&session, &ReplaySession::positionChanged, this, &ActionList::setPosition);
    connect(this, &ActionList::eventChosen, &session, &ReplaySession::jumpTo);
}

}  // namespace trelvin

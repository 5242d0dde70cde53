#include "panels/failed_load_note.h"

#include "bridge/core_text.h"
#include "display/world_texts.h"
#include "session/replay_session.h"

namespace trelvin {

FailedLoadNote::FailedLoadNote(const ReplaySession& session, QWidget* parent) : QLabel(parent) {
    setObjectName(QStringLiteral("failedLoadNote"));
    setStyleSheet(QStringLiteral("color: #b00000"));
    setWordWrap(true);
    hide();
    connect(&session, &ReplaySession::opened, this, [this, &session] {
        setVisible(!session.loadFailure().isEmpty());
        setText(FromUtf8(FailedLoadText(session.actionsRead())));
        setToolTip(session.loadFailure());
    });
}

}  // namespace trelvin

#include "panels/timeline_strip.h"

#include <utility>

#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>

#include "bridge/core_text.h"
#include "bridge/date_text.h"
#include "display/world_texts.h"
#include "panels/failed_load_note.h"
#include "widgets/timeline.h"
#include "session/replay_session.h"

namespace trelvin {

TimelineStrip::TimelineStrip(ReplaySession& session, QWidget* parent) : QWidget(parent), session_(session) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 2, 6, 2);
    timeline = new Timeline(this);
    lblPosition = new QLabel(QStringLiteral("0"), this);
    lblTime = new QLabel(this);
    timeline->setObjectName(QStringLiteral("timeline"));
    lblPosition->setObjectName(QStringLiteral("lblPosition"));
    lblTime->setObjectName(QStringLiteral("lblTime"));
    // Wide enough for the largest position and count, and for a long date and time.
    lblPosition->setMinimumWidth(lblPosition->fontMetrics().horizontalAdvance(QStringLiteral("32767 (32767)")) + 8);
    lblPosition->setAlignment(Qt::AlignCenter);
    lblTime->setMinimumWidth(lblTime->fontMetrics().horizontalAdvance(QStringLiteral("00.00.0000 00:00:00")) + 8);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    row->addWidget(timeline, 1);
    row->addWidget(new FailedLoadNote(session, this));
    row->addWidget(lblPosition);
    row->addWidget(lblTime);

    connect(&session, &ReplaySession::replacing, this, [this] { timeline->showReplay(session_.history().log, 0); });
    connect(&session, &ReplaySession::opened, this, [this] {
        timeline->showReplay(session_.history().log, session_.actionsRead());
        followPosition();
    });
    connect(&session, &ReplaySession::positionChanged, this, &TimelineStrip::followPosition);
    connect(timeline, &Timeline::positionRequested, this, &TimelineStrip::requestJump);
}

void TimelineStrip::followPosition() {
    const WorldState& world = session_.world();
    const int position = session_.position();
    timeline->setPosition(position);
    lblPosition->setText(FromUtf8(PositionText(position, world.eventCount)));
    lblTime->setText(position >= 1 && position <= world.lastEventIndex()
                         ? GeneralDateText(world.events[std::size_t(position)].time)
                         : QString());
}

void TimelineStrip::requestJump(int event) {
    const bool scheduled = pendingJump_ != 0;
    pendingJump_ = event;
    if (scheduled) return;
    QTimer::singleShot(0, this, [this] {
        const int wanted = std::exchange(pendingJump_, 0);
        if (wanted != session_.position()) session_.jumpTo(wanted);
    });
}

}  // namespace trelvin

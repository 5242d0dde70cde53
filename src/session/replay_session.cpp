#include "session/replay_session.h"

#include <QFile>
#include <QFileInfo>

#include "bridge/core_text.h"
#include "playback/playback.h"

namespace trelvin {

ReplaySession::ReplaySession(SessionServices services, QObject* parent)
    : QObject(parent), services_(std::move(services)) {
    if (!services_.openReplay)
        services_.openReplay = [](const QString& path) {
            return std::make_unique<ReplayFile>(QFile::encodeName(path).toStdString());
        };
    // The window's map is there from the start, in the way of viewing chosen at start.
    cursor_.setMap(ViewMode::All, {});
    playback_ = new Playback(cursor_, services_.reporter, this);
    playback_->setRebuildProgress([this] { return progressFor("Prepocitavani tahu"); });
    connect(playback_, &Playback::positionChanged, this, &ReplaySession::positionChanged);
    connect(playback_, &Playback::stepsEnabledChanged, this, &ReplaySession::stepsEnabledChanged);
    connect(playback_, &Playback::playingChanged, this, &ReplaySession::playingChanged);
}

ReplaySession::~ReplaySession() = default;

bool ReplaySession::atBegin() const { return playback_->atBegin(); }
bool ReplaySession::atEnd() const { return playback_->atEnd(); }
bool ReplaySession::slideForward() const { return playback_->slideForward(); }
bool ReplaySession::isPlaying() const { return playback_->isPlaying(); }
bool ReplaySession::backwardEnabled() const { return playback_->backwardEnabled(); }
bool ReplaySession::forwardEnabled() const { return playback_->forwardEnabled(); }
bool ReplaySession::stopEnabled() const { return playback_->stopEnabled(); }
const MoveResult& ReplaySession::lastMove() const { return playback_->lastMove(); }

std::unique_ptr<TaskProgress> ReplaySession::progressFor(const char* task) const {
    if (!services_.progress) return nullptr;
    return services_.progress(QStringLiteral("%1: %2").arg(QString::fromLatin1(task), QFileInfo(fileName_).fileName()));
}

LoadResult ReplaySession::open(const QString& path) {
    // No tick may step a replay that is being replaced.
    playback_->halt();
    emit replacing();
    fileName_ = path;
    OpenResult result;
    {
        const std::unique_ptr<TaskProgress> progress = progressFor("Nacitani");
        const std::unique_ptr<ReplaySource> source = services_.openReplay(path);
        result = cursor_.open(*source, progress.get());
    }
    playback_->noteOpening(result.first);
    if (!result.load.succeeded()) services_.reporter.report(result.load.failure);
    for (const EventReport& report : result.first.reports) services_.reporter.report(report.text);
    loadFailure_ = FromCore(result.load.failure);
    emit opened(fileName_, cursor_.eventCount());
    return {loadFailure_};
}

void ReplaySession::setMapFields(MapFields fields) { cursor_.setMap(viewMode(), fields); }

void ReplaySession::setViewMode(ViewMode mode) {
    cursor_.setViewMode(mode);
    emit viewModeChanged(mode);
}

void ReplaySession::first() { playback_->first(); }
void ReplaySession::back() { playback_->back(); }
void ReplaySession::forward() { playback_->forward(); }
void ReplaySession::last() { playback_->last(); }
void ReplaySession::updateButtons() { playback_->updateButtons(); }

QStringList ReplaySession::jumpTo(int event) {
    if (position() < 1 || actionsRead() < 1) return {};
    const int from = position();
    const MoveResult moved = playback_->jumpTo(event);
    QStringList messages;
    for (const EventReport& report : NewsOfJump(moved, from, position())) messages << FromCore(report.text);
    emit jumped(position(), messages);
    return messages;
}

int ReplaySession::nearest(EventKind kind, bool forward) const {
    return history().log.nearest(position(), kind, forward);
}

void ReplaySession::play(bool forward, std::int16_t interval) { playback_->useTimer(forward, interval); }
void ReplaySession::stop() { playback_->stop(); }
void ReplaySession::halt() { playback_->halt(); }
void ReplaySession::disableStop() { playback_->disableStop(); }

}  // namespace trelvin

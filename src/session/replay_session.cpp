#include "session/replay_session.h"

#include <exception>

#include <QFile>
#include <QFileInfo>

#include "bridge/core_text.h"
#include "engine/event_executor.h"
#include "model/replay_loader.h"
#include "playback/playback.h"

namespace trelvin {

namespace {

// Passes every report on, and keeps the first.
class KeepingReporter : public Reporter {
public:
    explicit KeepingReporter(Reporter& next) : next_(next) {}
    void report(const std::string& text) override {
        if (first.empty()) first = text;
        next_.report(text);
    }
    std::string first;

private:
    Reporter& next_;
};

}  // namespace

ReplaySession::ReplaySession(SessionServices services, QObject* parent)
    : QObject(parent), services_(std::move(services)) {
    if (!services_.applyEvent) services_.applyEvent = &ExecuteEvent;
    if (!services_.openReplay)
        services_.openReplay = [](const QString& path) {
            return std::make_unique<ReplayFile>(QFile::encodeName(path).toStdString());
        };
    playback_ = new Playback(world_, services_.reporter,
                             [this](std::int16_t index, Reporter& reporter) {
                                 services_.applyEvent(world_, index, reporter);
                             },
                             this);
    playback_->setRebuildProgress([this] { return progressFor("Prepocitavani tahu"); });
    playback_->setRebuildShortcut(&shortcut_);
    connect(playback_, &Playback::positionChanged, this, &ReplaySession::positionChanged);
    connect(playback_, &Playback::stepsEnabledChanged, this, &ReplaySession::stepsEnabledChanged);
    connect(playback_, &Playback::playingChanged, this, &ReplaySession::playingChanged);
}

ReplaySession::~ReplaySession() = default;

int ReplaySession::position() const { return playback_->position(); }
bool ReplaySession::atBegin() const { return playback_->atBegin(); }
bool ReplaySession::atEnd() const { return playback_->atEnd(); }
bool ReplaySession::slideForward() const { return playback_->slideForward(); }
bool ReplaySession::isPlaying() const { return playback_->isPlaying(); }
bool ReplaySession::backwardEnabled() const { return playback_->backwardEnabled(); }
bool ReplaySession::forwardEnabled() const { return playback_->forwardEnabled(); }
bool ReplaySession::stopEnabled() const { return playback_->stopEnabled(); }

std::unique_ptr<TaskProgress> ReplaySession::progressFor(const char* task) const {
    if (!services_.progress) return nullptr;
    return services_.progress(QStringLiteral("%1: %2").arg(QString::fromLatin1(task), QFileInfo(fileName_).fileName()));
}

LoadResult ReplaySession::open(const QString& path) {
    // No tick may step a replay that is being replaced.
    playback_->halt();
    history_ = {};  // the keyframes of the replay being replaced must not stand for the new one
    fileName_ = path;
    LoadResult result;
    {
        KeepingReporter reporter(services_.reporter);
        const std::unique_ptr<TaskProgress> progress = progressFor("Nacitani");
        const std::unique_ptr<ReplaySource> source = services_.openReplay(path);
        LoadReplay(world_, *source, reporter, progress.get());
        result.failure = FromCore(reporter.first);
    }
    playback_->openAtFirstEvent();
    try {
        history_ = ReplayHistory::Build(world_);
    } catch (const std::exception&) {
        history_ = {};  // no room for the history: the finding aids stay empty
    }
    emit opened(fileName_, world_.eventCount);
    return result;
}

void ReplaySession::setViewMode(ViewMode mode) {
    viewMode_ = mode;
    emit viewModeChanged(mode);
}

void ReplaySession::revealForView(int fieldCount) { RevealForView(world_, viewMode_, fieldCount); }

void ReplaySession::first() { playback_->first(); }
void ReplaySession::back() { playback_->back(); }
void ReplaySession::forward() { playback_->forward(); }
void ReplaySession::last() { playback_->last(); }
void ReplaySession::updateButtons() { playback_->updateButtons(); }

QStringList ReplaySession::jumpTo(int event) {
    if (position() < 1 || world_.eventCount < 1) return {};
    RecordingReporter quiet;
    playback_->jumpTo(event, quiet);
    QStringList messages;
    for (const std::string& text : quiet.texts) messages << FromCore(text);
    emit jumped(position(), messages);
    return messages;
}

int ReplaySession::nearest(EventKind kind, bool forward) const {
    const int found = history_.log.nearest(position(), kind, forward);
    return found <= world_.eventCount ? found : 0;
}

void ReplaySession::play(bool forward, std::int16_t interval) { playback_->useTimer(forward, interval); }
void ReplaySession::stop() { playback_->stop(); }
void ReplaySession::halt() { playback_->halt(); }
void ReplaySession::disableStop() { playback_->disableStop(); }

}  // namespace trelvin

#pragma once
// One opened replay and everything the window shows of it: the replay cursor (the world, the
// history of its events from the pass made at opening, the position and the map's frame), the
// file's name, and the playback with its slide show. The session owns them; every view gets them
// const and follows the session's signals, which carry the values that changed.
#include <cstdint>
#include <functional>
#include <memory>

#include <QObject>
#include <QString>
#include <QStringList>

#include "cursor/replay_cursor.h"
#include "history/replay_history.h"
#include "model/replay_source.h"
#include "model/reporter.h"
#include "model/task_progress.h"
#include "model/world_state.h"
#include "view/map_frame.h"
#include "view/view_mode.h"

namespace trelvin {

class Playback;

// Where the bytes of the replay at a chosen path come from: the file in the program.
using ReplayOpener = std::function<std::unique_ptr<ReplaySource>(const QString& path)>;
// Shows the progress of a task that turns out to be long, under the given label.
using ProgressShower = std::function<std::unique_ptr<TaskProgress>(const QString& label)>;

struct SessionServices {
    Reporter& reporter;        // the message boxes of the loader, the executor and the steps
    ReplayOpener openReplay;   // empty: the file at the path
    ProgressShower progress;   // empty: none shown
};

// What a load came to: nothing, or the text of the failure it reported.
struct LoadResult {
    QString failure;
    bool succeeded() const { return failure.isEmpty(); }
};

class ReplaySession : public QObject {
    Q_OBJECT

public:
    explicit ReplaySession(SessionServices services, QObject* parent = nullptr);
    ~ReplaySession() override;

    const ReplayCursor& cursor() const { return cursor_; }
    const WorldState& world() const { return cursor_.world(); }
    const ReplayHistory& history() const { return cursor_.history(); }
    // The map as the last move or change of the way of viewing drew it.
    const MapFrame& frame() const { return cursor_.frame(); }
    // The path opened last, kept when a later choice is cancelled; empty before the first.
    const QString& fileName() const { return fileName_; }

    int position() const { return cursor_.position(); }
    int eventCount() const { return cursor_.eventCount(); }
    // The actions the list, the timeline, the charts and the jumps offer: those the last open read.
    int actionsRead() const { return history().log.size(); }
    // What the last open's load reported; empty when it loaded.
    const QString& loadFailure() const { return loadFailure_; }
    bool atBegin() const;
    bool atEnd() const;
    bool slideForward() const;
    bool isPlaying() const;
    bool backwardEnabled() const;
    bool forwardEnabled() const;
    bool stopEnabled() const;
    // What the last move did, opening included.
    const MoveResult& lastMove() const;

    // Stops the show, loads the replay at `path` (the loader's failure shows in a box and the
    // world keeps what it read), applies event 1 at position 1 (its boxes follow) and makes the
    // pass over the events. The rest of opening (the grid, the panels, the buttons) is the
    // window's, in its own order.
    LoadResult open(const QString& path);

    // The fields of the map the window built for the replay: each move redraws them.
    void setMapFields(MapFields fields);
    // The way of viewing the map; changing it redraws the map.
    ViewMode viewMode() const { return *cursor_.viewMode(); }
    void setViewMode(ViewMode mode);

    // The steps of the buttons, with a message box for each failure on the way; those that go
    // back or to the end start from the nearest keyframe, and the events it passes over show
    // their boxes from the action log.
    void first();
    void back();
    void forward();
    void last();
    void updateButtons();

    // Goes straight to `event` (one of the actions read) as a rebuild from the first event does,
    // from the nearest keyframe when there is one. What the actions the user had not passed yet
    // reported on the way is returned and announced by `jumped`, never shown in boxes.
    QStringList jumpTo(int event);
    // The nearest event of `kind` after (`forward`) or before the position; 0 when there is none.
    int nearest(EventKind kind, bool forward) const;

    // The slide show: started or redirected, stopped with the stop button, or halted alone.
    void play(bool forward, std::int16_t interval);
    void stop();
    void halt();
    void disableStop();

signals:
    // The history is about to be replaced: whatever holds on to it lets go before the open
    // empties it, so that nothing reads a history that no longer is.
    void replacing();
    // A replay was opened (or its load failed, keeping what it read).
    void opened(const QString& fileName, int eventCount);
    // The position moved: once per move, after all of its events and the map's redraw.
    void positionChanged(int position, int eventCount);
    void stepsEnabledChanged(bool backward, bool forward, bool stop);
    void playingChanged(bool playing);
    // The map was redrawn in another way of viewing.
    void viewModeChanged(trelvin::ViewMode mode);
    // A jump arrived at `position`; the events it applied again reported `messages`.
    void jumped(int position, const QStringList& messages);

private:
    std::unique_ptr<TaskProgress> progressFor(const char* task) const;

    SessionServices services_;
    ReplayCursor cursor_;
    QString fileName_;
    QString loadFailure_;
    Playback* playback_;
};

}  // namespace trelvin

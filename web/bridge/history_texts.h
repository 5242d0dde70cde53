#pragma once
// What the page's action list, timeline and charts read from the pass made at opening: the
// actions found by a filter and their texts, the timeline's marks and hover, the players'
// course lines and values, the CSV; all as the window's widgets read them.
#include <string>

#include <emscripten/val.h>

#include "display/action_filter.h"
#include "replay.h"

namespace trelvin::web {

// The rows of the action list over one opened replay; made anew for each replay opened.
class ActionRows {
public:
    explicit ActionRows(const Replay& replay);

    // The actions of kind `kind` (the list box's order), by or on the fields of `player` (an
    // index into the players' names; -1 for all), found by `search`.
    val shown(int kind, int player, const std::string& search) const;
    // Whether `search` is read as a field's name.
    static bool searchNamesField(const std::string& search);

    // One row: [time parts, keyword, summary, whether it reported a failure].
    val row(int event) const;
    std::string toolTip(int event) const;
    // The whole action: time, keyword, description, who played it and on whose field, messages;
    // null for an action the pass did not log (after a failed load).
    val detail(int event) const;
    val playerNames() const;

private:
    const ReplayCursor& cursor_;
    ActionFilter filter_;
};

// The list box's kinds, the charts' quantities, the licence's lines.
val KindCaptions();
val QuantityCaptions();
val LicenceText();

int Nearest(const Replay& replay, int kind, bool forward);
std::string PlayerCsv(const Replay& replay);

// The timeline's marks, one Int32Array a kind (hours, days, start, end of protection, captures,
// failures), and what resting the pointer on an action tells.
val TimelineMarks(const Replay& replay);
val TimelineHover(const Replay& replay, int event, int captures, int failures);
val EventTime(const Replay& replay, int event);

// The charts: whether the replay has them (else why not), the players, each one's lines of a
// quantity as {events, values, endsOut}, and a player's value at an action (null for none).
std::string ChartsMissing(const Replay& replay);
// The actions charted: those the pass recorded.
int ChartEvents(const Replay& replay);
int ChartPlayers(const Replay& replay);
std::string ChartPlayerEntry(const Replay& replay, int place);
val CourseLines(const Replay& replay, int place, int quantity);
val StandingAt(const Replay& replay, int event, int place, int quantity);

}  // namespace trelvin::web

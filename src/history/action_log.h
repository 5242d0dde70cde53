#pragma once
// Every event of a replay as applying it once from the first tells: its kind, the first line
// of its description, the messages it reported and whether a headquarters fell, so the views
// can list, mark and find events without re-applying anything.
#include <algorithm>
#include <string>
#include <vector>

#include "engine/event_outcome.h"
#include "model/action_table.h"
#include "model/date_time.h"
#include "model/world_state.h"

namespace trelvin {

struct LoggedEvent {
    DateTime time;
    std::string keyword;   // Windows-1250, as in the file
    Action action = Action::Other;
    std::string summary;   // the first line of the description
    std::string description;  // the whole description, its lines joined by CR LF
    std::string subjects;  // the fields and players it names, blank-separated
    std::vector<std::string> messages;  // what applying it reported, in order
    bool headquartersTaken = false;     // it took a headquarters
    bool startsAnHour = false;          // the first event of a new full hour
};

// Kinds of events, for narrowing the list and for the jumps between them.
enum class EventKind { All, Attacks, HeadquartersCaptures, Economy, Moves, Lifecycle, Failures };

class ActionLog {
public:
    // Notes event `index`, just applied to `world` in order from the first, and what it did.
    void record(const WorldState& world, int index, const EventOutcome& outcome);
    // Room for `events` records at once: a list grown step by step would hold two copies of itself
    // for a moment.
    void reserve(int events) { events_.reserve(static_cast<std::size_t>(std::max(events, 0))); }

    int size() const { return static_cast<int>(events_.size()); }
    // Event `index` (from 1).
    const LoggedEvent& event(int index) const { return events_.at(static_cast<std::size_t>(index - 1)); }

    bool isOfKind(int index, EventKind kind) const;

    // The nearest event of `kind` after (`forward`) or before `index`; 0 when there is none.
    int nearest(int index, EventKind kind, bool forward) const;

private:
    std::vector<LoggedEvent> events_;
};

}  // namespace trelvin

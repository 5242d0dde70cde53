#include "view/action_log.h"

#include <algorithm>

#include "engine/event_executor.h"

namespace trelvin {

namespace {

int playersInGame(const WorldState& world) {
    return static_cast<int>(std::count_if(world.players.begin() + 1, world.players.end(),
                                          [](const Player& p) { return p.playing; }));
}

std::string firstLine(const std::string& text) { return text.substr(0, text.find("\r\n")); }

}  // namespace

ActionLog ActionLog::Build(const WorldState& world) {
    ActionLog log;
    WorldState scratch = world;
    const int last = scratch.lastEventIndex();
    log.events_.reserve(static_cast<std::size_t>(std::max(last, 0)));
    for (int index = 1; index <= last; ++index) {
        RecordingReporter reporter;
        // Event 1 creates the world and empties the players; a later one can only remove them.
        const int before = index == 1 ? 0 : playersInGame(scratch);
        ExecuteEvent(scratch, static_cast<std::int16_t>(index), reporter);
        const ReplayEvent& applied = scratch.events[static_cast<std::size_t>(index)];
        LoggedEvent& entry = log.events_.emplace_back();
        entry.time = applied.time;
        entry.keyword = applied.action;
        entry.action = ActionOf(applied.action);
        entry.summary = firstLine(scratch.actionText);
        entry.subjects = applied.place + " " + applied.target + " " + applied.playerName;
        entry.messages = std::move(reporter.texts);
        entry.headquartersTaken = playersInGame(scratch) < before;
        entry.startsAnHour = index == 1 || applied.time.fullHour() !=
                                               scratch.events[static_cast<std::size_t>(index - 1)].time.fullHour();
    }
    return log;
}

bool ActionLog::isOfKind(int index, EventKind kind) const {
    const LoggedEvent& e = event(index);
    switch (kind) {
        case EventKind::All: return true;
        case EventKind::Attacks: return e.action == Action::Attack;
        case EventKind::HeadquartersCaptures: return e.headquartersTaken;
        case EventKind::Economy:
            return e.action == Action::Buy || e.action == Action::ConvertGround ||
                   e.action == Action::Trade || e.action == Action::Retreat;
        case EventKind::Moves: return e.action == Action::Move;
        case EventKind::Lifecycle:
            return e.action == Action::CreateWorld || e.action == Action::CreateHq ||
                   e.action == Action::Start || e.action == Action::AddRounds ||
                   e.action == Action::EndHoldFire || e.action == Action::End;
        case EventKind::Failures: return !e.messages.empty();
    }
    return false;
}

int ActionLog::nearest(int index, EventKind kind, bool forward) const {
    const int step = forward ? 1 : -1;
    for (int i = forward ? std::max(index + 1, 1) : std::min(index - 1, size()); i >= 1 && i <= size();
         i += step)
        if (isOfKind(i, kind)) return i;
    return 0;
}

}  // namespace trelvin

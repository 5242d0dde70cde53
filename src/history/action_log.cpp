#include "history/action_log.h"

#include <algorithm>

namespace trelvin {

namespace {

std::string firstLine(const std::string& text) { return text.substr(0, text.find("\r\n")); }

}  // namespace

void ActionLog::record(const WorldState& world, int index, const EventOutcome& outcome) {
    const ReplayEvent& applied = world.events[static_cast<std::size_t>(index)];
    LoggedEvent& entry = events_.emplace_back();
    entry.time = applied.time;
    entry.keyword = applied.keyword;
    entry.action = applied.action;
    entry.summary = firstLine(world.actionText);
    entry.description = world.actionText;
    entry.subjects = applied.place + " " + applied.target + " " + applied.playerName;
    entry.messages = outcome.messages;
    entry.headquartersTaken = outcome.tookHeadquarters();
    entry.startsAnHour = index == 1 || applied.time.fullHour() !=
                                           world.events[static_cast<std::size_t>(index - 1)].time.fullHour();
}

bool ActionLog::isOfKind(int index, EventKind kind) const {
    const LoggedEvent& e = event(index);
    const ActionFamily family = InfoOf(e.action).family;
    switch (kind) {
        case EventKind::All: return true;
        case EventKind::Attacks: return family == ActionFamily::Attack;
        case EventKind::HeadquartersCaptures: return e.headquartersTaken;
        case EventKind::Economy: return family == ActionFamily::Economy;
        case EventKind::Moves: return family == ActionFamily::Move;
        case EventKind::Lifecycle: return family == ActionFamily::Lifecycle;
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

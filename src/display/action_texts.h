#pragma once
// What the action list, its detail area and the timeline's hover say of the logged actions, as
// UTF-8 texts; a description's lines end in "\n". Dates are the front end's, in its user's way.
#include <array>
#include <string>
#include <vector>

#include "history/action_log.h"
#include "history/action_players.h"

namespace trelvin {

// The kinds the list narrows to, in the order of its box, with their captions.
struct KindChoice {
    const char* caption;
    EventKind kind;
};
inline constexpr std::array<KindChoice, 7> kKindChoices{{
    {"Vse", EventKind::All},
    {"Utoky", EventKind::Attacks},
    {"Dobyti veleni", EventKind::HeadquartersCaptures},
    {"Ekonomika", EventKind::Economy},
    {"Presuny", EventKind::Moves},
    {"Prubeh hry", EventKind::Lifecycle},
    {"Chyby", EventKind::Failures},
}};

// The whole description, then each message: a row's tooltip.
std::string ActionToolTip(const LoggedEvent& event);

// The player of an index into the names the actions concern.
std::string PlayerNameText(const ActionPlayers& players, int player);

// Who played action `event` and on whose field it was, when another's: "Hrac: Karel",
// "Na poli hrace: Jana".
std::vector<std::string> WhoTexts(const ActionPlayers& players, int event);

// The action's keyword and family, and what else it was: "attack (utok), dobyti veleni".
std::string KindText(const LoggedEvent& event);

// What resting the pointer over action `event` of `eventCount` on the timeline tells, a line each:
// its number (the front end adds its date and time), kind and summary, and where several
// actions share the place, what the marks there stand for.
std::vector<std::string> TimelineHoverLines(const ActionLog& log, int event, int eventCount, int captures,
                                            int failures);

}  // namespace trelvin

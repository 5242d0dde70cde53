#include "display/action_texts.h"

#include "display/shown_text.h"
#include "model/text_encoding.h"

namespace trelvin {

namespace {

const char* familyName(ActionFamily family) {
    switch (family) {
        case ActionFamily::Lifecycle: return "prubeh hry";
        case ActionFamily::Attack: return "utok";
        case ActionFamily::Move: return "presun";
        case ActionFamily::Economy: return "ekonomika";
        case ActionFamily::None: break;
    }
    return "akce bez pravidla";
}

}  // namespace

std::string ActionToolTip(const LoggedEvent& event) {
    std::string tip = ShownText(event.description);
    for (const std::string& message : event.messages) tip += "\n" + ShownText(message);
    return tip;
}

std::string PlayerNameText(const ActionPlayers& players, int player) {
    return cp1250ToUtf8(players.names().at(static_cast<std::size_t>(player)));
}

std::vector<std::string> WhoTexts(const ActionPlayers& players, int event) {
    std::vector<std::string> who;
    if (event < 1 || event > players.size()) return who;
    const int actor = players.actor(event), reached = players.reached(event);
    if (actor != ActionPlayers::kNobody) who.push_back("Hrac: " + PlayerNameText(players, actor));
    if (reached != ActionPlayers::kNobody && reached != actor)
        who.push_back("Na poli hrace: " + PlayerNameText(players, reached));
    return who;
}

std::string KindText(const LoggedEvent& event) {
    std::string kind = cp1250ToUtf8(event.keyword) + " (" + familyName(InfoOf(event.action).family) + ")";
    if (event.headquartersTaken) kind += ", dobyti veleni";
    if (!event.messages.empty()) kind += ", hlasila chybu";
    return kind;
}

std::vector<std::string> TimelineHoverLines(const ActionLog& log, int event, int eventCount, int captures,
                                            int failures) {
    std::vector<std::string> lines{"Akce " + std::to_string(event) + " z " + std::to_string(eventCount)};
    if (event < 1 || event > log.size()) return lines;
    const LoggedEvent& logged = log.event(event);
    lines.push_back("Druh: " + KindText(logged));
    lines.push_back(ShownText(logged.summary));
    if (captures + failures > 1)
        lines.push_back("Na tomto miste osy: " + std::to_string(captures) + " dobyti veleni, " +
                        std::to_string(failures) + " akci s chybou");
    return lines;
}

}  // namespace trelvin

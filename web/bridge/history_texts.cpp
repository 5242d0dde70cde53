#include "history_texts.h"

#include <algorithm>

#include "display/action_texts.h"
#include "display/course_texts.h"
#include "display/licence_text.h"
#include "display/shown_text.h"
#include "display/timeline_marks.h"
#include "history/course_lines.h"
#include "history/player_csv.h"
#include "js_values.h"
#include "model/text_encoding.h"

namespace trelvin::web {

namespace {

val Int32s(const std::vector<int>& numbers) {
    return val::global("Int32Array").call<val>("from", val(emscripten::typed_memory_view(numbers.size(), numbers.data())));
}

const ActionLog& logOf(const Replay& replay) { return replay.cursor().history().log; }

bool logged(const Replay& replay, int event) { return event >= 1 && event <= logOf(replay).size(); }

Quantity quantityAt(int index) {
    return kQuantityChoices[static_cast<std::size_t>(std::clamp<int>(index, 0, kQuantityChoices.size() - 1))].quantity;
}

}  // namespace

ActionRows::ActionRows(const Replay& replay)
    : cursor_(replay.cursor()), filter_(&cursor_.history().log, &cursor_.history().players) {}

val ActionRows::shown(int kind, int player, const std::string& search) const {
    const EventKind chosen = kKindChoices[static_cast<std::size_t>(std::clamp<int>(kind, 0, kKindChoices.size() - 1))].kind;
    return Int32s(filter_.shown(chosen, player < 0 ? ActionPlayers::kNobody : player, ActionSearch(search)));
}

bool ActionRows::searchNamesField(const std::string& search) { return ActionSearch(search).namesField(); }

val ActionRows::row(int event) const {
    const LoggedEvent& e = cursor_.history().log.event(event);
    val row = val::array();
    row.call<void>("push", TimeParts(e.time));
    row.call<void>("push", cp1250ToUtf8(e.keyword));
    row.call<void>("push", ShownText(e.summary));
    row.call<void>("push", !e.messages.empty());
    return row;
}

std::string ActionRows::toolTip(int event) const { return ActionToolTip(cursor_.history().log.event(event)); }

val ActionRows::detail(int event) const {
    if (event < 1 || event > cursor_.history().log.size()) return val::null();
    const LoggedEvent& e = cursor_.history().log.event(event);
    std::vector<std::string> messages;
    for (const std::string& message : e.messages) messages.push_back(ShownText(message));
    val detail = val::object();
    detail.set("time", TimeParts(e.time));
    detail.set("keyword", cp1250ToUtf8(e.keyword));
    detail.set("description", ShownText(e.description));
    detail.set("who", Strings(WhoTexts(cursor_.history().players, event)));
    detail.set("messages", Strings(messages));
    return detail;
}

val ActionRows::playerNames() const {
    const ActionPlayers& players = cursor_.history().players;
    std::vector<std::string> names;
    for (int i = 0; i < static_cast<int>(players.names().size()); ++i) names.push_back(PlayerNameText(players, i));
    return Strings(names);
}

val KindCaptions() {
    std::vector<std::string> captions;
    for (const KindChoice& choice : kKindChoices) captions.emplace_back(choice.caption);
    return Strings(captions);
}

val QuantityCaptions() {
    std::vector<std::string> captions;
    for (const QuantityChoice& choice : kQuantityChoices) captions.emplace_back(choice.caption);
    return Strings(captions);
}

val LicenceText() {
    val text = val::object();
    text.set("version", std::string(TRELVIN_VERSION));
    text.set("purpose", std::string(kProgramPurpose));
    text.set("lines", Strings(LicenceLines()));
    return text;
}

int Nearest(const Replay& replay, int kind, bool forward) {
    return logOf(replay).nearest(replay.position(), static_cast<EventKind>(kind), forward);
}

std::string PlayerCsv(const Replay& replay) {
    const ReplayHistory& history = replay.cursor().history();
    if (!history.series.complete()) return {};
    std::string out;
    WritePlayerCsv(history, replay.actionsRead(), [&out](std::string_view rows) { out += rows; });
    return out;
}

val TimelineMarks(const Replay& replay) {
    const trelvin::TimelineMarks marks = TimelineMarksOf(logOf(replay), replay.actionsRead());
    val kinds = val::array();
    for (const std::vector<int>& events : marks) kinds.call<void>("push", Int32s(events));
    return kinds;
}

val TimelineHover(const Replay& replay, int event, int captures, int failures) {
    return Strings(TimelineHoverLines(logOf(replay), event, replay.actionsRead(), captures, failures));
}

val EventTime(const Replay& replay, int event) {
    return logged(replay, event) ? TimeParts(logOf(replay).event(event).time) : val::null();
}

std::string ChartsMissing(const Replay& replay) {
    return replay.cursor().history().series.complete() ? std::string() : ChartsMissingText();
}

int ChartEvents(const Replay& replay) {
    const ReplayHistory& history = replay.cursor().history();
    return std::max(0, std::min({replay.actionsRead(), history.log.size(), history.series.eventCount()}));
}

int ChartPlayers(const Replay& replay) {
    const PlayerSeries& series = replay.cursor().history().series;
    return series.complete() ? series.placeCount() : 0;
}

std::string ChartPlayerEntry(const Replay& replay, int place) {
    return PlayerEntryText(replay.cursor().history().series.lastHolder(place));
}

val CourseLines(const Replay& replay, int place, int quantity) {
    val lines = val::array();
    const PlayerSeries& series = replay.cursor().history().series;
    for (const CourseLine& line : CourseLinesOf(series, place, quantityAt(quantity), ChartEvents(replay))) {
        std::vector<int> events, values;
        for (const CoursePoint& point : line.points) {
            events.push_back(point.event);
            values.push_back(point.value);
        }
        val drawn = val::object();
        drawn.set("events", Int32s(events));
        drawn.set("values", Int32s(values));
        drawn.set("endsOut", line.endsOut);
        lines.call<void>("push", drawn);
    }
    return lines;
}

val StandingAt(const Replay& replay, int event, int place, int quantity) {
    if (event < 1 || event > ChartEvents(replay)) return val::null();
    const std::optional<PlayerSeries::Entry> entry = replay.cursor().history().series.at(event, place);
    if (!entry) return val::null();
    return Strings({PlayerEntryText(*entry->who), StandingText(entry->standing, quantityAt(quantity))});
}

}  // namespace trelvin::web

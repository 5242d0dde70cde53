#include "history/player_csv.h"

#include <algorithm>
#include <vector>

#include "history/replay_history.h"
#include "model/text_encoding.h"

namespace trelvin {

namespace {

void appendText(std::string& out, std::string_view cp1250) {
    const std::string text = cp1250ToUtf8(cp1250);
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        out += text;
        return;
    }
    out += '"';
    for (const char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    out += '"';
}

void appendNumber(std::string& out, std::int64_t value) {
    out += std::to_string(value);
    out += ',';
}

}  // namespace

void AppendPlayerCsvRow(std::string& out, int event, const DateTime& time, const PlayerIdentity& who,
                        const Standing& standing) {
    appendNumber(out, event);
    out += time.iso();
    out += ',';
    appendText(out, who.name);
    out += ',';
    appendText(out, who.side);
    out += ',';
    for (const Quantity quantity : {Quantity::Moves, Quantity::Nectar, Quantity::NectarPerHour, Quantity::Territory,
                                    Quantity::ArmyUnits})
        appendNumber(out, standing.value(quantity));
    appendText(out, who.hqField);
    out += standing.playing ? ",1\r\n" : ",0\r\n";
}

void WritePlayerCsv(const ReplayHistory& history, int lastEvent, const std::function<void(std::string_view)>& write) {
    write(kPlayerCsvHeader);
    const PlayerSeries& series = history.series;
    const int last = std::min({lastEvent, series.eventCount(), history.log.size()});
    // Each place's change in force, found by walking its changes along with the events.
    std::vector<std::size_t> inForce(static_cast<std::size_t>(series.placeCount()), 0);
    std::string rows;
    for (int event = 1; event <= last; ++event) {
        rows.clear();
        for (int place = 1; place <= series.playersAfter(event); ++place) {
            const std::vector<PlayerSeries::Change>& changes = series.changesOf(place);
            std::size_t& current = inForce[static_cast<std::size_t>(place - 1)];
            while (current + 1 < changes.size() && changes[current + 1].event <= event) ++current;
            const PlayerSeries::Change& change = changes[current];
            AppendPlayerCsvRow(rows, event, history.log.event(event).time, series.identity(change.who), change.standing);
        }
        write(rows);
    }
}

}  // namespace trelvin

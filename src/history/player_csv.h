#pragma once
// The players' course as CSV for spreadsheets and scripts: UTF-8, a header row, then one row per
// event and player (events in order, players in table order), rows ending in CR LF and fields
// quoted where they hold a comma, a quote or a line break, as RFC 4180 has it.
#include <functional>
#include <string>
#include <string_view>

#include "history/player_series.h"
#include "model/date_time.h"

namespace trelvin {

struct ReplayHistory;

inline constexpr std::string_view kPlayerCsvHeader =
    "index,time,player,side,moves,nectar,nectarPerHour,territory,armyUnits,hqField,playing\r\n";

// Appends the row of one player after event `event` (names in Windows-1250).
void AppendPlayerCsvRow(std::string& out, int event, const DateTime& time, const PlayerIdentity& who,
                        const Standing& standing);

// Hands the CSV of events 1 .. `lastEvent` from the history recorded at opening to `write`, the
// header first and then an event's rows at a time. The history's series must be complete.
void WritePlayerCsv(const ReplayHistory& history, int lastEvent, const std::function<void(std::string_view)>& write);

}  // namespace trelvin

// The page's way into the core, through embind: the Replay over the replay cursor, the rows of
// its action list, and what its timeline and charts read.
#include <emscripten/bind.h>

#include "history_texts.h"
#include "replay.h"

using namespace trelvin::web;

EMSCRIPTEN_BINDINGS(trelvin_core) {
    emscripten::class_<Replay>("Replay")
        .constructor<>()
        .function("open", &Replay::open)
        .function("first", &Replay::first)
        .function("back", &Replay::back)
        .function("forward", &Replay::forward)
        .function("last", &Replay::last)
        .function("jumpTo", &Replay::jumpTo)
        .function("updateButtons", &Replay::updateButtons)
        .function("position", &Replay::position)
        .function("eventCount", &Replay::eventCount)
        .function("actionsRead", &Replay::actionsRead)
        .function("failedLoadText", &Replay::failedLoadText)
        .function("setViewMode", &Replay::setViewMode)
        .function("pictures", &Replay::pictures)
        .function("marks", &Replay::marks)
        .function("description", &Replay::description)
        .function("positionText", &Replay::positionText)
        .function("time", &Replay::time)
        .function("clock", &Replay::clock)
        .function("fieldName", &Replay::fieldName)
        .function("inspectField", &Replay::inspectField)
        .function("playerEntries", &Replay::playerEntries)
        .function("playerStanding", &Replay::playerStanding)
        .function("nearest", &Nearest)
        .function("csv", &PlayerCsv)
        .function("timelineMarks", &TimelineMarks)
        .function("timelineHover", &TimelineHover)
        .function("eventTime", &EventTime)
        .function("chartsMissing", &ChartsMissing)
        .function("chartEvents", &ChartEvents)
        .function("chartPlayers", &ChartPlayers)
        .function("chartPlayerEntry", &ChartPlayerEntry)
        .function("courseLines", &CourseLines)
        .function("standingAt", &StandingAt);
    emscripten::class_<ActionRows>("ActionRows")
        .constructor<const Replay&>()
        .function("shown", &ActionRows::shown)
        .function("row", &ActionRows::row)
        .function("toolTip", &ActionRows::toolTip)
        .function("detail", &ActionRows::detail)
        .function("playerNames", &ActionRows::playerNames)
        .class_function("searchNamesField", &ActionRows::searchNamesField);
    emscripten::function("kindCaptions", &KindCaptions);
    emscripten::function("quantityCaptions", &QuantityCaptions);
    emscripten::function("licenceText", &LicenceText);
}

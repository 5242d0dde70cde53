// Every player's standing as the pass at opening records it, against the world stepped by the
// engine to each event: the values, who holds each place, the lines of the charts and the CSV.
#include <gtest/gtest.h>

#include "history/course_lines.h"
#include "history/player_csv.h"
#include "history/replay_history.h"
#include "model/field_addressing.h"
#include "support/generated_lines.h"
#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

std::vector<std::pair<const char*, std::string>> Replays() {
    const GeneratorOptions options{12, 10, 4, 1200, 5};
    // Failing actions, captured headquarters, a second player of an existing name, a player
    // joining late, and the world created again in the middle, which empties the player table.
    GeneratedLines hostile(options);
    hostile.insertEvery(61, {"move;A0;Z99;5", "attack;A0;B0;5;1;3", "buy;A4;Hovado;30000", "trade;Nikdo;Hrac1;7",
                             "buy;;Hovado;5", "create_hq;Hrac2;louka;E5", "end;louka", "retreat;C3;9"});
    hostile.insert(hostile.lines.size() / 2, hostile.lines[1].substr(20));
    hostile.append("create_hq;Pozdni;les;B2");
    // The first player in the table loses the headquarters and leaves.
    const std::string firstOut = "0;Dobyti;2;2;1;3\r\n2004-06-19-08-00-00;create_world;NN\r\n"
                                 "2004-06-19-08-10-00;create_hq;Karel;les;A0\r\n2004-06-19-08-20-00;create_hq;Jana;louka;B0\r\n"
                                 "2004-06-19-08-30-00;attack;B0;A0;1;1;1\r\n";
    return {{"generated", GeneratedLines(options).text()}, {"hostile", hostile.text()}, {"the first out", firstOut}};
}

// The units on the fields whose owner's name finds player `place`.
std::int32_t ArmyUnitsOf(const WorldState& world, int place) {
    std::int32_t units = 0;
    const int fields = std::min(world.fieldCount(), world.lastTileIndex());
    for (int k = 1; k <= fields; ++k) {
        const Tile& tile = world.tiles[std::size_t(k)];
        if (!tile.owner.empty() && PlayerIndex(world, tile.owner) == place) units += tile.armyCount;
    }
    return units;
}

// The value a player's chart lines show at `event`; none where no line stands.
std::optional<std::int32_t> LineValueAt(const std::vector<CourseLine>& lines, int event, int lastEvent) {
    for (const CourseLine& line : lines) {
        const int first = line.points.front().event, last = line.points.back().event;
        const bool reachesTheEnd = last == lastEvent && !line.endsOut;
        if (event < first || event > last || (event == last && !reachesTheEnd)) continue;
        std::int32_t value = 0;
        for (const CoursePoint& point : line.points)
            if (point.event <= event) value = point.value;
        return value;
    }
    return std::nullopt;
}

TEST(PlayerSeriesTest, EveryPlayerAfterEveryEventIsTheWorldsPlayer) {
    for (const auto& [name, replay] : Replays()) {
        SCOPED_TRACE(name);
        WorldState w;
        Load(w, replay);
        const ReplayHistory history = ReplayHistory::Build(w);
        const PlayerSeries& series = history.series;
        ASSERT_TRUE(series.complete());
        ASSERT_EQ(series.eventCount(), w.eventCount);
        std::vector<std::vector<CourseLine>> nectarLines;
        for (int place = 1; place <= series.placeCount(); ++place)
            nectarLines.push_back(CourseLinesOf(series, place, Quantity::Nectar, w.eventCount));
        std::string expectedCsv(kPlayerCsvHeader);
        for (int event = 1; event <= w.eventCount; ++event) {
            ExecuteEvent(w, std::int16_t(event));
            SCOPED_TRACE(event);
            ASSERT_EQ(series.playersAfter(event), w.lastPlayerIndex());
            EXPECT_FALSE(series.at(event, w.lastPlayerIndex() + 1));
            for (int place = 1; place <= w.lastPlayerIndex(); ++place) {
                const std::optional<PlayerSeries::Entry> entry = series.at(event, place);
                ASSERT_TRUE(entry);
                const Player& player = w.players[std::size_t(place)];
                EXPECT_EQ(std::tuple(entry->who->name, entry->who->side, entry->who->hqField),
                          std::tuple(player.name, player.side, player.hqField));
                const Standing standing = StandingOf(player, ArmyUnitsOf(w, place));
                EXPECT_EQ(entry->standing, standing);
                EXPECT_EQ(LineValueAt(nectarLines[std::size_t(place - 1)], event, w.eventCount),
                          standing.playing ? std::optional(standing.nectar) : std::nullopt);
                AppendPlayerCsvRow(expectedCsv, event, history.log.event(event).time,
                                   {player.name, player.side, player.hqField}, standing);
            }
        }
        // A line ends with the mark of a player who left exactly where the player stopped playing.
        for (int place = 1; place <= series.placeCount(); ++place)
            for (const CourseLine& line : nectarLines[std::size_t(place - 1)]) {
                const std::optional<PlayerSeries::Entry> atItsEnd = series.at(line.points.back().event, place);
                EXPECT_EQ(line.endsOut, atItsEnd && !atItsEnd->standing.playing) << place;
            }
        std::string csv;
        WritePlayerCsv(history, w.eventCount, [&](std::string_view piece) { csv += piece; });
        EXPECT_EQ(csv, expectedCsv);
    }
}

// A name holding a comma, a quote or a line break comes back whole from any CSV reader.
TEST(PlayerCsvTest, QuotesTheTextsThatNeedIt) {
    std::string row;
    AppendPlayerCsvRow(row, 7, *DateTime::fromParts(2004, 6, 19, 8, 0, 5), {"Ha,n\xE8\" a", "les", "A0"},
                       {500, 3, 15, 12, 1, true});
    EXPECT_EQ(row, "7,2004-06-19T08:00:05,\"Ha,n\xC4\x8D\"\" a\",les,15,500,12,1,3,A0,1\r\n");
}

}  // namespace
}  // namespace trelvin

// Loading replays: header values, the events of each line and the events the loader inserts;
// and loads that fail: one message, the load stops where it was, nothing is rolled back.
#include <gtest/gtest.h>

#include <algorithm>
#include <new>

#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

// Every operand of an event on one line, so a wrong slot shows at once.
std::string operands(const ReplayEvent& e) {
    return e.place + "|" + e.target + "|" + std::to_string(e.amount) + "|" + (e.success ? "1" : "0") +
           "|" + std::to_string(e.survivors) + "|" + e.playerName + "|" + e.armyType;
}

// The rest of what Alfa loads to is pinned by the dump's golden file.
TEST(ReplayLoader, AlfaGetsItsStartAsEvent4AndItsEndAsEvent7) {
    WorldState w;
    ASSERT_TRUE(Load(w, kAlfa).empty());
    EXPECT_EQ(Actions(w), "create_world create_hq create_hq start buy attack end");
    EXPECT_EQ(operands(w.events[4]) + " " + operands(w.events[7]), "||0|0|0|| ||0|0|0||");
}

TEST(ReplayLoader, EachKeywordFillsItsOwnFields) {
    WorldState w;
    ASSERT_TRUE(Load(w, "x; World ;9;4;4;2;extra\r\n"
                        "  2004-06-19-08-00-00 ;  attack ; A0 ; B 0 ;12abc;0.4;3x;more  \r\n"
                        "2004-06-19-08-00-00;attack;A0;B0;1;0.6;\r\n"
                        "2004-06-19-08-00-00;move;A0;B0; 7 \r\n"
                        "2004-06-19-08-00-00;trade;Karel;Jana;-100\r\n"
                        "2004-06-19-08-00-00;retreat;B2;3\r\n"
                        "2004-06-19-08-00-00;buy;C3;Kom\xE1r;4.5abc\r\n"
                        "2004-06-19-08-00-00;convert_gnd;C3;N\r\n"
                        "2004-06-19-08-00-00;create_hq;Jana;louka;C1\r\n"
                        "2004-06-19-08-00-00;end;les\r\n"
                        "2004-06-19-08-00-00;fly;A0;B0;5;1;1;x;y\r\n")
                    .empty());
    EXPECT_EQ(w.worldName, " World ");  // header fields are taken as they are
    const std::vector<std::string> expected = {
        "A0|B 0|12|0|3||", "A0|B0|1|1|0||", "A0|B0|7|0|0||",        "Karel|Jana|-100|0|0||", "B2||3|0|0||",
        "C3||4|0|0||Kom\xE1r", "C3|N|0|0|0||", "C1|louka|0|0|0|Jana|", "||0|0|0|les|", "||0|0|0||"};
    ASSERT_EQ(w.eventCount, 10);  // an "end" line that is not last gets no end after it
    for (int i = 1; i <= 10; ++i) EXPECT_EQ(operands(w.events[i]), expected[i - 1]) << i;
}

TEST(ReplayLoader, TimeStampsAreDayFirstWithTheSwapWhenInvalid) {
    WorldState w;
    // Stamps of other lengths than 19 take the general rules, whose pieces hold up to nine
    // digits; in 1987 every digit of the year counts.
    ASSERT_TRUE(Load(w, "0;A;9;1;1;1\n2004-06-05-01-02-03;fly\n2004-19-06-23-59-59;fly\n"
                        "2004 - 6 - 7 - 8 - 9 -10;fly\n2004-29-02-12-00-00-99-x;fly\n1987-05-06-01-02-03;fly\n"
                        "2004-06-19-08-00-5;fly\n2004-06-19-08-00-001;fly\n000001987-05-06-01-02-000000003;fly\n")
                    .empty());
    std::string times;
    for (int i = 1; i <= w.eventCount; ++i) times += w.events[i].time.iso() + " ";
    EXPECT_EQ(times, "2004-05-06T01:02:03 2004-06-19T23:59:59 2004-07-06T08:09:10 2004-02-29T12:00:00 "
                     "1987-06-05T01:02:03 2004-06-19T08:00:05 2004-06-19T08:00:01 1987-06-05T01:02:03 ");
}

TEST(ReplayLoader, AddRoundsCoversEveryFullHourUpToTheLine) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"10-25-30", "13-10-00", "add_rounds 3 2004-06-19T13:00:00"},
        {"10-59-59", "11-00-00", "add_rounds 1 2004-06-19T11:00:00"},
        {"10-00-00", "10-59-59", "none"},
        {"10-30-00", "10-20-00", "none"},  // a line back in time
    };
    for (const auto& [first, second, inserted] : cases) {
        WorldState w;  // limit 0: the world starts at once
        ASSERT_TRUE(Load(w, "0;A;0;1;1;1\n2004-06-19-08-00-00;create_world;N\n2004-06-19-" +
                                std::string(first) + ";fly\n2004-06-19-" + second + ";fly\n").empty());
        const ReplayEvent& e = w.events[4];
        EXPECT_EQ(w.eventCount == 4 ? "none" : e.keyword + " " + std::to_string(e.amount) + " " + e.time.iso(),
                  inserted) << first << " " << second;
    }
}

TEST(ReplayLoader, StartIsInsertedOnceTheRosterIsFull) {
    WorldState w;  // limit 0: the start comes before the second line, dated like the first
    ASSERT_TRUE(Load(w, "0;A;0;2;1;3\n2004-06-19-08-00-00;create_world;NN\n2004-06-19-08-30-00;fly\n").empty());
    EXPECT_EQ(Actions(w), "create_world start fly");
    EXPECT_EQ(w.events[2].time.iso(), "2004-06-19T08:00:00");
    ASSERT_TRUE(Load(w, "0;A;1;2;1;3\n2004-06-19-08-00-00;create_world;NN\n"
                        "2004-06-19-08-01-00;create_hq;K;les;A0\n2004-06-19-08-02-00;start\n").empty());
    EXPECT_EQ(Actions(w), "create_world create_hq start");  // the start line replaces the inserted one
    ASSERT_TRUE(Load(w, "0;A;9;2;1;3\n2004-06-19-08-00-00;start\n2004-06-19-10-00-00;fly\n"
                        "2004-06-19-12-00-00;fly\n").empty());
    EXPECT_EQ(Actions(w), "start fly add_rounds fly");  // the hourly check needs two events
}

TEST(ReplayLoader, ProtectionEndsADayAfterTheLastStartAfterTheRounds) {
    WorldState w;
    ASSERT_TRUE(Load(w, "0;A;1;2;1;3\n2004-06-19-08-00-00;create_world;NN\n2004-06-19-08-00-30;start\n"
                        "2004-06-19-09-10-00;create_hq;K;les;A0\n2004-06-20-12-00-00;fly\n"
                        "2004-06-22-12-00-00;fly\n").empty());
    EXPECT_EQ(Actions(w), "create_world start add_rounds create_hq start add_rounds end_hld_fire fly "
                          "add_rounds fly");
    EXPECT_EQ(w.events[7].time.iso(), "2004-06-20T09:10:00");  // earlier than the rounds before it
    EXPECT_EQ(std::tuple(w.events[6].amount, w.events[9].amount), std::tuple(27, 48));
    // A start line sets the day too; a line at the very second the day is over does not end it.
    ASSERT_TRUE(Load(w, "0;A;9;1;1;1\n2004-06-19-08-00-00;start\n2004-06-20-08-00-00;fly\n"
                        "2004-06-20-08-00-01;fly\n").empty());
    EXPECT_EQ(Actions(w), "start fly end_hld_fire fly");
    EXPECT_EQ(w.events[3].time.iso(), "2004-06-20T08:00:00");
}

TEST(ReplayLoader, LineEndsBlankLinesAndUtf8ChangeNothing) {
    // Line ends of each kind, also across the pieces a file is read in, are the next test's.
    std::string blanks = kAlfa;
    blanks.insert(blanks.find("2004-06-19-09-05"), "\r\n   \r\n\r\r\n");
    for (const std::string& file : {blanks, kAlfa.substr(0, kAlfa.size() - 2)}) {
        WorldState w;
        ASSERT_TRUE(Load(w, file).empty());
        EXPECT_EQ(std::tuple(w.eventCount, w.events[6].survivors), std::tuple(7, 3));
    }
    WorldState w;
    ASSERT_TRUE(Load(w, "0;Sv\xC4\x9Bt;2;3;2;3\n2004-06-19-08-00-00;buy;A0;Vosi\xC4\x8Dka;4\n").empty());
    EXPECT_EQ(w.worldName + w.events[1].armyType, "Sv\xECtVosi\xE8ka");
    ASSERT_TRUE(Load(w, "\xEF\xBB\xBF" "0;Alfa;2;3;2;3").empty());  // a header alone loads
    EXPECT_EQ(w.worldName + std::to_string(w.lastEventIndex()), "Alfa0");
}

// A source may hand out fewer bytes than asked for; here at most `piece` a read.
class TrickleSource : public ReplaySource {
public:
    TrickleSource(std::string_view text, std::size_t piece) : text_(text), piece_(piece) {}
    std::size_t read(char* buffer, std::size_t capacity) override {
        return text_.read(buffer, std::min(capacity, piece_));
    }
    void rewind() override { text_.rewind(); }
    std::uint64_t size() const override { return text_.size(); }

private:
    ReplayText text_;
    std::size_t piece_;
};

TEST(ReplayLoader, LinesComeOutTheSameWhateverPiecesTheSourceHandsOut) {
    // Over these piece sizes every kind of line end meets a piece boundary before, inside and
    // after it, after every other kind.
    const std::string file = "0;A;9;2;1;1\r\n2004-06-19-08-00-00;buy;A0;Kom\xE1r;4\r2004-06-19-08-01-00;move;A0;B0;3\n"
                             "\r\n2004-06-19-08-02-00;retreat;B0;2\r\n\n2004-06-19-08-03-00;trade;K;J;5\r\r"
                             "2004-06-19-08-04-00;convert_gnd;B0;S\n2004-99-99-00-00-00;fly\r\n";
    for (std::size_t piece = 1; piece <= 24; ++piece) {
        WorldState w;
        TrickleSource source(file, piece);
        const LoadOutcome outcome = LoadReplay(w, source);
        std::string events;
        for (int i = 1; i <= w.lastEventIndex(); ++i) events += w.events[i].keyword + ":" + operands(w.events[i]) + " ";
        EXPECT_EQ(events, "buy:A0||4|0|0||Kom\xE1r move:A0|B0|3|0|0|| retreat:B0||2|0|0|| trade:K|J|5|0|0|| "
                          "convert_gnd:B0|S|0|0|0|| ") << piece;
        EXPECT_EQ(outcome.failure, std::string(kLoadFailure) + "radek 10: casovy udaj '2004-99-99-00-00-00' neni platne datum")
            << piece;
        EXPECT_EQ(outcome.line, 10);
    }
}

TEST(ReplayLoader, ProgressHearsTheBytesReadAfterEveryPiece) {
    struct Recorder : TaskProgress {
        std::vector<std::uint64_t> done, totals;
        bool keepGoing(std::uint64_t d, std::uint64_t total) override {
            if (done.empty() || done.back() != d) done.push_back(d);
            totals.push_back(total);
            return true;
        }
    } progress;
    std::string file = "0;A;9;1;1;1\n2004-06-19-08-00-00;fly;";
    file.resize(100000, 'x');
    ReplayText source(file);
    WorldState w;
    ASSERT_TRUE(LoadReplay(w, source, &progress).succeeded());
    // The pass that decides the encoding reports none; the loading pass the bytes so far.
    EXPECT_EQ(progress.done, (std::vector<std::uint64_t>{0, 65536, 100000}));
    EXPECT_EQ(std::count(progress.totals.begin(), progress.totals.end(), 100000u), std::ssize(progress.totals));
}

TEST(ReplayLoader, TheWholeFileDecidesItsEncoding) {
    // Windows-1250 names that happen to be valid UTF-8: "MÍŠA" holds U+034A, "Tomáš" and a
    // no-break space U+16A0, "ČŠ" U+020A.
    const std::string lines = "0;Alfa;2;3;2;3\r\n2004-06-19-08-00-00;create_world;NNBSXN\r\n"
                              "2004-06-19-08-10-00;create_hq;M\xCD\x8A" "A;les;A0\r\n"
                              "2004-06-19-08-20-30;create_hq;Tom\xE1\x9A\xA0;louka;C1\r\n"
                              "2004-06-19-09-05-00;buy;A0;\xC8\x8A;4\r\n";
    const auto names = [](const WorldState& w) {
        return std::vector<std::string>{w.events[2].playerName, w.events[3].playerName, w.events[5].armyType};
    };
    WorldState w;
    ASSERT_TRUE(Load(w, lines + "2004-06-19-09-40-00;buy;A0;Vosi\xE8ka;4\r\n").empty());
    EXPECT_EQ(names(w), (std::vector<std::string>{"M\xCD\x8A" "A", "Tom\xE1\x9A\xA0", "\xC8\x8A"}));
    // Without that last line every byte is valid UTF-8: the file reads as UTF-8, and characters
    // Windows-1250 lacks become "?".
    ASSERT_TRUE(Load(w, lines).empty());
    EXPECT_EQ(names(w), (std::vector<std::string>{"M?A", "Tom?", "?"}));
    // A file with the UTF-8 mark is UTF-8 even where a later line is not.
    ASSERT_TRUE(Load(w, "\xEF\xBB\xBF" + lines + "2004-06-19-09-40-00;buy;A0;Vosi\xE8ka;4\r\n").empty());
    EXPECT_EQ(w.events[6].armyType, "Vosi?ka");
    // The decision is the whole file's, even past the pieces of 1 MiB it is read in; a later
    // piece that starts with the mark's bytes has no mark.
    std::string padded = lines + "2004-06-19-09-05-00;fly;";
    padded.resize(std::size_t{1} << 20, 'x');
    ASSERT_TRUE(Load(w, padded + "\xEF\xBB\xBF\r\n2004-06-19-09-40-00;buy;A0;Vosi\xE8ka;4\r\n").empty());
    EXPECT_EQ(names(w)[0], "M\xCD\x8A" "A");
}

class FailedLoad : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Load(w, kAlfa).empty());
        w.players.resize(2);
    }
    // One load message; the event count and the loaded flag stay, the players are emptied.
    void expectFailure(const std::vector<std::string>& texts, const std::string& label) {
        EXPECT_TRUE(OneMessage(texts, kLoadFailure)) << label;
        EXPECT_EQ(w.eventCount, 7) << label;
        EXPECT_TRUE(w.loaded) << label;
        EXPECT_EQ(w.lastPlayerIndex(), 0) << label;
    }
    WorldState w;
};

TEST_F(FailedLoad, HeaderValuesAreSetInOrderUntilOneFails) {
    expectFailure(Load(w, "0;B;1;4;4\n"), "five header fields");
    EXPECT_EQ(w.worldName, "Alfa");  // nothing set
    expectFailure(Load(w, "0;B;1;4;x;1\n"), "height not a number");
    EXPECT_EQ(std::tuple(w.worldName, w.playerLimit, w.mapWidth, w.mapHeight, w.speed),
              std::tuple(std::string("B"), 1, 4, 2, 3));
    expectFailure(Load(w, "0;C;1;4;4;256\n"), "speed past 255");
    EXPECT_EQ(std::tuple(w.mapHeight, w.speed), std::tuple(4, 3));  // the height read, the speed as before
}

TEST_F(FailedLoad, BadLinesStopTheLoadWithoutRollback) {
    for (const char* line : {"2004-06-19-08-0:-00;fly", "2004-06-19-08/00-00;fly", "2004-06-19-08-00-0/;fly",
                             "2004-13-45-08-00-00;fly", "2004_06_19_08_00_00;fly", "2004-06-19-08-00-0000000005;fly",
                             "0099-06-19-08-00-00;fly", "2004-06-19-24-00-00;fly", "2004-06-19-08-00-00",
                             "2004-06-19-08-00-00;attack;A0;B0;4;1", "2004-06-19-08-00-00;move;A0;B0;12abc",
                             "2004-06-19-08-00-00;attack;A0;B0;1;1e9;1"}) {
        expectFailure(Load(w, "0;B;9;4;4;1\n2004-06-19-07-00-00;fly\n" + std::string(line) +
                                  "\n2004-06-19-09-00-00;fly\n"), line);
        EXPECT_EQ(Actions(w), "fly") << line;       // no own event, nothing after
        EXPECT_EQ(w.lastTileIndex(), 16) << line;  // the new field table stays
    }
    // The events inserted before the failing line stay.
    expectFailure(Load(w, "0;B;0;4;4;1\n2004-06-19-08-00-00;create_world;N\n"
                          "2004-06-19-08-30-00;fly\n2012-06-19-08-30-00;fly\n"), "rounds past 16 bits");
    EXPECT_EQ(Actions(w), "create_world start fly");
    expectFailure(Load(w, "0;B;0;4;4;1\n9999-31-12-23-30-00;create_world;N\n9999-31-12-23-40-00;fly\n"),
                  "year 10000");
}

TEST_F(FailedLoad, RunningOutOfMemoryIsReportedLikeAnyFailure) {
    struct Exhausted : ReplaySource {
        std::size_t read(char*, std::size_t) override { throw std::bad_alloc(); }
        void rewind() override {}
        std::uint64_t size() const override { return 100; }
    } source;
    const LoadOutcome outcome = LoadReplay(w, source);
    expectFailure({outcome.failure}, "out of memory");
    EXPECT_EQ(outcome.failure, std::string(kLoadFailure) + "nedostatek pameti");
}

TEST_F(FailedLoad, EventsStopAt32767AndLinesAt1MiB) {
    std::string file = "0;A;9;1;1;1\n";
    for (int i = 0; i < 32767; ++i) file += "2004-06-19-08-00-00;fly\n";
    WorldState full;
    EXPECT_TRUE(Load(full, file).empty());
    EXPECT_EQ(full.eventCount, 32767);
    expectFailure(Load(w, file + "2004-06-19-08-00-00;fly\n"), "one event too many");
    EXPECT_EQ(w.lastEventIndex(), 32767);
    // The end inserted after a last attack counts as well; past the cap it fails the load on no
    // line of the file.
    const std::size_t lastLine = file.rfind("2004");
    const std::vector<std::string> texts =
        Load(w, file.substr(0, lastLine) + "2004-06-19-08-00-00;attack;A0;B0;1;1;0\n");
    expectFailure(texts, "no room for the end");
    EXPECT_EQ(texts, std::vector<std::string>{std::string(kLoadFailure) + "replay ma vice nez 32767 udalosti"});
    // A line holds up to 1 MiB, its line end not counted.
    std::string line = "2004-06-19-08-00-00;buy;A0;";
    line.resize((std::size_t{1} << 20) - 2, 'x');
    line += ";4";
    EXPECT_TRUE(Load(full, "0;A;9;1;1;1\r\n" + line + "\r\n").empty());
    EXPECT_EQ(std::tuple(full.eventCount, full.events[1].amount), std::tuple(1, 4));
    EXPECT_EQ(Load(full, "0;A;9;1;1;1\r\n" + line + "5\r\n"),
              std::vector<std::string>{std::string(kLoadFailure) + "radek 2: radek je delsi nez 1 MB"});
    EXPECT_EQ(Load(full, "0;" + std::string(std::size_t{1} << 20, 'A') + ";9;1;1;1\n"),
              std::vector<std::string>{std::string(kLoadFailure) + "radek 1: radek je delsi nez 1 MB"});
    WorldState never;  // a failed first load leaves the world unloaded
    EXPECT_EQ(Load(never, "0;A;9;1;1\n"),
              std::vector<std::string>{std::string(kLoadFailure) + "radek 1: hlavicka ma jen 5 poli, ocekava se 6"});
    EXPECT_FALSE(never.loaded);
    // A failure before the header names no line; blank lines count; a bad time stamp is quoted
    // as it stands.
    const std::pair<const char*, const char*> messages[] = {
        {"", "soubor neobsahuje hlavicku"},
        {"0;A;9;1;1;1\n2004-06-19-08-00-0x ;fly\n", "radek 2: casovy udaj '2004-06-19-08-00-0x ' neni platne datum"},
        {"0;A;9;1;1;1\n\n2004-06-19-08-00;fly\n", "radek 3: casovy udaj '2004-06-19-08-00' nema sest casti"},
        {"0;A;9;1;1;1\n2004-06-19-08-00-;fly\n", "radek 2: casovy udaj '2004-06-19-08-00-' neni platne datum"},
    };
    for (const auto& [bytes, description] : messages)
        EXPECT_EQ(Load(never, bytes), std::vector<std::string>{std::string(kLoadFailure) + description}) << bytes;
}

}  // namespace
}  // namespace trelvin

// Loads that fail: one message each, the load stops where it was, nothing is rolled back, and
// the event count and the loaded flag of the previous load stay.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "model/replay_loader.h"
#include "support/replay_files.h"

namespace trelvin {
namespace {

using testing::LoadReplayText;
using testing::WriteReplayFile;
using namespace std::string_literals;

using testing::kAlfa;

// Limit 0 starts the world after its first line; limit 9 never starts it.
const std::string kHeader = "0;B;0;4;4;1\n";
const std::string kWaitingHeader = "0;B;9;4;4;1\n";

class FailedLoad : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(LoadReplayText(w, kAlfa).empty());
        w.players.resize(2);
    }

    // The load of `bytes` must fail with exactly one load message.
    void expectFailure(const std::string& bytes, const std::string& label) {
        expectOneLoadMessage(LoadReplayText(w, bytes), label);
    }

    void expectOneLoadMessage(const std::vector<std::string>& texts, const std::string& label) {
        ASSERT_EQ(texts.size(), 1u) << label;
        EXPECT_TRUE(texts[0].starts_with("Chyba pri nacitani replaye - ")) << label << ": " << texts[0];
        EXPECT_GT(texts[0].size(), std::string("Chyba pri nacitani replaye - ").size()) << label;
        EXPECT_EQ(w.eventCount, 7) << label;
        EXPECT_TRUE(w.loaded) << label;
        EXPECT_EQ(w.lastPlayerIndex(), 0) << label;  // emptied before the file is read
    }

    std::vector<std::string> actions() const {
        std::vector<std::string> result;
        for (int i = 1; i <= w.lastEventIndex(); ++i) result.push_back(w.events[i].action);
        return result;
    }

    WorldState w;
};

TEST_F(FailedLoad, FilesThatCannotBeRead) {
    RecordingReporter reporter;
    LoadReplay(w, (std::filesystem::temp_directory_path() / "trelvin-no-such-replay.txt").string(),
               reporter);
    expectOneLoadMessage(reporter.texts, "missing file");
    EXPECT_EQ(w.lastEventIndex(), 0);

    const std::string directory = WriteReplayFile("") + ".d";
    std::filesystem::create_directory(directory);
    reporter.texts.clear();
    LoadReplay(w, directory, reporter);
    expectOneLoadMessage(reporter.texts, "directory");

    expectFailure("", "empty file");
    expectFailure("\x00\xFF\x13\x80garbage\x01\r\n\x02\x03;;\n\xFE"s, "binary garbage");
    EXPECT_EQ(w.lastEventIndex(), 0);
}

TEST_F(FailedLoad, HeaderValuesAreSetInOrderUntilOneFails) {
    expectFailure("0;B;1;4;4\n2004-06-19-08-00-00;fly\n", "five header fields");
    EXPECT_EQ(w.worldName, "Alfa");  // nothing set
    EXPECT_EQ(w.mapWidth, 3);
    EXPECT_EQ(w.lastTileIndex(), 6);

    expectFailure("0;B;1;4;x;1\n", "height not a number");
    EXPECT_EQ(w.worldName, "B");
    EXPECT_EQ(w.playerLimit, 1);
    EXPECT_EQ(w.mapWidth, 4);
    EXPECT_EQ(w.mapHeight, 2);  // the failing value and those after it keep theirs
    EXPECT_EQ(w.speed, 3);

    expectFailure("0;C;1;4;4;256\n", "speed past 255");
    EXPECT_EQ(w.mapHeight, 4);
    EXPECT_EQ(w.speed, 3);
}

TEST_F(FailedLoad, BadLinesStopTheLoadWithoutRollback) {
    const char* const badLines[] = {
        "2004-06-19-08-00;fly",                     // five time pieces
        "2004-06-19-08-00-0x;fly",                  // a piece that is no number
        "2004-13-45-08-00-00;fly",                  // no valid date either way
        "0099-06-19-08-00-00;fly",                  // year before 100
        "2004-06-19-24-00-00;fly",                  // hour 24
        "2004-06-19-08-00-00",                      // no keyword
        "2004-06-19-08-00-00;attack;A0;B0;4",       // truncated
        "2004-06-19-08-00-00;create_hq;Jana;louka", // truncated
        "2004-06-19-08-00-00;move;A0;B0;12abc",     // strict count with letters
        "2004-06-19-08-00-00;retreat;A0;",          // strict count empty
        "2004-06-19-08-00-00;trade;A;B;40000",      // past 16 bits
        "2004-06-19-08-00-00;attack;A0;B0;1;1e9;1", // success flag out of range
        "2004-06-19-08-00-00;buy;A0;Hovado;-1e5",
    };
    for (const char* line : badLines) {
        const std::string file = kWaitingHeader + "2004-06-19-07-00-00;fly\n" + line + "\n";
        expectFailure(file + "2004-06-19-09-00-00;fly\n", line);
        EXPECT_EQ(actions(), std::vector<std::string>{"fly"}) << line;  // no own event, nothing after
        EXPECT_EQ(w.lastTileIndex(), 16) << line;  // the new field table stays
        EXPECT_EQ(w.worldName, "B");
    }
    // An attack reads the same count as a leading number and loads.
    ASSERT_TRUE(LoadReplayText(w, kHeader + "2004-06-19-08-00-00;attack;A0;B0;12abc;1;2\n").empty());
    EXPECT_EQ(w.events[1].amount, 12);
}

TEST_F(FailedLoad, InsertedEventsBeforeTheFailingLineStay) {
    expectFailure(kHeader + "2004-06-19-08-00-00;create_world;N\n2004-06-19-09-00-00;retreat;A0;x\n",
                  "retreat");
    EXPECT_EQ(actions(), (std::vector<std::string>{"create_world", "start"}));
    // Date arithmetic past the last day of 9999 fails where it happens.
    expectFailure(kHeader + "9999-31-12-23-30-00;create_world;N\n9999-31-12-23-40-00;fly\n", "year 10000");
    // Hourly rounds whose count leaves 16 bits fail too: eight years pass.
    expectFailure(kHeader + "2004-06-19-08-00-00;create_world;N\n2004-06-19-08-30-00;fly\n"
                            "2012-06-19-08-30-00;fly\n",
                  "rounds past 16 bits");
    EXPECT_EQ(actions(), (std::vector<std::string>{"create_world", "start", "fly"}));
}

TEST_F(FailedLoad, TheEventListStopsAt32767) {
    std::string file = "0;A;9;1;1;1\n";
    for (int i = 0; i < 32767; ++i) file += "2004-06-19-08-00-00;fly\n";
    WorldState fresh;
    ASSERT_TRUE(LoadReplayText(fresh, file).empty());
    EXPECT_EQ(fresh.eventCount, 32767);

    expectFailure(file + "2004-06-19-08-00-00;fly\n", "one event too many");
    EXPECT_EQ(w.lastEventIndex(), 32767);

    // A failed first load leaves the world unloaded.
    WorldState never;
    ASSERT_EQ(LoadReplayText(never, "0;A;9;1;1\n").size(), 1u);
    EXPECT_EQ(never.eventCount, 0);
    EXPECT_FALSE(never.loaded);
}

}  // namespace
}  // namespace trelvin

// Files a user may really be handed: cut short, binary, huge, from other systems. Each load
// reports what is wrong (or loads) and a later load of a good file still works.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "engine/event_executor.h"
#include "model/replay_loader.h"
#include "support/replay_files.h"

namespace {

using namespace trelvin;
namespace fs = std::filesystem;

using trelvin::testing::kAlfa;

class HostileFiles : public ::testing::Test {
protected:
    fs::path write(const std::string& name, const std::string& bytes) {
        const fs::path path = dir_ / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }

    // Loads the file, then the good Alfa file, and returns the first load's messages.
    std::vector<std::string> loadThenRecover(const fs::path& path) {
        RecordingReporter reporter;
        LoadReplay(world_, path.string(), reporter);
        for (int i = 1; i <= std::min<int>(world_.eventCount, world_.lastEventIndex()); ++i)
            ExecuteEvent(world_, static_cast<std::int16_t>(i), reporter);

        RecordingReporter good;
        LoadReplay(world_, write("alfa.trp", kAlfa).string(), good);
        EXPECT_TRUE(good.texts.empty());
        EXPECT_EQ(world_.eventCount, 7);
        return reporter.texts;
    }

    static bool isLoadFailure(const std::vector<std::string>& texts) {
        return texts.size() == 1 && texts[0].starts_with("Chyba pri nacitani replaye - ");
    }

    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("trelvin-hostile-" + std::to_string(::getpid()));
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    fs::path dir_;
    WorldState world_;
};

TEST_F(HostileFiles, TruncatedAndMalformedFilesFailTheLoadWithOneMessage) {
    EXPECT_TRUE(isLoadFailure(loadThenRecover(write("empty.trp", ""))));
    EXPECT_TRUE(isLoadFailure(loadThenRecover(write("five.trp", "0;Alfa;2;3;2\r\n"))));
    static constexpr char kNuls[] = "0;A\0;2;3;2;3\r\n1\0";
    EXPECT_TRUE(isLoadFailure(loadThenRecover(write("nul.trp", std::string(kNuls, sizeof kNuls - 1)))));
    EXPECT_TRUE(isLoadFailure(loadThenRecover(write("old.trp", "0;A;0;2;2;3\r\n0099-01-01-00-00-00;fly\r\n"))));
    EXPECT_TRUE(isLoadFailure(loadThenRecover(write("late.trp", "0;A;0;2;2;3\r\n10000-01-01-00-00-00;fly\r\n"))));
    EXPECT_TRUE(isLoadFailure(loadThenRecover(dir_)));
    EXPECT_TRUE(isLoadFailure(loadThenRecover(dir_ / "vanished.trp")));
}

TEST_F(HostileFiles, HeaderOnlyAndForeignLineEndsLoad) {
    EXPECT_TRUE(loadThenRecover(write("header.trp", "0;Alfa;2;3;2;3")).empty());
    std::string crOnly = kAlfa, lfOnly = kAlfa;
    std::erase(crOnly, '\n');
    std::erase(lfOnly, '\r');
    for (const auto& [name, text] : {std::pair{"cr.trp", crOnly}, std::pair{"lf.trp", lfOnly}}) {
        RecordingReporter reporter;
        LoadReplay(world_, write(name, text).string(), reporter);
        EXPECT_TRUE(reporter.texts.empty()) << name;
        EXPECT_EQ(world_.eventCount, 7) << name;
    }
}

TEST_F(HostileFiles, MixedEncodingsAndBinaryGarbageNeverCrash) {
    std::string mixed = kAlfa + "2004-06-19-10-00-00;buy;A0;Vosi\xC4\x8Dka\xE8\xFF;4\r\n";
    const auto texts = loadThenRecover(write("mixed.trp", mixed));
    EXPECT_TRUE(texts.empty() || isLoadFailure(texts));
    std::string garbage;
    for (int i = 0; i < 100000; ++i) garbage.push_back(static_cast<char>((i * 7919 + i / 13) & 0xFF));
    EXPECT_TRUE(isLoadFailure(loadThenRecover(write("garbage.trp", garbage))));
}

TEST_F(HostileFiles, OversizedFilesStopAtTheEventCap) {
    std::string many = "0;Velky;0;3;3;3\r\n2004-06-19-08-00-00;create_world;NNNNNNNNN\r\n";
    for (int i = 0; i < 40000; ++i) many += "2004-06-19-08-00-00;fly\r\n";
    EXPECT_TRUE(isLoadFailure(loadThenRecover(write("many.trp", many))));

    std::string longLine = "0;Dlouhy;0;3;3;3\r\n2004-06-19-08-00-00;create_world;";
    longLine.append(10 * 1024 * 1024, 'N');
    EXPECT_TRUE(loadThenRecover(write("long.trp", longLine)).size() == 1);  // more letters than fields

    const fs::path huge = dir_ / "huge.trp";
    {
        std::ofstream out(huge, std::ios::binary);
        out << "0;Obri;0;3;3;3\r\n";
        const std::string line = "2004-06-19-08-00-00;fly;" + std::string(200, 'x') + "\r\n";
        for (std::size_t written = 0; written < 200u * 1024 * 1024; written += line.size()) out << line;
    }
    EXPECT_TRUE(isLoadFailure(loadThenRecover(huge)));
}

TEST_F(HostileFiles, LargestMapLoadsAndAppliesUpToTheSixteenBitIndexes) {
    const std::string map = "0;Obri;0;255;255;3\r\n2004-06-19-08-00-00;create_world;" +
                            std::string(255 * 255, 'N') +
                            "\r\n2004-06-19-08-00-01;create_hq;K;les;A100"
                            "\r\n2004-06-19-08-00-02;create_hq;J;louka;A200\r\n";
    const auto texts = loadThenRecover(write("wide.trp", map));
    ASSERT_EQ(texts.size(), 1u);  // A200 is field 51001, past what a field index can hold
    EXPECT_TRUE(texts[0].starts_with("Chyba pri provadeni tahu - "));
}

}  // namespace

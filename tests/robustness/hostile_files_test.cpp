// Files a user may really be handed: cut short, binary, huge. Each load reports what is wrong
// (or loads), its events apply without a crash, and a later load of a good file still works.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;
namespace fs = std::filesystem;

const std::string kAt = "\n2004-06-19-08-00-00;";  // starts a line

class HostileFiles : public ::testing::Test {
protected:
    fs::path write(const std::string& name, const std::string& bytes) {
        std::ofstream(dir_ / name, std::ios::binary) << bytes;
        return dir_ / name;
    }
    // Loads and plays the file, then loads Alfa; returns the first file's messages.
    std::vector<std::string> loadThenRecover(const fs::path& path) {
        RecordingReporter reporter, good;
        LoadReplay(world_, path.string(), reporter);
        for (int i = 1; i <= std::min<int>(world_.eventCount, world_.lastEventIndex()); ++i)
            ExecuteEvent(world_, static_cast<std::int16_t>(i), reporter);
        LoadReplay(world_, write("alfa.trp", kAlfa).string(), good);
        EXPECT_TRUE(good.texts.empty() && world_.eventCount == 7);
        return reporter.texts;
    }
    bool failsToLoad(const fs::path& path) { return OneMessage(loadThenRecover(path), kLoadFailure); }

    void SetUp() override { fs::create_directories(dir_); }
    void TearDown() override { fs::remove_all(dir_); }

    const fs::path dir_ = fs::temp_directory_path() / ("trelvin-hostile-" + std::to_string(::getpid()));
    WorldState world_;
};

TEST_F(HostileFiles, TruncatedBinaryAndMissingFilesFailWithOneMessage) {
    EXPECT_TRUE(failsToLoad(write("empty.trp", "")));
    EXPECT_TRUE(failsToLoad(write("nul.trp", std::string("0;A\0;2;3;2;3\r\n1\0", 16))));
    EXPECT_TRUE(failsToLoad(write("late.trp", "0;A;0;2;2;3\r\n10000-01-01-00-00-00;fly\r\n")));
    EXPECT_TRUE(failsToLoad(dir_));
    EXPECT_TRUE(failsToLoad(dir_ / "vanished.trp"));
    std::string garbage;
    for (int i = 0; i < 100000; ++i) garbage.push_back(static_cast<char>((i * 7919 + i / 13) & 0xFF));
    EXPECT_TRUE(failsToLoad(write("garbage.trp", garbage)));
}

TEST_F(HostileFiles, OversizedFilesStopAtTheEventCapOrTheFieldTable) {
    std::string many = "0;Velky;0;3;3;3" + kAt + "create_world;NNNNNNNNN";
    for (int i = 0; i < 40000; ++i) many += kAt + "fly";
    EXPECT_TRUE(failsToLoad(write("many.trp", many)));
    const std::string letters = "0;D;0;3;3;3" + kAt + "create_world;" + std::string(10 << 20, 'N');
    EXPECT_TRUE(OneMessage(loadThenRecover(write("long.trp", letters)), kExecuteErrorPrefix));
    {
        std::ofstream huge(dir_ / "huge.trp", std::ios::binary);
        huge << "0;Obri;0;3;3;3";
        const std::string line = kAt + "fly;" + std::string(200, 'x');
        for (std::size_t written = 0; written < 200u << 20; written += line.size()) huge << line;
    }
    EXPECT_TRUE(failsToLoad(dir_ / "huge.trp"));
    // A200 is field 51001 of the largest map, past what a field index can hold.
    const std::string map = "0;Obri;0;255;255;3" + kAt + "create_world;" + std::string(255 * 255, 'N') + kAt +
                            "create_hq;K;les;A100" + kAt + "create_hq;J;louka;A200";
    EXPECT_TRUE(OneMessage(loadThenRecover(write("wide.trp", map)), kExecuteErrorPrefix));
}

}  // namespace
}  // namespace trelvin

// Files a user may really be handed: cut short, binary, huge. Each load reports what is wrong
// (or loads), its events apply without a crash, and a later load of a good file still works.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
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
        std::vector<std::string> texts;
        const LoadOutcome loaded = LoadReplay(world_, path.string());
        if (!loaded.succeeded()) texts.push_back(loaded.failure);
        for (int i = 1; i <= std::min<int>(world_.eventCount, world_.lastEventIndex()); ++i)
            for (std::string& text : ExecuteEvent(world_, static_cast<std::int16_t>(i)).messages) texts.push_back(text);
        EXPECT_TRUE(LoadReplay(world_, write("alfa.trp", kAlfa).string()).succeeded());
        EXPECT_EQ(world_.eventCount, 7);
        return texts;
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
    EXPECT_TRUE(failsToLoad(dir_ / "vanished.trp"));
    std::string garbage;
    for (int i = 0; i < 100000; ++i) garbage.push_back(static_cast<char>((i * 7919 + i / 13) & 0xFF));
    EXPECT_TRUE(failsToLoad(write("garbage.trp", garbage)));
}

TEST_F(HostileFiles, TheLargestMapLoadsAndAFieldPastTheIndexRangeStopsItsEvent) {
    // A200 is field 51001 of the largest map, past what a field index can hold.
    const std::string map = "0;Obri;0;255;255;3" + kAt + "create_world;" + std::string(255 * 255, 'N') + kAt +
                            "create_hq;K;les;A100" + kAt + "create_hq;J;louka;A200";
    EXPECT_TRUE(OneMessage(loadThenRecover(write("wide.trp", map)), kExecuteErrorPrefix));
}

long PeakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

// Files no replay can be: each fails at once with one message, in memory far below its size.
TEST_F(HostileFiles, FilesPastTheLimitsAndPathsThatAreNoFilesFailAtOnce) {
    const fs::path sparse = dir_ / "disk.img";
    std::ofstream(sparse) << "0;Obraz;0;3;3;3";
    fs::resize_file(sparse, std::uintmax_t{16} << 30);
    const fs::path pipe = dir_ / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::pair<fs::path, const char*> cases[] = {
        {sparse, "je prilis velky (16384 MB, nejvyse 64 MB)"},
        {dir_, "je slozka, ne soubor"},
        {pipe, "neni obycejny soubor"},
        {"/dev/zero", "neni obycejny soubor"},
    };
    const long before = PeakMegabytes();
    for (const auto& [path, description] : cases) {
        const std::vector<std::string> texts = loadThenRecover(path);
        ASSERT_TRUE(OneMessage(texts, kLoadFailure)) << path;
        EXPECT_TRUE(texts[0].ends_with(description)) << texts[0];
    }
    EXPECT_LT(PeakMegabytes() - before, 32);
}

// A load can be cancelled as it reads, and a file that shrinks or grows meanwhile fails: the
// encoding is decided in a first pass, so a change between the passes counts too.
TEST_F(HostileFiles, CancelledAndShrinkingLoadsFailWhereTheyStopped) {
    std::string many = "0;Velky;0;3;3;3" + kAt + "create_world;NNNNNNNNN";
    for (int i = 0; i < 20000; ++i) many += kAt + "fly";
    const fs::path path = write("many.trp", many);
    struct Hook : TaskProgress {
        std::function<bool(std::uint64_t)> onPiece;
        bool keepGoing(std::uint64_t done, std::uint64_t) override { return onPiece(done); }
    } hook;
    // The first pass reports no bytes done: it reads the file whole before the loader's pass.
    const auto inFirstPass = [](std::uint64_t done) { return done == 0; };
    using Case = std::pair<std::function<bool(std::uint64_t)>, const char*>;
    for (const auto& [onPiece, description] : std::initializer_list<Case>{
             {[](std::uint64_t) { return false; }, "nacitani bylo preruseno"},
             {[&](std::uint64_t done) {
                  if (inFirstPass(done)) fs::resize_file(path, 70000);
                  return true;
              }, "se behem cteni zkratil"},
             {[&](std::uint64_t done) {
                  if (inFirstPass(done)) std::ofstream(path, std::ios::app) << kAt << "fly";
                  return true;
              }, "se behem cteni prodlouzil"}}) {
        write("many.trp", many);
        hook.onPiece = onPiece;
        world_.eventCount = 7;
        const LoadOutcome loaded = LoadReplay(world_, path.string(), &hook);
        ASSERT_TRUE(OneMessage({loaded.failure}, kLoadFailure));
        EXPECT_TRUE(loaded.failure.ends_with(description)) << loaded.failure;
        EXPECT_EQ(world_.eventCount, 7);  // nothing rolled back, nothing completed
    }
}

}  // namespace
}  // namespace trelvin

#include "support/replay_files.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "model/replay_loader.h"

namespace trelvin::testing {

namespace {

namespace fs = std::filesystem;

// One directory per test process, so helpers running side by side never share files.
class TemporaryDirectory {
public:
    TemporaryDirectory()
        : path_(fs::temp_directory_path() / ("trelvin-tests-" + std::to_string(::getpid()))) {
        fs::create_directories(path_);
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

}  // namespace

std::string WriteReplayFile(const std::string& bytes) {
    static TemporaryDirectory directory;
    static int counter = 0;
    const fs::path path = directory.path() / ("replay-" + std::to_string(++counter) + ".txt");
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
}

std::vector<std::string> LoadReplayText(WorldState& world, const std::string& bytes) {
    RecordingReporter reporter;
    LoadReplay(world, WriteReplayFile(bytes), reporter);
    return reporter.texts;
}

}  // namespace trelvin::testing

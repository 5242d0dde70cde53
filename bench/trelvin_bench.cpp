// trelvin-bench: the costs that decide whether the viewer feels instant on the largest replay
// it accepts. Prints one figure or ratio a line; each figure is the median of several runs.
#include <malloc.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "engine/event_executor.h"
#include "history/replay_history.h"
#include "model/replay_limits.h"
#include "model/replay_loader.h"
#include "model/text_encoding.h"
#include "replay_generator.h"
#include "export_bench.h"
#include "window_bench.h"

namespace {

using namespace trelvin;

double medianMilliseconds(int runs, const std::function<void()>& body) {
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        const auto start = std::chrono::steady_clock::now();
        body();
        const auto end = std::chrono::steady_clock::now();
        times.push_back(std::chrono::duration<double, std::milli>(end - start).count());
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// The floor a loader cannot beat: read the file and cut it into lines. The file is read at
// once into a buffer of its size: a string grown as it is read would be moved from mapping to
// mapping, at a cost that depends on how earlier allocations left the heap.
std::size_t readAndSplit(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::string bytes(std::filesystem::file_size(path), '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\n') {
            lines.emplace_back(bytes.data() + start, i - start);
            start = i + 1;
        }
    }
    return lines.size();
}

void print(const char* name, double value, const char* unit) {
    std::printf("%-28s %10.3f %s\n", name, value, unit);
}

double loadMilliseconds(const std::string& path, int runs) {
    return medianMilliseconds(runs, [&] {
        WorldState fresh;
        LoadReplay(fresh, path);
    });
}

// What deciding the encoding costs. The Windows-1250 replay is decided at its first army name;
// its UTF-8 copy must be read whole first, and the same copy with the UTF-8 mark not at all, so
// the two UTF-8 loads differ by exactly the pass. The largest file allowed is read whole too.
void PrintEncodingPass(const std::string& path, int runs) {
    WorldState world;
    LoadReplay(world, path);
    std::ifstream in(path, std::ios::binary);
    const std::string utf8 = cp1250ToUtf8(std::string(std::istreambuf_iterator<char>(in), {}));
    const std::string utf8Path = path + ".utf8", bomPath = path + ".bom";
    std::ofstream(utf8Path, std::ios::binary) << utf8;
    std::ofstream(bomPath, std::ios::binary) << "\xEF\xBB\xBF" << utf8;
    print("load_utf8_ms", loadMilliseconds(utf8Path, runs), "ms (with the pass over the whole file)");
    print("load_utf8_marked_ms", loadMilliseconds(bomPath, runs), "ms (the same without the pass)");

    // A file of the largest size allowed that loads whole: long lines of ASCII, one UTF-8 letter
    // at its very end, so the pass reads all of it.
    const std::string largest = path + ".64mib";
    {
        std::ofstream out(largest, std::ios::binary);
        out << "0;Velky;0;2;2;3\r\n2004-06-19-08-00-00;create_world;NNNN\r\n";
        const std::string line = "2004-06-19-08-00-00;fly;" + std::string(2000, 'x') + "\r\n";
        for (std::uint64_t written = 0; written + 2 * line.size() < kMaxFileBytes; written += line.size()) out << line;
        out << "2004-06-19-08-00-00;fly;\xC5\xA0\r\n";
    }
    const double scanMs = medianMilliseconds(runs, [&] {
        ReplayFile file(largest);
        file.open();
        Utf8Detector detector;
        std::vector<char> buffer(std::size_t{1} << 20);
        while (const std::size_t got = file.read(buffer.data(), buffer.size())) detector.feed({buffer.data(), got});
    });
    print("load_64mib_ms", loadMilliseconds(largest, runs), "ms (a file of the largest size allowed)");
    print("encoding_pass_64mib_ms", scanMs, "ms (its pass alone)");
    for (const std::string& written : {utf8Path, bomPath, largest}) std::filesystem::remove(written);
}

// The pass over all events made at opening (the action list, the keyframes and every player's
// series), what its keyframes hold (the heap a copy of them takes) and what the series hold. Both before the window opens the replay, so that the peak memory is the window's.
void PrintOpeningPass(const WorldState& world, int runs) {
    print("action_list_build_ms", medianMilliseconds(runs, [&] { ReplayHistory::Build(world); }), "ms (with every series, target < 50)");
    const ReplayHistory history = ReplayHistory::Build(world);
    const std::size_t heapBefore = mallinfo2().uordblks;
    const Keyframes copy = history.keyframes;
    const double keyframesMb = double(mallinfo2().uordblks - heapBefore) / (1024 * 1024);
    std::printf("%-28s %10.3f %s (%d keyframes)\n", "keyframes_mb", keyframesMb, "MB (target < 30)", copy.size());
    print("series_memory_mb", double(history.series.bytes()) / (1024 * 1024), "MB (target < 20)");
}

}  // namespace

int main(int argc, char** argv) {
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 9;
    const std::string path =
        (std::filesystem::temp_directory_path() / "trelvin-bench-replay.trp").string();
    {
        std::ofstream out(path, std::ios::binary);
        out << GenerateReplay(GeneratorOptions{});
    }

    WorldState world;
    const LoadOutcome loaded = LoadReplay(world, path);
    std::printf("replay: %dx%d fields, %d players, %d events, %s\n", world.mapWidth, world.mapHeight,
                GeneratorOptions{}.players, world.eventCount, loaded.succeeded() ? "loaded" : loaded.failure.c_str());

    std::size_t lineCount = 0;
    const double floorMs = medianMilliseconds(runs, [&] { lineCount = readAndSplit(path); });
    const double loadMs = medianMilliseconds(runs, [&] {
        WorldState fresh;
        LoadReplay(fresh, path);
    });
    print("read_and_split_ms", floorMs, "ms");
    print("load_ms", loadMs, "ms");
    // No longer what a user feels: the whole load of the largest replay takes a few milliseconds.
    print("load_over_floor", loadMs / floorMs, "x");
    PrintEncodingPass(path, runs);

    const double reapplyMs = medianMilliseconds(runs, [&] {
        for (int i = 1; i <= world.eventCount; ++i) ExecuteEvent(world, static_cast<std::int16_t>(i));
    });
    print("reapply_all_ms", reapplyMs, "ms (target < 16)");
    PrintOpeningPass(world, runs);
    // The window loads its own: this copy would stand in the window's peak memory.
    world = WorldState{};

    RunWindowBenchmarks(path, runs, argc, argv);

    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    print("peak_memory_mb", usage.ru_maxrss / 1024.0, "MB (target < 100)");
    // After the peak above: an export's images are not the viewer's memory.
    RunExportBenchmarks(path, runs, argc, argv);
    std::filesystem::remove(path);
    return loaded.succeeded() ? 0 : 1;
}

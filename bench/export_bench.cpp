#include "export_bench.h"

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <QGuiApplication>

#include "export/map_export.h"
#include "model/replay_loader.h"
#include "render/designed_fonts.h"

extern char** environ;

namespace {

struct ChildRun {
    double milliseconds = 0;
    double peakMegabytes = 0;
};

// trelvin-export as a user runs it: the whole run, from start to the file written.
ChildRun runExport(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), TRELVIN_EXPORT);
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    if (posix_spawn(&child, TRELVIN_EXPORT, nullptr, nullptr, argv.data(), environ) != 0) return {};
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const auto end = std::chrono::steady_clock::now();
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) std::printf("trelvin-export failed: %d\n", status);
    return {std::chrono::duration<double, std::milli>(end - start).count(), usage.ru_maxrss / 1024.0};
}

void printAnimation(const std::string& path, const std::string& format, int first, int runs) {
    const std::string output = (std::filesystem::temp_directory_path() / ("trelvin-bench." + format)).string();
    std::vector<double> times;
    double peak = 0;
    for (int run = 0; run < runs; ++run) {
        const ChildRun result = runExport({path, "--at", std::to_string(first), "--to", std::to_string(first + 999), "-o", output});
        times.push_back(result.milliseconds);
        peak = std::max(peak, result.peakMegabytes);
    }
    std::sort(times.begin(), times.end());
    const std::string name = "export_" + format + "_1000_";
    std::printf("%-28s %10.3f %s\n", (name + "ms").c_str(), times[times.size() / 2], "ms (target < 5000, the whole run)");
    std::printf("%-28s %10.3f %s\n", (name + "mb").c_str(), peak, "MB (target < 200)");
    std::printf("%-28s %10.3f %s\n", (name + "kb").c_str(), std::filesystem::file_size(output) / 1024.0, "kB");
    std::filesystem::remove(output);
}

}  // namespace

void RunExportBenchmarks(const std::string& path, int runs, int argc, char** argv) {
    QGuiApplication application(argc, argv);
    Q_INIT_RESOURCE(assets);
    trelvin::RegisterDesignedFonts();
    trelvin::WorldState world;
    trelvin::LoadReplay(world, path);

    // The last action needs every event applied first: the slowest picture there is.
    trelvin::ExportJob job;
    job.path = QString::fromStdString((std::filesystem::temp_directory_path() / "trelvin-bench.png").string());
    job.first = job.last = world.eventCount;
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        trelvin::ExportMap(world, job);
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::sort(times.begin(), times.end());
    std::printf("%-28s %10.3f %s\n", "export_png_ms", times[times.size() / 2], "ms (target < 200, the last action)");
    std::printf("%-28s %10.3f %s\n", "export_png_kb", std::filesystem::file_size(job.path.toStdString()) / 1024.0, "kB");
    std::filesystem::remove(job.path.toStdString());

    // A thousand actions around the first captured headquarters, at 20 px a field.
    const int first = world.eventCount / 2 - 500;
    const int childRuns = std::min(runs, 3);
    printAnimation(path, "gif", first, childRuns);
    printAnimation(path, "webp", first, childRuns);
}

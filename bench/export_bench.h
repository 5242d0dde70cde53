#pragma once
#include <string>

// Times the exports of the replay at `path`: the PNG of its last action, in this process, and
// GIF and WebP animations of 1,000 actions made by trelvin-export, with their memory and size.
void RunExportBenchmarks(const std::string& path, int runs, int argc, char** argv);

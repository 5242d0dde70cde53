#pragma once
#include <string>

// Times the window's part with the replay at `path`: one full open and one redraw.
void RunWindowBenchmarks(const std::string& path, int runs, int argc, char** argv);

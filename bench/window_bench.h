#pragma once
#include <string>

// Times the window's part with the replay at `path`: the full open, the redraw and the map's
// paint, and jumps, steps back and a drag across the timeline as the user waits for them.
void RunWindowBenchmarks(const std::string& path, int runs, int argc, char** argv);

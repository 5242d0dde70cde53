#pragma once
#include <string>

// Times the window's part with the replay at `path`: the full open, the redraw and the map's
// paint, jumps, steps back and a drag across the timeline as the user waits for them, and the
// memory of the keyframes.
void RunWindowBenchmarks(const std::string& path, int runs, int argc, char** argv);

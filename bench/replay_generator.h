#pragma once
// Writes large, valid replays for benchmarks: every action keyword, headquarters captured,
// many hours and the protection day crossed.
#include <string>

namespace trelvin {

struct GeneratorOptions {
    int columns = 109;
    int rows = 100;
    int players = 12;
    int events = 32767;  // events of the loaded list, inserted ones included
    unsigned seed = 1;
};

// The replay file's bytes: Windows-1250, CR LF line ends.
std::string GenerateReplay(const GeneratorOptions& options);

}  // namespace trelvin

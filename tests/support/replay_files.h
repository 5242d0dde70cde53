#pragma once
// Replay files for tests: the text (Windows-1250 bytes) written to a temporary file and loaded
// through the same path the window uses.
#include <string>
#include <vector>

#include "model/world_state.h"

namespace trelvin::testing {

// The smallest complete replay: a 3 x 2 world, two players, a purchase and an attack.
inline const std::string kAlfa =
    "0;Alfa;2;3;2;3\r\n"
    "2004-06-19-08-00-00;create_world;NNBSXN\r\n"
    "2004-06-19-08-10-00;create_hq;Karel;les;A0\r\n"
    "2004-06-19-08-20-30;create_hq;Jana;louka;C1\r\n"
    "2004-06-19-09-05-00;buy;A0;Vosi\xE8ka;4\r\n"
    "2004-06-19-09-40-00;attack;A0;B0;4;1;3\r\n";

// Writes `bytes` to a fresh file in the temporary directory and returns its path.
// The files are removed when the test program ends.
std::string WriteReplayFile(const std::string& bytes);

// Loads `bytes` from such a file into `world`; returns the message texts the loader showed.
std::vector<std::string> LoadReplayText(WorldState& world, const std::string& bytes);

}  // namespace trelvin::testing

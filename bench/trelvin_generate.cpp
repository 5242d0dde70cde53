// trelvin-generate COLUMNS ROWS PLAYERS EVENTS [SEED] > replay.trp
#include <cstdlib>
#include <iostream>
#include <string>

#include "model/field_addressing.h"
#include "replay_generator.h"

namespace {

const std::string kUsage = "usage: trelvin-generate COLUMNS ROWS PLAYERS EVENTS [SEED]\n"
                           "  3.." + std::to_string(trelvin::kNameableColumns) +
                           " columns (field names run out after that), 3..255 rows, 2..50 players, 100..32767 events\n";

}  // namespace

int main(int argc, char** argv) {
    if (argc < 5) {
        std::cerr << kUsage;
        return 2;
    }
    trelvin::GeneratorOptions options;
    options.columns = std::atoi(argv[1]);
    options.rows = std::atoi(argv[2]);
    options.players = std::atoi(argv[3]);
    options.events = std::atoi(argv[4]);
    if (argc > 5) options.seed = static_cast<unsigned>(std::atoi(argv[5]));
    if (options.columns < 3 || options.columns > trelvin::kNameableColumns || options.rows < 3 || options.rows > 255 ||
        options.players < 2 || options.players > 50 || options.events < 100 || options.events > 32767) {
        std::cerr << kUsage;
        return 2;
    }
    std::cout << trelvin::GenerateReplay(options);
    return 0;
}

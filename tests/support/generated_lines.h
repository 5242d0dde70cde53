#pragma once
// A replay of the benchmark's generator as its lines, to be changed into a hostile one.
#include <string>
#include <vector>

#include "replay_generator.h"

namespace trelvin::testing {

struct GeneratedLines {
    explicit GeneratedLines(const GeneratorOptions& options) {
        const std::string text = GenerateReplay(options);
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = text.find("\r\n", start);
            lines.push_back(text.substr(start, end - start));
            start = end + 2;
        }
    }
    // A line of `action` at the time of the line it goes after.
    void insert(std::size_t at, const std::string& action) {
        lines.insert(lines.begin() + std::ptrdiff_t(at), lines[at - 1].substr(0, 20) + action);
    }
    // From near the end backwards, so that the places still count from the start.
    void insertEvery(int step, const std::vector<std::string>& actions) {
        std::size_t next = 0;
        for (int at = int(lines.size()) - 3; at > 10; at -= step) insert(std::size_t(at), actions[next++ % actions.size()]);
    }
    // A line of `action` at the end, at the time of the last.
    void append(const std::string& action) { lines.push_back(lines.back().substr(0, 20) + action); }
    std::string text() const {
        std::string result;
        for (const std::string& line : lines) result += line + "\r\n";
        return result;
    }
    std::vector<std::string> lines;
};

}  // namespace trelvin::testing

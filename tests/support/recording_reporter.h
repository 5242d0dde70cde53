#pragma once
// The texts of the message boxes the window would show, recorded in order.
#include <string>
#include <vector>

#include "model/reporter.h"

namespace trelvin::testing {

struct RecordingReporter : Reporter {
    void report(const std::string& text) override { texts.push_back(text); }
    std::vector<std::string> texts;
};

}  // namespace trelvin::testing

#pragma once
// How failures that the user must see leave the core: the window shows each text in a modal
// message box and waits for it to close; tests and the dump record the texts.
#include <string>
#include <vector>

namespace trelvin {

class Reporter {
public:
    virtual ~Reporter() = default;
    // `text` is Windows-1250, the whole text of one message box.
    virtual void report(const std::string& text) = 0;
};

class RecordingReporter : public Reporter {
public:
    void report(const std::string& text) override { texts.push_back(text); }
    std::vector<std::string> texts;
};

}  // namespace trelvin

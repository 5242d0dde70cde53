#pragma once
// Where the texts of message boxes go as they come: the window shows each in a modal message
// box and waits for it to close.
#include <string>

namespace trelvin {

class Reporter {
public:
    virtual ~Reporter() = default;
    // `text` is Windows-1250, the whole text of one message box.
    virtual void report(const std::string& text) = 0;
};

}  // namespace trelvin

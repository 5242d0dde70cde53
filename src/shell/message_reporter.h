#pragma once
// Failures of the core reach the window only through this: the Windows-1250 text is shown in
// a message box.
#include "model/reporter.h"
#include "shell/message_service.h"

namespace trelvin {

class MessageReporter : public Reporter {
public:
    explicit MessageReporter(MessageService& messages) : messages_(messages) {}
    void report(const std::string& text) override;

private:
    MessageService& messages_;
};

}  // namespace trelvin

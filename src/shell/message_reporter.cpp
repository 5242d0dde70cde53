#include "shell/message_reporter.h"

#include "bridge/core_text.h"

namespace trelvin {

void MessageReporter::report(const std::string& text) { messages_.showMessage(FromCore(text)); }

}  // namespace trelvin

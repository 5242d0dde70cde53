#include "shell/message_reporter.h"

#include "model/text_encoding.h"

namespace trelvin {

void MessageReporter::report(const std::string& text) {
    messages_.showMessage(QString::fromStdString(cp1250ToUtf8(text)));
}

}  // namespace trelvin

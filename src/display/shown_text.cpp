#include "display/shown_text.h"

#include "model/text_encoding.h"

namespace trelvin {

std::string ShownText(const std::string& cp1250) {
    std::string text = cp1250ToUtf8(cp1250);
    for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at)) text.erase(at, 1);
    return text;
}

}  // namespace trelvin

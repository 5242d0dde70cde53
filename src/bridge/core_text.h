#pragma once
// Text crosses between the core and Qt here: Windows-1250 bytes inside the core, UTF-8 in the
// texts it makes for showing, Unicode in the window.
#include <string>

#include <QString>

#include "model/text_encoding.h"

namespace trelvin {

inline QString FromCore(const std::string& cp1250) {
    return QString::fromStdString(cp1250ToUtf8(cp1250));
}

inline std::string ToCore(const QString& text) { return utf8ToCp1250(text.toStdString()); }

// A text the core made for showing (UTF-8).
inline QString FromUtf8(const std::string& utf8) { return QString::fromStdString(utf8); }

}  // namespace trelvin

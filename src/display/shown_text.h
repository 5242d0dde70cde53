#pragma once
#include <string>

namespace trelvin {

// A text of the core (Windows-1250, its lines joined by CR LF) as a front end shows it: UTF-8,
// lines ending in "\n".
std::string ShownText(const std::string& cp1250);

}  // namespace trelvin

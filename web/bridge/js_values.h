#pragma once
// Core values as JavaScript values: UTF-8 strings, arrays and plain objects.
#include <string>
#include <vector>

#include <emscripten/val.h>

#include "display/clock_geometry.h"
#include "model/date_time.h"

namespace trelvin::web {

using emscripten::val;

inline val Strings(const std::vector<std::string>& utf8) {
    val list = val::array();
    for (const std::string& text : utf8) list.call<void>("push", text);
    return list;
}

inline val Numbers(const std::vector<int>& numbers) {
    val list = val::array();
    for (const int number : numbers) list.call<void>("push", number);
    return list;
}

inline val PointOf(ClockPoint p) { return Numbers({p.x, p.y}); }

// [year, month, day, hour, minute, second]: the page writes a date the reader's way.
inline val TimeParts(const DateTime& t) {
    return Numbers({t.year(), t.month(), t.day(), t.hour(), t.minute(), t.second()});
}

}  // namespace trelvin::web

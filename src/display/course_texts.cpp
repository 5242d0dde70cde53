#include "display/course_texts.h"

#include "model/text_encoding.h"

namespace trelvin {

std::string ChartsMissingText() { return std::string("Grafy nejsou k dispozici: ") + kSeriesGivenUp; }

std::string PlayerEntryText(const PlayerIdentity& who) { return cp1250ToUtf8(who.name + " (" + who.side + ")"); }

std::string StandingText(const Standing& standing, Quantity quantity) {
    return standing.playing ? std::to_string(standing.value(quantity)) : "Uz nehraje";
}

}  // namespace trelvin

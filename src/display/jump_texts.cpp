#include "display/jump_texts.h"

#include <charconv>

namespace trelvin {

namespace {

// Each kind the jumps look for, in the grammatical gender its words need.
struct KindWords {
    const char* none;    // "zadny utok"
    const char* isNot;   // "neni"
    const char* wasNot;  // "nebyl"
};

KindWords wordsFor(EventKind kind) {
    switch (kind) {
        case EventKind::Attacks: return {"zadny utok", "neni", "nebyl"};
        case EventKind::HeadquartersCaptures: return {"zadne dobyti veleni", "neni", "nebylo"};
        case EventKind::Failures: return {"zadna akce s chybou", "neni", "nebyla"};
        case EventKind::Economy: return {"zadna ekonomicka akce", "neni", "nebyla"};
        case EventKind::Moves: return {"zadny presun", "neni", "nebyl"};
        case EventKind::Lifecycle: return {"zadna akce prubehu hry", "neni", "nebyla"};
        case EventKind::All: break;
    }
    return {"zadna akce", "neni", "nebyla"};
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace

std::string NoSuchActionText(EventKind kind, bool forward) {
    const KindWords words = wordsFor(kind);
    return forward ? std::string("Dale uz ") + words.none + " " + words.isNot
                   : std::string("Drive ") + words.none + " " + words.wasNot;
}

JumpEntry ReadJumpEntry(std::string_view typed, int eventCount) {
    const std::string range = "od 1 do " + std::to_string(eventCount);
    std::string_view text = trimmed(typed);
    if (text.empty()) return {0, "Zadejte cislo akce " + range + "."};
    const std::string_view digits = text.front() == '+' ? text.substr(1) : text;
    int wanted = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), wanted);
    if (digits.empty() || error == std::errc::invalid_argument || end != digits.data() + digits.size())
        return {0, "'" + std::string(text) + "' neni cislo akce: zadejte cele cislo " + range + "."};
    if (error == std::errc::result_out_of_range || wanted < 1 || wanted > eventCount)
        return {0, "Akce " + std::string(text) + " v replayi neni: zadejte cislo " + range + "."};
    return {wanted, {}};
}

}  // namespace trelvin

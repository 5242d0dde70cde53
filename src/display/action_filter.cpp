#include "display/action_filter.h"

#include <algorithm>
#include <array>

#include "model/text_encoding.h"

namespace trelvin {

namespace {

// Windows-1250's letters in one case: each capital as its small letter.
constexpr std::array<unsigned char, 256> kFolding = [] {
    std::array<unsigned char, 256> table{};
    for (int c = 0; c < 256; ++c) table[std::size_t(c)] = static_cast<unsigned char>(c);
    for (int c = 'A'; c <= 'Z'; ++c) table[std::size_t(c)] = static_cast<unsigned char>(c + 0x20);
    for (int c = 0xC0; c <= 0xDE; ++c)
        if (c != 0xD7) table[std::size_t(c)] = static_cast<unsigned char>(c + 0x20);
    for (const int c : {0x8A, 0x8C, 0x8D, 0x8E, 0x8F}) table[std::size_t(c)] = static_cast<unsigned char>(c + 0x10);
    for (const auto [capital, small] : {std::pair{0xA3, 0xB3}, {0xA5, 0xB9}, {0xAA, 0xBA}, {0xAF, 0xBF}, {0xBC, 0xBE}})
        table[std::size_t(capital)] = static_cast<unsigned char>(small);
    return table;
}();

// Column characters run from "A" up through the code page; rows are digits.
bool isRowDigit(char c) { return c >= '0' && c <= '9'; }
bool isColumnCharacter(char c) { return !isRowDigit(c) && static_cast<unsigned char>(c) >= 'A'; }

// Blanks of any kind around a typed text, as a text field trims them.
std::string_view trimmed(std::string_view text) {
    static constexpr std::string_view kSpaces[] = {
        " ",            "\t",           "\n",           "\v",           "\f",           "\r",
        "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81", "\xE2\x80\x82",
        "\xE2\x80\x83", "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86", "\xE2\x80\x87", "\xE2\x80\x88",
        "\xE2\x80\x89", "\xE2\x80\x8A", "\xE2\x80\xA8", "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F",
        "\xE3\x80\x80"};
    for (bool trimming = true; trimming;) {
        trimming = false;
        for (const std::string_view space : kSpaces) {
            if (text.starts_with(space)) text.remove_prefix(space.size()), trimming = true;
            if (text.ends_with(space)) text.remove_suffix(space.size()), trimming = true;
        }
    }
    return text;
}

// Where `name` stands in `rowText` as a whole field name: no column character or digit just
// before it, no digit just after it.
bool standsAlone(std::string_view rowText, std::string_view name) {
    for (std::size_t at = rowText.find(name); at != std::string_view::npos; at = rowText.find(name, at + 1)) {
        const std::size_t end = at + name.size();
        const bool startsAlone = at == 0 || !(isColumnCharacter(rowText[at - 1]) || isRowDigit(rowText[at - 1]));
        const bool endsAlone = end == rowText.size() || !isRowDigit(rowText[end]);
        if (startsAlone && endsAlone) return true;
    }
    return false;
}

}  // namespace

ActionSearch::ActionSearch(std::string_view text) {
    const std::string_view typed = trimmed(text);
    text_ = utf8ToCp1250(typed);
    representable_ = cp1250ToUtf8(text_) == typed;
    folded_ = Folded(text_);
    namesField_ = text_.size() >= 2 && isColumnCharacter(text_.front()) &&
                  std::all_of(text_.begin() + 1, text_.end(), isRowDigit);
}

std::string ActionSearch::Folded(std::string_view text) {
    std::string folded(text);
    for (char& c : folded) c = static_cast<char>(kFolding[static_cast<unsigned char>(c)]);
    return folded;
}

bool ActionSearch::matches(std::string_view rowText) const {
    if (!representable_) return false;
    return namesField_ ? standsAlone(rowText, text_) : Folded(rowText).find(folded_) != std::string::npos;
}

bool ActionSearch::mayMatchFolded(std::string_view foldedRowText) const {
    if (!representable_) return false;
    return namesField_ ? standsAlone(foldedRowText, folded_) : foldedRowText.find(folded_) != std::string_view::npos;
}

ActionFilter::ActionFilter(const ActionLog* log, const ActionPlayers* players) : log_(log), players_(players) {
    if (!log_) return;
    folded_.reserve(std::size_t(log_->size()));
    for (int i = 1; i <= log_->size(); ++i) folded_.push_back(ActionSearch::Folded(searchText(i)));
}

// What a search looks in: the action's keyword, its description and the names it mentions.
std::string ActionFilter::searchText(int event) const {
    const LoggedEvent& e = log_->event(event);
    return e.keyword + " " + e.description + " " + e.subjects;
}

std::vector<int> ActionFilter::shown(EventKind kind, int player, const ActionSearch& search) const {
    std::vector<int> events;
    if (!log_) return events;
    const bool byPlayer = player != ActionPlayers::kNobody && players_;
    for (int i = 1; i <= log_->size(); ++i) {
        if (!log_->isOfKind(i, kind)) continue;
        if (byPlayer && !players_->concerns(i, player)) continue;
        if (!search.isEmpty()) {
            if (!search.mayMatchFolded(folded_[std::size_t(i - 1)])) continue;
            // Few rows name a field in any case; their own text tells whether in this one.
            if (search.namesField() && !search.matches(searchText(i))) continue;
        }
        events.push_back(i);
    }
    return events;
}

}  // namespace trelvin

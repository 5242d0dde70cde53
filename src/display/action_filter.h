#pragma once
// What the action list shows: the actions of one kind, by or on the fields of one player, and
// found by a search. A field's name ("B3": a column character and a row number) is searched for
// as a whole name in the case it is written: B3 finds B3, but neither B37 nor b3, which on a map
// of more than 32 columns is another field. Any other text is searched for anywhere, in any case.
#include <string>
#include <string_view>
#include <vector>

#include "history/action_log.h"
#include "history/action_players.h"

namespace trelvin {

class ActionSearch {
public:
    // The text as typed (UTF-8); blanks around it do not count.
    explicit ActionSearch(std::string_view text = {});

    bool isEmpty() const { return text_.empty() && representable_; }
    // Whether the text is searched for as a field's name.
    bool namesField() const { return namesField_; }
    // Whether a row's text (Windows-1250) holds it.
    bool matches(std::string_view rowText) const;
    // The same asked of a row's text folded to one case, which is quicker: exact for other text;
    // for a field's name true also where the name stands in another case, so the row's own text
    // must then decide.
    bool mayMatchFolded(std::string_view foldedRowText) const;

    // A Windows-1250 text in one case, for searching in any case.
    static std::string Folded(std::string_view text);

private:
    std::string text_;    // Windows-1250
    std::string folded_;
    bool representable_ = true;  // a text with letters Windows-1250 lacks is found nowhere
    bool namesField_ = false;
};

// The rows of the list over one replay's log; the texts it searches are made once, when the
// replay is shown, so that no keystroke of a search waits for them.
class ActionFilter {
public:
    ActionFilter() = default;
    // Both must outlive the filter or the next one given.
    ActionFilter(const ActionLog* log, const ActionPlayers* players);

    // The actions of `kind`, by or on the fields of `player` (an index into the players' names;
    // ActionPlayers::kNobody for all), found by `search`, in order.
    std::vector<int> shown(EventKind kind, int player, const ActionSearch& search) const;

private:
    std::string searchText(int event) const;

    const ActionLog* log_ = nullptr;
    const ActionPlayers* players_ = nullptr;
    std::vector<std::string> folded_;  // the search text of each action, folded
};

}  // namespace trelvin

#pragma once
// The page's replay: the core's replay cursor with the grid of its map, moved as the window's
// session moves it. Everything it gives the page is UTF-8 text, numbers and bytes.
#include <cstdint>
#include <string>
#include <vector>

#include <emscripten/val.h>

#include "cursor/replay_cursor.h"
#include "cursor/step_buttons.h"
#include "view/grid_layout.h"

namespace trelvin::web {

using emscripten::val;

class Replay {
public:
    Replay();

    // Loads the bytes of file `name` (of `size` bytes: past the limit none need be given) and
    // applies its first action, then lays out the grid of its map as the window does (with the
    // window's limits). The map shows free land until the first move. `keepGoing(done, total)`
    // hears how far the load has come; its false stops the load as a failed load stops.
    val open(const std::string& bytes, const std::string& name, double size, val keepGoing);

    // The step buttons' moves and the jump: { position, eventCount, reports, stopped }.
    val first();
    val back();
    val forward();
    val last();
    // A jump also tells `news`: the reports of the actions the user had not passed yet.
    val jumpTo(int target);
    // The button groups for the position as it stands.
    val updateButtons();

    int position() const { return cursor_.position(); }
    int eventCount() const { return cursor_.eventCount(); }
    // The actions the last open read: those the list, the timeline, the charts and the jumps offer.
    int actionsRead() const { return cursor_.actionsRead(); }
    // After a load that failed, the line the list, the timeline and the charts show; empty after
    // one that succeeded.
    std::string failedLoadText() const;
    // "all", "les" or "louka"; false for any other name.
    bool setViewMode(const std::string& name);

    // The picture of each shown field, row by row; valid until the next call into the core.
    val pictures();
    val marks() const;

    std::string description() const;
    std::string positionText() const;
    val time() const;
    val clock(int scaleHeight) const;
    std::string fieldName(int k) const;
    val inspectField(const std::string& name) const;
    val playerEntries() const;
    val playerStanding(int player) const;

    const ReplayCursor& cursor() const { return cursor_; }

private:
    template <typename Move>
    val move(Move&& cursorMove);
    ViewMode mode() const;
    std::size_t shownFields() const;
    val grid();

    ReplayCursor cursor_;
    GridLayout layout_;
    StepButtons buttons_;
    std::vector<std::uint8_t> frame_;
    bool loadFailed_ = false;
};

}  // namespace trelvin::web

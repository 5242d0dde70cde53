#pragma once
// What the map shows of the world at one action in one way of viewing: the picture of every
// field and the marks of the action. The window's map, the exported frames, the dump and the
// web page all draw this.
#include <vector>

#include "model/world_state.h"
#include "view/action_marks.h"
#include "view/view_mode.h"

namespace trelvin {

// The fields of a map: those a redraw covers, and those of them the grid places, which the
// pictures and the marks keep to. The two differ only where the grid's build stopped short.
struct MapFields {
    int redrawn = 0;
    int shown = 0;
};

struct MapFrame {
    std::vector<int> pictures;  // fields 1 .. shown, row by row from A0
    ActionMarks marks;
    bool operator==(const MapFrame&) const = default;
};

// The frame of `world`, redrawn in `mode` (its visible flags are those RevealForView wrote),
// with the marks of the action at `position` (which took a headquarters or not).
MapFrame ChooseFrame(const WorldState& world, ViewMode mode, MapFields fields, int position, bool tookHeadquarters);

}  // namespace trelvin

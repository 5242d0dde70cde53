#pragma once
// A world brought from action to action as the step buttons bring the window's: the first
// action applied anew, then one action at a time, each followed by what the map's redraw writes
// into the world in one way of viewing. An exported picture of an action is then what the
// window shows there.
#include <vector>

#include "model/world_state.h"
#include "view/field_pictures.h"

namespace trelvin {

class ForwardSteps {
public:
    // Steps `world` for a map of `fieldCount` fields seen in `mode`.
    ForwardSteps(WorldState& world, ViewMode mode, int fieldCount);

    // The action applied last; 0 before the first.
    int position() const { return position_; }

    // |<--: applies the first action again.
    void first();
    // ---->: applies the next action.
    void forward();

    // The redraw at the position: what it writes into the world, then every field's picture.
    std::vector<int> redraw();

private:
    void apply(int action);
    void findBareFields();

    WorldState& world_;
    ViewMode mode_;
    int fieldCount_;
    int position_ = 0;
    // The fields without a terrain letter, and perhaps some that got one since: only a bare
    // field that is owned can be changed by a redraw's write.
    std::vector<int> bareFields_;
};

}  // namespace trelvin

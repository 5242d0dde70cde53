#pragma once
// The fields of a map without a terrain letter, followed action by action. A redraw writes "N"
// only into such a field that is owned: while none is, a redraw writes nothing that lasts, and
// the actions between two pictures need none.
#include <vector>

#include "engine/event_outcome.h"
#include "model/world_state.h"

namespace trelvin {

class BareFields {
public:
    // Looks through fields 1 .. `fieldCount` of `world`.
    void findAll(const WorldState& world, int fieldCount);
    // After an action: the fields it wrote may have lost their letter.
    void note(const WorldState& world, const EventOutcome& outcome);
    // Whether a bare field is owned; those that got a letter since are let go.
    bool anyOwned(const WorldState& world);

private:
    void add(const WorldState& world, int field);

    int last_ = 0;
    std::vector<int> fields_;
    std::vector<char> listed_;  // by field
};

}  // namespace trelvin

#pragma once
// What the map marks of the action applied last: the fields it names, an arrow from the field
// it starts on to the field it reaches, and a headquarters it took. A way of viewing that shows
// one side learns nothing from the marks that its pictures hide: a field it cannot see is never
// marked (nor is an arrow drawn towards it), and an action that only moves, buys, sells or
// founds what the pictures hide from it (the other side's armies and headquarters) is not
// marked at all.
#include <vector>

#include "model/world_state.h"
#include "view/field_pictures.h"

namespace trelvin {

struct ActionMarks {
    std::vector<int> outlined;  // fields (from 1) to outline, each once
    // An arrow between two outlined fields, from the first to the second; 0 for none.
    int arrowFrom = 0;
    int arrowTo = 0;
    int capturedHeadquarters = 0;  // the field of a headquarters the action took; 0 for none

    bool empty() const { return outlined.empty() && capturedHeadquarters == 0; }
    bool operator==(const ActionMarks&) const = default;
};

// The marks of event `position`, just applied to `world` (where it took a headquarters or not)
// and redrawn in `mode` (its fields' visible flags are those RevealForView wrote), on a map of
// `fieldCount` fields.
ActionMarks MarkAction(const WorldState& world, int position, bool tookHeadquarters, ViewMode mode, int fieldCount);

}  // namespace trelvin

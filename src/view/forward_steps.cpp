#include "view/forward_steps.h"

#include <algorithm>

#include "engine/event_executor.h"
#include "model/action_table.h"

namespace trelvin {

namespace {

// What the actions report is the window's to show; an export passes over it, as a jump does.
class IgnoringReporter : public Reporter {
public:
    void report(const std::string&) override {}
};

}  // namespace

ForwardSteps::ForwardSteps(WorldState& world, ViewMode mode, int fieldCount)
    : world_(world), mode_(mode), fieldCount_(fieldCount) {
    findBareFields();
}

void ForwardSteps::first() {
    position_ = 1;
    apply(position_);
}

void ForwardSteps::forward() { apply(++position_); }

std::vector<int> ForwardSteps::redraw() { return RedrawPictures(world_, mode_, fieldCount_); }

void ForwardSteps::apply(int action) {
    IgnoringReporter reporter;
    ExecuteEvent(world_, static_cast<std::int16_t>(action), reporter);
    // Only the world's creation and a change of terrain write terrain letters, and only an
    // empty letter makes a field bare; a field that got a letter stays listed, and is passed over.
    if (action <= world_.lastEventIndex()) {
        const ReplayEvent& event = world_.events[static_cast<std::size_t>(action)];
        const Action kind = ActionOf(event.action);
        if (kind == Action::CreateWorld || (kind == Action::ConvertGround && event.newTerrain().empty())) findBareFields();
    }
    // The redraw after each step fills an owned, visible field's empty terrain with grass, which
    // later actions read. Where no field can be filled it writes nothing that lasts: the
    // visibility is worked out anew by the next redraw, so the whole pass is needed only then.
    const bool fillable = std::any_of(bareFields_.begin(), bareFields_.end(),
                                      [this](int k) {
                                          const Tile& tile = world_.tiles[static_cast<std::size_t>(k)];
                                          return tile.terrain.empty() && !tile.owner.empty();
                                      });
    if (fillable) {
        RevealForView(world_, mode_, fieldCount_);
        findBareFields();
    }
}

void ForwardSteps::findBareFields() {
    bareFields_.clear();
    for (int k = 1; k <= std::min(fieldCount_, world_.lastTileIndex()); ++k)
        if (world_.tiles[static_cast<std::size_t>(k)].terrain.empty()) bareFields_.push_back(k);
}

}  // namespace trelvin

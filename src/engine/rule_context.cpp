#include "engine/rule_context.h"

#include <algorithm>

#include "engine/execution_messages.h"
#include "model/field_addressing.h"

namespace trelvin {

int RuleContext::indexOf(std::string_view fieldName) const {
    const int index = FieldIndex(world, fieldName);
    if (index < 0 || index > world.lastTileIndex())
        throw RuleError(RuleError::Kind::OutOfRange,
                        "Index mimo rozsah: pole '" + std::string(fieldName) + "' neni na mape");
    return index;
}

const Tile& RuleContext::field(std::string_view fieldName) const { return world.tiles[indexOf(fieldName)]; }

Tile& RuleContext::changeField(std::string_view fieldName) { return changeFieldAt(indexOf(fieldName)); }

Tile& RuleContext::changeFieldAt(int index) {
    if (index < 0 || index > world.lastTileIndex())
        throw RuleError(RuleError::Kind::OutOfRange,
                        "Index mimo rozsah: pole cislo " + std::to_string(index) + " neni na mape");
    // A rule writes a field in several steps in a row: note it once there.
    std::vector<int>& changed = outcome_.changedFields;
    if (changed.empty() || changed.back() != index) changed.push_back(index);
    return world.tiles[index];
}

Player& RuleContext::player(std::string_view name) { return world.players[PlayerIndex(world, name)]; }

void RuleContext::finish() {
    std::vector<int>& changed = outcome_.changedFields;
    std::sort(changed.begin(), changed.end());
    changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
}

void RuleContext::fail(const RuleError& error) {
    switch (mode_) {
        case ErrorMode::Stop:
            outcome_.messages.push_back(std::string(kExecuteErrorPrefix) + error.what());
            throw EventStopped{};
        case ErrorMode::Forgery:
            outcome_.messages.push_back(kForgeryMessage);
            return;
        case ErrorMode::Quiet:
            return;
    }
}

}  // namespace trelvin

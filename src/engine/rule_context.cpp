#include "engine/rule_context.h"

#include "engine/execution_messages.h"
#include "model/field_addressing.h"

namespace trelvin {

Tile& RuleContext::tile(std::string_view fieldName) {
    const int index = FieldIndex(world, fieldName);
    if (index < 0 || index > world.lastTileIndex())
        throw RuleError(RuleError::Kind::OutOfRange,
                        "Index mimo rozsah: pole '" + std::string(fieldName) + "' neni na mape");
    return world.tiles[index];
}

Tile& RuleContext::tileAt(int index) {
    if (index < 0 || index > world.lastTileIndex())
        throw RuleError(RuleError::Kind::OutOfRange,
                        "Index mimo rozsah: pole cislo " + std::to_string(index) + " neni na mape");
    return world.tiles[index];
}

Player& RuleContext::player(std::string_view name) { return world.players[PlayerIndex(world, name)]; }

void RuleContext::fail(const RuleError& error) {
    switch (mode_) {
        case ErrorMode::Stop:
            reporter_.report(std::string(kExecuteErrorPrefix) + error.what());
            throw EventStopped{};
        case ErrorMode::Forgery:
            reporter_.report(kForgeryMessage);
            return;
        case ErrorMode::Quiet:
            return;
    }
}

}  // namespace trelvin

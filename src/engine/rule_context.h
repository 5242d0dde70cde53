#pragma once
// The frame every rule runs in: numbered steps that either complete or fail as a whole,
// and the error mode that decides what a failed step does.
#include <cstdint>
#include <string>
#include <string_view>

#include "model/checked_math.h"
#include "model/reporter.h"
#include "model/world_state.h"

namespace trelvin {

enum class ErrorMode {
    Stop,     // report the failure and skip the rest of the event
    Forgery,  // report the record as forged and go on with the next step
    Quiet,    // skip the failed step silently and go on
};

// Thrown by a failed step in stop mode; ends the event, caught by the executor.
struct EventStopped {};

class RuleContext {
public:
    RuleContext(WorldState& world, int eventIndex, Reporter& reporter)
        : world(world), eventIndex_(eventIndex), reporter_(reporter) {}

    WorldState& world;

    const ReplayEvent& event() const { return world.events[eventIndex_]; }
    void setMode(ErrorMode mode) { mode_ = mode; }

    // Runs one step. Every step computes first and assigns last, so a failure inside it
    // leaves the world as it was.
    template <typename Body>
    void step(Body&& body) {
        try {
            body();
        } catch (const RuleError& error) {
            fail(error);
        }
    }

    // The field a name addresses (entry 0 for a blank name); throws when it addresses none.
    Tile& tile(std::string_view fieldName);
    Tile& tileAt(int index);
    // The player of that name, or the placeholder entry 0 when nobody has it.
    Player& player(std::string_view name);
    Player& ownerOf(std::string_view fieldName) { return player(tile(fieldName).owner); }

private:
    void fail(const RuleError& error);

    int eventIndex_;
    Reporter& reporter_;
    ErrorMode mode_ = ErrorMode::Stop;
};

inline constexpr std::string_view kLineBreak = "\r\n";

// Decimal text of a number, as every description writes it.
inline std::string num(std::int64_t value) { return std::to_string(value); }

}  // namespace trelvin

#pragma once
// The frame every rule runs in: numbered steps that either complete or fail as a whole,
// and the error mode that decides what a failed step does.
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/event_outcome.h"
#include "model/checked_math.h"
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
    RuleContext(WorldState& world, int eventIndex, EventOutcome& outcome)
        : world(world), eventIndex_(eventIndex), outcome_(outcome) {}

    WorldState& world;

    const ReplayEvent& event() const { return world.events[eventIndex_]; }
    int eventIndex() const { return eventIndex_; }
    EventOutcome& outcome() { return outcome_; }
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

    // The field a name addresses (entry 0 for a blank name), to read; throws when it addresses
    // none.
    const Tile& field(std::string_view fieldName) const;
    // The same field to write, or field `index`: noted in the outcome as changed.
    Tile& changeField(std::string_view fieldName);
    Tile& changeFieldAt(int index);
    // The player of that name, or the placeholder entry 0 when nobody has it.
    Player& player(std::string_view name);
    Player& ownerOf(std::string_view fieldName) { return player(field(fieldName).owner); }

    // Puts the outcome's fields in order once the event is over.
    void finish();

private:
    int indexOf(std::string_view fieldName) const;
    void fail(const RuleError& error);

    int eventIndex_;
    EventOutcome& outcome_;
    ErrorMode mode_ = ErrorMode::Stop;
};

inline constexpr std::string_view kLineBreak = "\r\n";

// Decimal text of a number, as every description writes it.
inline std::string num(std::int64_t value) { return std::to_string(value); }

}  // namespace trelvin

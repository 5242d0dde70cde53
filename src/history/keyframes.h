#pragma once
// Copies of the world taken every `kSpacing` events in the pass made at opening, so that a move
// backwards or far ahead starts from the nearest one instead of the first event and still reaches
// the very state a rebuild from the first event gives.
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "history/action_log.h"
#include "model/date_time.h"
#include "model/world_state.h"

namespace trelvin {

// What events change, as it stood after event `event`. The fields' `visible` flags are the
// redraw's, not the events': a restore leaves them as they are.
struct Keyframe {
    // A field's texts as indexes into the keyframes' table of the texts they hold: a map's fields
    // share a few terrain letters, army types and owners, which copied whole took 1.1 MB a copy.
    struct Field {
        std::uint32_t terrain;
        std::uint32_t owner;
        std::uint32_t armyType;
        std::int16_t armyCount;
    };

    int event = 0;
    std::vector<Field> tiles;
    std::vector<Player> players;
    DateTime currentTime;
    std::string actionText;
    // The winner the end rule had stored for the last event, once an end was applied.
    std::optional<std::string> winner;
};

class Keyframes {
public:
    // Events between two keyframes: the events after a copy re-apply in well under a
    // millisecond, less than a jump's paint.
    static constexpr int kSpacing = 2048;

    // Notes what a rebuild from the first event cannot reset in `world`, the copy the pass
    // starts from.
    explicit Keyframes(const WorldState& world);
    Keyframes() = default;

    // Event `index`, as the pass has just applied it to `world` and logged it in `entry`.
    void record(const WorldState& world, int index, const LoggedEvent& entry);

    // The latest keyframe at or before event `target` that can stand for a rebuild of `world`
    // from the first event; none when the rebuild has to start at the first event.
    const Keyframe* nearest(const WorldState& world, int target) const;
    // Puts `frame`, one `nearest` gave for `world`, into `world`.
    void restore(const Keyframe& frame, WorldState& world) const;

    int size() const { return static_cast<int>(frames_.size()); }
    // The events that reported anything in the pass, in order: those a keyframe passes over
    // report again from the log.
    const std::vector<int>& reportingEvents() const { return reporting_; }

private:
    bool rebuildsFromNothing_ = false;
    Tile placeholderField_;  // entry 0 of the fields as the pass began
    int tileCount_ = 0;
    bool endApplied_ = false;
    // The index of `text` in the table; `last` is its column's index found last.
    std::uint32_t textIndex(const std::string& text, std::uint32_t& last);

    std::vector<Keyframe> frames_;
    std::vector<int> reporting_;
    std::vector<std::string> texts_;  // every field text a keyframe holds, once
    std::unordered_map<std::string, std::uint32_t> textIndexes_;
};

}  // namespace trelvin

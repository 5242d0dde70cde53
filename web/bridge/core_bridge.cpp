// The page's way into the core, through embind: one Replay over the replay cursor, as the
// window's session holds one. Text leaves it as UTF-8, which embind hands to JavaScript as
// strings; the map's pictures leave it as bytes.
#include <cstdint>
#include <exception>
#include <string>
#include <vector>

#include <emscripten/bind.h>
#include <emscripten/val.h>

#include "cursor/replay_cursor.h"
#include "cursor/step_buttons.h"
#include "display/clock_geometry.h"
#include "history/player_csv.h"
#include "model/field_addressing.h"
#include "model/replay_limits.h"
#include "model/replay_source.h"
#include "model/task_progress.h"
#include "model/text_encoding.h"
#include "view/field_details.h"
#include "view/grid_layout.h"

namespace {

using emscripten::val;
using namespace trelvin;

std::string utf8(const std::string& cp1250) { return cp1250ToUtf8(cp1250); }

// The description as the window shows it: its line breaks as new lines.
std::string multiline(const std::string& cp1250) {
    std::string text = utf8(cp1250);
    std::string kept;
    kept.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        if (!(text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')) kept += text[i];
    return kept;
}

val texts(const std::vector<std::string>& cp1250) {
    val list = val::array();
    for (const std::string& text : cp1250) list.call<void>("push", utf8(text));
    return list;
}

val point(ClockPoint p) {
    val xy = val::array();
    xy.call<void>("push", p.x);
    xy.call<void>("push", p.y);
    return xy;
}

// What a move did: the position it reached and what the actions on the way reported.
val moveResult(const MoveResult& moved, int position, int eventCount) {
    val reports = val::array();
    for (const EventReport& report : moved.reports) {
        val entry = val::object();
        entry.set("event", report.event);
        entry.set("text", utf8(report.text));
        reports.call<void>("push", entry);
    }
    val result = val::object();
    result.set("position", position);
    result.set("eventCount", eventCount);
    result.set("reports", reports);
    result.set("stopped", moved.stopped);
    return result;
}

// A file's bytes as the page read them, refused past the size limit as a file on disk is.
class PageFile : public ReplayText {
public:
    PageFile(std::string_view bytes, std::string name, double size) : ReplayText(bytes), name_(std::move(name)), size_(size) {}
    void open() override {
        if (size_ > static_cast<double>(kMaxFileBytes))
            throw ReplayReadError("soubor '" + utf8ToCp1250(name_) + "' je prilis velky (" +
                                  std::to_string(static_cast<std::uint64_t>(size_) >> 20) + " MB, nejvyse " +
                                  std::to_string(kMaxFileBytes >> 20) + " MB)");
    }

private:
    std::string name_;
    double size_;
};

// The page's answer to how far a load has come: false stops it as its Cancel does.
class PageProgress : public TaskProgress {
public:
    explicit PageProgress(val keepGoing) : keepGoing_(std::move(keepGoing)) {}
    bool keepGoing(std::uint64_t done, std::uint64_t total) override {
        return keepGoing_(static_cast<double>(done), static_cast<double>(total)).as<bool>();
    }

private:
    val keepGoing_;
};

// The step buttons follow the position whenever a move sets it, as the window's do.
class ButtonWatcher : public MoveWatcher {
public:
    explicit ButtonWatcher(StepButtons& buttons, const ReplayCursor& cursor) : buttons_(buttons), cursor_(cursor) {}
    void positionSet(int position) override { buttons_.follow(position, cursor_.eventCount()); }

private:
    StepButtons& buttons_;
    const ReplayCursor& cursor_;
};

class Replay {
public:
    Replay() { cursor_.setMap(ViewMode::All, {}); }

    // Loads the bytes of file `name` (of `size` bytes: past the limit none need be given) and
    // applies its first action, then lays out the grid of its map as the window does (with the
    // window's limits). The map shows free land until the first move. `keepGoing(done, total)`
    // hears how far the load has come; its false stops the load as a failed load stops.
    val open(const std::string& bytes, const std::string& name, double size, val keepGoing) {
        frame_ = {};
        layout_.clear();
        cursor_.setMap(mode(), {});
        PageFile source(bytes, name, size);
        PageProgress progress(keepGoing);
        const OpenResult opened = cursor_.open(source, keepGoing.isUndefined() ? nullptr : &progress);
        val result = moveResult(opened.first, cursor_.position(), cursor_.eventCount());
        result.set("failure", utf8(opened.load.failure));
        result.set("worldName", utf8(cursor_.world().worldName));
        std::string gridFailure;
        try {
            layout_.build(cursor_.world().mapHeight, cursor_.world().mapWidth, 0);
        } catch (const std::exception& failure) {
            gridFailure = utf8(failure.what());
        }
        result.set("gridFailure", gridFailure);
        result.set("grid", grid());
        return result;
    }

    val first() { return move([this](MoveWatcher* w) { return cursor_.first(w); }); }
    val back() { return move([this](MoveWatcher* w) { return cursor_.back(w); }); }
    val forward() { return move([this](MoveWatcher* w) { return cursor_.forward(w); }); }
    val last() { return move([this](MoveWatcher* w) { return cursor_.last(w); }); }
    val jumpTo(int target) { return move([this, target](MoveWatcher* w) { return cursor_.jumpTo(target, w); }); }

    // The button groups for the position as it stands.
    val updateButtons() {
        buttons_.follow(cursor_.position(), cursor_.eventCount());
        val state = val::object();
        state.set("forward", buttons_.forwardEnabled);
        state.set("backward", buttons_.backwardEnabled);
        state.set("atBegin", buttons_.atBegin);
        state.set("atEnd", buttons_.atEnd);
        return state;
    }

    int position() const { return cursor_.position(); }
    int eventCount() const { return cursor_.eventCount(); }

    // "all", "les" or "louka"; false for any other name.
    bool setViewMode(const std::string& name) {
        const std::optional<ViewMode> chosen = ViewModeNamed(name);
        if (!chosen) return false;
        cursor_.setViewMode(*chosen);
        return true;
    }

    // The picture of each shown field, row by row; valid until the next call into the core.
    val pictures() {
        const std::vector<int>& chosen = cursor_.frame().pictures;
        const std::size_t shown = shownFields();
        frame_.assign(shown, picture::kFreeLand);
        for (std::size_t i = 0; i < shown && i < chosen.size(); ++i) frame_[i] = static_cast<std::uint8_t>(chosen[i]);
        return val(emscripten::typed_memory_view(frame_.size(), frame_.data()));
    }

    val marks() const {
        const ActionMarks& marks = cursor_.frame().marks;
        val result = val::object();
        val outlined = val::array();
        for (const int k : marks.outlined) outlined.call<void>("push", k);
        result.set("outlined", outlined);
        result.set("arrowFrom", marks.arrowFrom);
        result.set("arrowTo", marks.arrowTo);
        result.set("capturedHeadquarters", marks.capturedHeadquarters);
        return result;
    }

    std::string description() const { return multiline(cursor_.world().actionText); }
    // "5 (120)": the position, then the count of actions.
    std::string positionText() const {
        return std::to_string(cursor_.position()) + " (" + std::to_string(cursor_.eventCount()) + ")";
    }

    // The world's time as parts, for the page to write in the reader's way.
    val time() const {
        const DateTime& t = cursor_.world().currentTime;
        val parts = val::array();
        for (const int part : {t.year(), t.month(), t.day(), t.hour(), t.minute(), t.second()})
            parts.call<void>("push", part);
        return parts;
    }

    // The clock face in a box of `scaleHeight` scale units: its marks, and the ends of the hour,
    // minute and second hands of the action at the position (none where there is no action).
    val clock(int scaleHeight) const {
        val result = val::object();
        val marks = val::array();
        for (const ClockPoint& mark : DialMarks(24, scaleHeight)) marks.call<void>("push", point(mark));
        result.set("marks", marks);
        result.set("centre", point(ClockCentre(scaleHeight)));
        const WorldState& world = cursor_.world();
        const int index = cursor_.position();
        if (index < 1 || index > world.lastEventIndex()) return result;
        const DateTime& t = world.events[static_cast<std::size_t>(index)].time;
        val hands = val::array();
        hands.call<void>("push", point(HandEnd(static_cast<float>(t.hour()), 24, scaleHeight)));
        hands.call<void>("push", point(HandEnd(static_cast<float>(t.minute()), 60, scaleHeight)));
        hands.call<void>("push", point(HandEnd(static_cast<float>(t.second()), 60, scaleHeight)));
        result.set("hands", hands);
        val parts = val::array();
        for (const int part : {t.hour(), t.minute(), t.second()}) parts.call<void>("push", part);
        result.set("handTime", parts);
        return result;
    }

    // Field k's name; empty where the map can make none.
    std::string fieldName(int k) const {
        try {
            return utf8(FieldName(layout_.columns(), k));
        } catch (const std::exception&) {
            return {};
        }
    }

    // The field panel's four values for a typed or clicked name; null where the panel stays as it is.
    val inspectField(const std::string& typed) const {
        const WorldState& world = cursor_.world();
        const std::string name = utf8ToCp1250(typed);
        if (!IsValidFieldName(world, name)) return val::null();
        const std::optional<FieldInspection> found = InspectField(world, name, mode());
        if (!found) return val::null();
        val result = val::object();
        result.set("terrain", utf8(found->terrain));
        result.set("owner", utf8(found->owner));
        result.set("armyType", utf8(found->armyType));
        result.set("armyCount", utf8(found->armyCount));
        return result;
    }

    // The nearest action of a kind (EventKind's order) after or before the position; 0 for none.
    int nearest(int kind, bool forward) const {
        const int found = cursor_.history().log.nearest(cursor_.position(), static_cast<EventKind>(kind), forward);
        return found <= cursor_.eventCount() ? found : 0;
    }

    // Every player's standing after every action, as trelvin-dump --csv prints it; empty when
    // the replay has no series.
    std::string csv() const {
        if (!cursor_.history().series.complete()) return {};
        std::string out;
        WritePlayerCsv(cursor_.history(), cursor_.eventCount(), [&out](std::string_view rows) { out += rows; });
        return out;
    }

private:
    template <typename Move>
    val move(Move&& cursorMove) {
        ButtonWatcher watcher(buttons_, cursor_);
        const MoveResult moved = cursorMove(&watcher);
        return moveResult(moved, cursor_.position(), cursor_.eventCount());
    }

    ViewMode mode() const { return cursor_.viewMode().value_or(ViewMode::All); }

    // The fields the grid placed: those before the first one a failure left unplaced.
    std::size_t shownFields() const {
        std::size_t placed = 0;
        while (placed < layout_.fields().size() && layout_.fields()[placed].visible) ++placed;
        return placed;
    }

    // The grid as the map shows it: its shown fields, the columns of a row, and the captions
    // of a complete grid, which a failure leaves out.
    val grid() {
        const int shown = static_cast<int>(shownFields());
        cursor_.setMap(mode(), {layout_.fieldCount(), shown});
        std::vector<std::string> columnCaptions, rowCaptions;
        const int columns = std::min(layout_.columns(), layout_.labelCount());
        for (int n = 1; n <= layout_.labelCount(); ++n) {
            const GridLabel& label = layout_.labels()[static_cast<std::size_t>(n - 1)];
            if (label.visible) (n <= columns ? columnCaptions : rowCaptions).push_back(label.caption);
        }
        val result = val::object();
        result.set("columns", layout_.columns());
        result.set("fields", shown);
        result.set("columnCaptions", texts(columnCaptions));
        result.set("rowCaptions", texts(rowCaptions));
        return result;
    }

    ReplayCursor cursor_;
    GridLayout layout_;
    StepButtons buttons_;
    std::vector<std::uint8_t> frame_;
};

}  // namespace

EMSCRIPTEN_BINDINGS(trelvin_core) {
    emscripten::class_<Replay>("Replay")
        .constructor<>()
        .function("open", &Replay::open)
        .function("first", &Replay::first)
        .function("back", &Replay::back)
        .function("forward", &Replay::forward)
        .function("last", &Replay::last)
        .function("jumpTo", &Replay::jumpTo)
        .function("updateButtons", &Replay::updateButtons)
        .function("position", &Replay::position)
        .function("eventCount", &Replay::eventCount)
        .function("setViewMode", &Replay::setViewMode)
        .function("pictures", &Replay::pictures)
        .function("marks", &Replay::marks)
        .function("description", &Replay::description)
        .function("positionText", &Replay::positionText)
        .function("time", &Replay::time)
        .function("clock", &Replay::clock)
        .function("fieldName", &Replay::fieldName)
        .function("inspectField", &Replay::inspectField)
        .function("nearest", &Replay::nearest)
        .function("csv", &Replay::csv);
}

#include "replay.h"

#include <exception>
#include <optional>

#include "display/world_texts.h"
#include "js_values.h"
#include "model/replay_limits.h"
#include "model/replay_source.h"
#include "model/task_progress.h"
#include "model/text_encoding.h"
#include "view/field_pictures.h"

namespace trelvin::web {

namespace {

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
    ButtonWatcher(StepButtons& buttons, const ReplayCursor& cursor) : buttons_(buttons), cursor_(cursor) {}
    void positionSet(int position) override { buttons_.follow(position, cursor_.eventCount()); }

private:
    StepButtons& buttons_;
    const ReplayCursor& cursor_;
};

// What a move did: the position it reached and what the actions on the way reported.
val moveResult(const MoveResult& moved, int position, int eventCount) {
    val reports = val::array();
    for (const EventReport& report : moved.reports) {
        val entry = val::object();
        entry.set("event", report.event);
        entry.set("text", cp1250ToUtf8(report.text));
        reports.call<void>("push", entry);
    }
    val result = val::object();
    result.set("position", position);
    result.set("eventCount", eventCount);
    result.set("reports", reports);
    result.set("stopped", moved.stopped);
    return result;
}

}  // namespace

Replay::Replay() { cursor_.setMap(ViewMode::All, {}); }

val Replay::open(const std::string& bytes, const std::string& name, double size, val keepGoing) {
    frame_ = {};
    layout_.clear();
    cursor_.setMap(mode(), {});
    PageFile source(bytes, name, size);
    PageProgress progress(keepGoing);
    const OpenResult opened = cursor_.open(source, keepGoing.isUndefined() ? nullptr : &progress);
    val result = moveResult(opened.first, cursor_.position(), cursor_.eventCount());
    result.set("failure", cp1250ToUtf8(opened.load.failure));
    loadFailed_ = !opened.load.succeeded();
    std::string gridFailure;
    try {
        layout_.build(cursor_.world().mapHeight, cursor_.world().mapWidth, 0);
    } catch (const std::exception& failure) {
        gridFailure = cp1250ToUtf8(failure.what());
    }
    result.set("gridFailure", gridFailure);
    result.set("grid", grid());
    return result;
}

template <typename Move>
val Replay::move(Move&& cursorMove) {
    ButtonWatcher watcher(buttons_, cursor_);
    const MoveResult moved = cursorMove(&watcher);
    return moveResult(moved, cursor_.position(), cursor_.eventCount());
}

val Replay::first() { return move([this](MoveWatcher* w) { return cursor_.first(w); }); }
val Replay::back() { return move([this](MoveWatcher* w) { return cursor_.back(w); }); }
val Replay::forward() { return move([this](MoveWatcher* w) { return cursor_.forward(w); }); }
val Replay::last() { return move([this](MoveWatcher* w) { return cursor_.last(w); }); }
val Replay::jumpTo(int target) {
    const int from = cursor_.position();
    ButtonWatcher watcher(buttons_, cursor_);
    const MoveResult moved = cursor_.jumpTo(target, &watcher);
    val result = moveResult(moved, cursor_.position(), cursor_.eventCount());
    std::vector<std::string> news;
    for (const EventReport& report : NewsOfJump(moved, from, cursor_.position())) news.push_back(cp1250ToUtf8(report.text));
    result.set("news", Strings(news));
    return result;
}

std::string Replay::failedLoadText() const { return loadFailed_ ? FailedLoadText(cursor_.actionsRead()) : std::string(); }

val Replay::updateButtons() {
    buttons_.follow(cursor_.position(), cursor_.eventCount());
    val state = val::object();
    state.set("forward", buttons_.forwardEnabled);
    state.set("backward", buttons_.backwardEnabled);
    state.set("atBegin", buttons_.atBegin);
    state.set("atEnd", buttons_.atEnd);
    return state;
}

bool Replay::setViewMode(const std::string& name) {
    const std::optional<ViewMode> chosen = ViewModeNamed(name);
    if (!chosen) return false;
    cursor_.setViewMode(*chosen);
    return true;
}

ViewMode Replay::mode() const { return cursor_.viewMode().value_or(ViewMode::All); }

val Replay::pictures() {
    const std::vector<int>& chosen = cursor_.frame().pictures;
    const std::size_t shown = shownFields();
    frame_.assign(shown, picture::kFreeLand);
    for (std::size_t i = 0; i < shown && i < chosen.size(); ++i) frame_[i] = static_cast<std::uint8_t>(chosen[i]);
    return val(emscripten::typed_memory_view(frame_.size(), frame_.data()));
}

val Replay::marks() const {
    const ActionMarks& marks = cursor_.frame().marks;
    val result = val::object();
    result.set("outlined", Numbers(marks.outlined));
    result.set("arrowFrom", marks.arrowFrom);
    result.set("arrowTo", marks.arrowTo);
    result.set("capturedHeadquarters", marks.capturedHeadquarters);
    return result;
}

std::string Replay::description() const { return DescriptionText(cursor_.world()); }

std::string Replay::positionText() const { return PositionText(cursor_.position(), cursor_.eventCount()); }

val Replay::time() const { return TimeParts(cursor_.world().currentTime); }

val Replay::clock(int scaleHeight) const {
    val result = val::object();
    val marks = val::array();
    for (const ClockPoint& mark : DialMarks(kDialMarks, scaleHeight)) marks.call<void>("push", PointOf(mark));
    result.set("marks", marks);
    const std::optional<DateTime> time = ClockTimeAt(cursor_.world(), cursor_.position());
    if (!time) return result;
    const ClockHands hands = HandsAt(time->hour(), time->minute(), time->second(), scaleHeight);
    result.set("centre", PointOf(hands.centre));
    val ends = val::array();
    for (const ClockPoint& end : {hands.hour, hands.minute, hands.second}) ends.call<void>("push", PointOf(end));
    result.set("hands", ends);
    result.set("handTime", Numbers({time->hour(), time->minute(), time->second()}));
    return result;
}

std::string Replay::fieldName(int k) const {
    try {
        return FieldNameText(cursor_.world(), k);
    } catch (const std::exception&) {
        return {};  // a map whose names cannot be made keeps its fields unnamed
    }
}

val Replay::inspectField(const std::string& name) const {
    const std::optional<FieldTexts> found = FieldDetails(cursor_.world(), name, mode());
    if (!found) return val::null();
    val result = val::object();
    result.set("terrain", found->terrain);
    result.set("owner", found->owner);
    result.set("armyType", found->armyType);
    result.set("armyCount", found->armyCount);
    return result;
}

val Replay::playerEntries() const { return Strings(PlayerEntries(cursor_.world())); }

val Replay::playerStanding(int player) const {
    const PlayerStanding standing = PlayerStandingOf(cursor_.world(), player);
    return Strings({standing.moves, standing.nectar, standing.headquarters, standing.territory});
}

std::size_t Replay::shownFields() const {
    std::size_t placed = 0;
    while (placed < layout_.fields().size() && layout_.fields()[placed].visible) ++placed;
    return placed;
}

// The grid as the map shows it: its shown fields, the columns of a row, and the captions of a
// complete grid, which a failure leaves out. Every move redraws the fields it loaded.
val Replay::grid() {
    const int shown = static_cast<int>(shownFields());
    cursor_.setMap(mode(), {layout_.fieldCount(), shown});
    std::vector<std::string> columnCaptions, rowCaptions;
    const int columns = std::min(layout_.columns(), layout_.labelCount());
    for (int n = 1; n <= layout_.labelCount(); ++n) {
        const GridLabel& label = layout_.labels()[static_cast<std::size_t>(n - 1)];
        if (label.visible) (n <= columns ? columnCaptions : rowCaptions).push_back(cp1250ToUtf8(label.caption));
    }
    val result = val::object();
    result.set("columns", layout_.columns());
    result.set("fields", shown);
    result.set("columnCaptions", Strings(columnCaptions));
    result.set("rowCaptions", Strings(rowCaptions));
    return result;
}

}  // namespace trelvin::web

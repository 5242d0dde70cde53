#include "model/replay_loader.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "model/action_keyword.h"
#include "model/checked_math.h"
#include "model/number_reading.h"
#include "model/text_encoding.h"

namespace trelvin {

namespace {

constexpr std::string_view kLoadErrorPrefix = "Chyba pri nacitani replaye - ";
constexpr int kMaxEvents = 32767;
constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";

// A failure that stops the load; its text is the description after the prefix.
struct LoadFailure {
    std::string description;
};

std::string readWholeFile(const std::string& path) {
    if (path.empty()) throw LoadFailure{"nebyl zvolen zadny soubor"};
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                          &std::fclose);
    // Paths come from the system in UTF-8; messages are Windows-1250 like all core text.
    const std::string shownPath = utf8ToCp1250(path);
    if (!file) throw LoadFailure{"soubor '" + shownPath + "' nelze otevrit"};
    std::string bytes;
    std::error_code sizeError;
    const auto size = std::filesystem::file_size(path, sizeError);
    if (!sizeError) bytes.reserve(size);
    char buffer[1 << 16];
    std::size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, file.get())) > 0) bytes.append(buffer, got);
    if (std::ferror(file.get())) throw LoadFailure{"soubor '" + shownPath + "' nelze precist"};
    return bytes;
}

// Hands out the file's lines; CR LF, CR alone and LF alone each end a line.
class LineReader {
public:
    explicit LineReader(std::string_view text) : text_(text) {}

    bool atEnd() const { return pos_ >= text_.size(); }
    int lineNumber() const { return lineNumber_; }

    std::string_view next() {
        const std::size_t start = pos_;
        std::size_t end = start;
        while (end < text_.size() && text_[end] != '\n' && text_[end] != '\r') ++end;
        ++lineNumber_;
        if (end == text_.size()) {
            pos_ = end;
            return text_.substr(start);
        }
        pos_ = end + 1;
        if (text_[end] == '\r' && pos_ < text_.size() && text_[pos_] == '\n') ++pos_;
        return text_.substr(start, end - start);
    }

private:
    std::string_view text_;
    std::size_t pos_ = 0;
    int lineNumber_ = 0;
};

std::string_view trimSpaces(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

// Splits into `parts`, reusing its storage: the loader splits every line.
void split(std::string_view text, char separator, std::vector<std::string_view>& parts) {
    parts.clear();
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find(separator, start);
        if (end == std::string_view::npos) {
            parts.push_back(text.substr(start));
            return;
        }
        parts.push_back(text.substr(start, end - start));
        start = end + 1;
    }
}

// "year-a-b-hour-minute-second": a is the day and b the month, or the other way round when
// that is no valid date. Each piece is decimal digits, blanks around it allowed; pieces after
// the sixth are ignored.
DateTime readTimeStamp(std::string_view field) {
    const auto fail = [&](const char* what) -> DateTime {
        throw LoadFailure{"casovy udaj '" + std::string(field) + "' " + what};
    };
    int values[6];
    std::size_t pos = 0;
    for (int i = 0; i < 6; ++i) {
        if (i > 0) {
            if (pos >= field.size()) return fail("nema sest casti");
            ++pos;  // the "-" that ended the previous piece
        }
        while (pos < field.size() && field[pos] == ' ') ++pos;
        int value = 0;
        int digits = 0;
        while (pos < field.size() && field[pos] >= '0' && field[pos] <= '9' && digits < 9) {
            value = value * 10 + (field[pos++] - '0');
            ++digits;
        }
        while (pos < field.size() && field[pos] == ' ') ++pos;
        if (digits == 0 || (pos < field.size() && field[pos] != '-')) return fail("neni platne datum");
        values[i] = value;
    }
    const auto [year, a, b, hour, minute, second] = values;
    if (auto time = DateTime::fromParts(year, b, a, hour, minute, second)) return *time;
    if (auto time = DateTime::fromParts(year, a, b, hour, minute, second)) return *time;
    throw LoadFailure{"casovy udaj '" + std::string(field) + "' neni platne datum"};
}

// The first full hour strictly after `time`.
DateTime nextFullHour(const DateTime& time) {
    DateTime result = time;
    if (result.second() > 0) result = result.plusSeconds(60 - result.second());
    if (result.minute() > 0) result = result.plusSeconds(int64_t{60 - result.minute()} * 60);
    if (result == time) result = result.plusHours(1);
    return result;
}

// What the loader knows of the events it inserts, for one load.
struct ImpliedEvents {
    bool started = false;        // a "start" event is in the list
    bool startInserted = false;  // the full roster was dealt with: a "start" inserted or read
    bool startDue = false;       // the roster is full: a "start" goes before the next line's event
    bool roundsDue = false;      // an event followed a start: check for passed full hours
    bool holdEndDue = false;     // the protection day is over: its end goes before the next event
    bool holdEnded = false;      // the end of the protection day has been inserted
    std::int16_t hqCount = 0;    // "create_hq" lines read
    DateTime holdEndTime;        // one day after the last "start"
};

class ReplayLoader {
public:
    explicit ReplayLoader(WorldState& world) : world_(world) {}

    void load(const std::string& path) {
        resetTables();
        const std::string bytes = readWholeFile(path);
        loadText(bytes);
    }

    void loadBytes(std::string_view bytes) {
        resetTables();
        loadText(bytes);
    }

    std::string describe(const std::string& description) const {
        if (lineNumber_ == 0) return description;
        return "radek " + std::to_string(lineNumber_) + ": " + description;
    }

private:
    void resetTables() {
        world_.events.assign(1, ReplayEvent{});
        world_.players.assign(1, Player{});
    }

    void loadText(std::string_view text) {
        utf8_ = text.starts_with(kUtf8Bom);
        if (utf8_) text.remove_prefix(kUtf8Bom.size());
        utf8_ = utf8_ || looksLikeUtf8Text(text);

        LineReader lines(text);
        if (lines.atEnd()) throw LoadFailure{"soubor neobsahuje hlavicku"};
        readHeader(decoded(lines.next()));
        // A line takes at least 20 bytes: room for every event without regrowth on the way.
        world_.events.reserve(std::min<std::size_t>(text.size() / 20, kMaxEvents) + 1);
        world_.tiles.assign(static_cast<std::size_t>(world_.fieldCount()) + 1, Tile{});

        while (!lines.atEnd()) {
            lineNumber_ = lines.lineNumber() + 1;
            const std::string_view trimmed = trimSpaces(decoded(lines.next()));
            if (trimmed.empty()) continue;
            readActionLine(trimmed);
        }
        lineNumber_ = 0;
        if (lastEventIs(Action::Attack)) append(impliedEvent(Action::End, lastEvent().time));
        world_.eventCount = static_cast<std::int16_t>(world_.lastEventIndex());
        world_.loaded = true;
    }

    // The line as Windows-1250; valid until the next call.
    std::string_view decoded(std::string_view line) {
        if (!utf8_) return line;
        decodedLine_ = utf8ToCp1250(line);
        return decodedLine_;
    }

    void readHeader(std::string_view line) {
        lineNumber_ = 1;
        std::vector<std::string_view>& fields = fields_;
        split(line, ';', fields);
        if (fields.size() < 6)
            throw LoadFailure{"hlavicka ma jen " + std::to_string(fields.size()) +
                              " poli, ocekava se 6"};
        world_.worldName = std::string(fields[1]);
        world_.playerLimit = headerValue(fields[2], "pocet hracu");
        world_.mapWidth = headerValue(fields[3], "pocet sloupcu");
        world_.mapHeight = headerValue(fields[4], "pocet radku");
        world_.speed = headerValue(fields[5], "rychlost");
    }

    static std::uint8_t headerValue(std::string_view field, const std::string& what) {
        try {
            return readWholeByte(field);
        } catch (const RuleError& error) {
            throw LoadFailure{what + ": " + error.what()};
        }
    }

    void readActionLine(std::string_view line) {
        std::vector<std::string_view>& fields = fields_;
        split(line, ';', fields);
        for (std::size_t i = 1; i < fields.size(); ++i) fields[i] = trimSpaces(fields[i]);
        const DateTime lineTime = readTimeStamp(fields[0]);

        ImpliedEvents& implied = implied_;
        if (implied.started && lineTime > implied.holdEndTime && !lastEventIs(Action::EndHoldFire) &&
            !implied.holdEnded)
            implied.holdEndDue = true;
        insertImpliedEvents(fields, lineTime);

        ReplayEvent event = buildEvent(fields, lineTime);
        const Action action = ActionOf(event.action);
        append(std::move(event));
        if (action == Action::Start) {
            implied.started = true;
            implied.holdEndTime = lineTime.plusDays(1);
        } else if (action == Action::CreateHq) {
            implied.hqCount = checked16(int64_t{implied.hqCount} + 1);
        }
        if (implied.started) implied.roundsDue = true;
        if (implied.hqCount == world_.playerLimit && !implied.startInserted) implied.startDue = true;
    }

    void insertImpliedEvents(const std::vector<std::string_view>& fields, const DateTime& lineTime) {
        ImpliedEvents& implied = implied_;
        while (true) {
            if (implied.startDue) {
                implied.startDue = false;
                implied.startInserted = true;
                implied.started = true;
                if (ActionOf(keyword(fields)) != Action::Start) {
                    const DateTime time = lastEvent().time;
                    append(impliedEvent(Action::Start, time));
                    implied.holdEndTime = time.plusDays(1);
                }
            } else if (implied.roundsDue) {
                implied.roundsDue = false;
                if (!lastEventIs(Action::AddRounds) && world_.lastEventIndex() >= 2) {
                    const DateTime t = nextFullHour(lastEvent().time);
                    if (t <= lineTime) {
                        const std::int64_t hours = lineTime.fullHour().hoursSince(t);
                        ReplayEvent rounds = impliedEvent(Action::AddRounds, t.plusHours(hours));
                        rounds.amount = checked16(hours + 1);
                        append(std::move(rounds));
                    }
                }
            } else if (implied.holdEndDue) {
                implied.holdEndDue = false;
                implied.holdEnded = true;
                append(impliedEvent(Action::EndHoldFire, implied.holdEndTime));
            } else {
                return;
            }
        }
    }

    static std::string_view keyword(const std::vector<std::string_view>& fields) {
        if (fields.size() < 2) throw LoadFailure{"radek nema klicove slovo akce"};
        return fields[1];
    }

    static ReplayEvent impliedEvent(Action action, const DateTime& time) {
        ReplayEvent event;
        event.time = time;
        event.action = std::string(KeywordOf(action));
        return event;
    }

    static std::int16_t leading(std::string_view field) { return readLeadingNumber(field); }
    static std::int16_t strict(std::string_view field) { return readStrictNumber(field); }

    static ReplayEvent buildEvent(const std::vector<std::string_view>& fields,
                                  const DateTime& lineTime) {
        ReplayEvent event;
        event.time = lineTime;
        event.action = std::string(keyword(fields));
        const auto need = [&](std::size_t count) {
            if (fields.size() < count)
                throw LoadFailure{"akce '" + event.action + "' potrebuje " +
                                  std::to_string(count) + " poli, radek jich ma " +
                                  std::to_string(fields.size())};
        };
        const auto text = [&](std::size_t i) { return std::string(fields[i]); };

        switch (ActionOf(event.action)) {
            case Action::CreateWorld:
                need(3);
                event.place = text(2);
                break;
            case Action::Attack:
                need(7);
                event.place = text(2);
                event.target = text(3);
                event.amount = leading(fields[4]);
                event.success = leading(fields[5]) != 0;
                event.survivors = leading(fields[6]);
                break;
            case Action::Move:
            case Action::Trade:
                need(5);
                event.place = text(2);
                event.target = text(3);
                event.amount = strict(fields[4]);
                break;
            case Action::Retreat:
                need(4);
                event.place = text(2);
                event.amount = strict(fields[3]);
                break;
            case Action::Buy:
                need(5);
                event.place = text(2);
                event.armyType = text(3);
                event.amount = leading(fields[4]);
                break;
            case Action::ConvertGround:
                need(4);
                event.place = text(2);
                event.target = text(3);
                break;
            case Action::CreateHq:
                need(5);
                event.playerName = text(2);
                event.target = text(3);
                event.place = text(4);
                break;
            case Action::End:
                need(3);
                event.playerName = text(2);
                break;
            default:  // "start" and keywords outside the table carry only time and keyword
                break;
        }
        return event;
    }

    const ReplayEvent& lastEvent() const { return world_.events.back(); }
    bool lastEventIs(Action action) const { return ActionOf(lastEvent().action) == action; }

    void append(ReplayEvent event) {
        if (world_.lastEventIndex() >= kMaxEvents)
            throw LoadFailure{"replay ma vice nez " + std::to_string(kMaxEvents) + " udalosti"};
        world_.events.push_back(std::move(event));
    }

    WorldState& world_;
    bool utf8_ = false;
    std::string decodedLine_;
    std::vector<std::string_view> fields_;
    int lineNumber_ = 0;
    ImpliedEvents implied_;
};

}  // namespace

namespace {

template <typename Load>
void runLoad(WorldState& world, Reporter& reporter, Load&& load) {
    ReplayLoader loader(world);
    std::string description;
    try {
        load(loader);
        return;
    } catch (const LoadFailure& failure) {
        description = loader.describe(failure.description);
    } catch (const RuleError& error) {
        description = loader.describe(error.what());
    }
    reporter.report(std::string(kLoadErrorPrefix) + description);
}

}  // namespace

void LoadReplay(WorldState& world, const std::string& path, Reporter& reporter) {
    runLoad(world, reporter, [&](ReplayLoader& loader) { loader.load(path); });
}

void LoadReplayFromBytes(WorldState& world, std::string_view bytes, Reporter& reporter) {
    runLoad(world, reporter, [&](ReplayLoader& loader) { loader.loadBytes(bytes); });
}

}  // namespace trelvin

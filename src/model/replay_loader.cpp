#include "model/replay_loader.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <new>
#include <optional>
#include <string_view>
#include <vector>

#include "model/action_table.h"
#include "model/blanks.h"
#include "model/checked_math.h"
#include "model/number_reading.h"
#include "model/replay_limits.h"
#include "model/text_encoding.h"

namespace trelvin {

namespace {

constexpr std::string_view kLoadErrorPrefix = "Chyba pri nacitani replaye - ";
constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";
constexpr std::size_t kChunkBytes = std::size_t{1} << 16;
// The encoding is decided in larger pieces: the whole file may have to be looked at.
constexpr std::size_t kScanPieceBytes = std::size_t{1} << 20;

// A failure that stops the load; its text is the description after the prefix.
struct LoadFailure {
    std::string description;
};

// Hands out the source's lines, reading it a piece at a time; CR LF, CR alone and LF alone
// each end a line. Memory holds one piece and, for a line across pieces, that line.
class LineReader {
public:
    LineReader(ReplaySource& source, TaskProgress* progress)
        : source_(source), progress_(progress), buffer_(kChunkBytes) {}

    // Lines handed out so far.
    int lineNumber() const { return lineNumber_; }
    // Whether the line handed out last holds only ASCII bytes.
    bool lineIsAscii() const { return lineIsAscii_; }

    // The next line, without its end, valid until the next call; empty at the end.
    std::optional<std::string_view> next() {
        carry_.clear();
        lineIsAscii_ = true;
        while (true) {
            if (begin_ == end_ && !fill()) {
                if (carry_.empty()) return std::nullopt;
                ++lineNumber_;
                return std::string_view(carry_);
            }
            const char* data = buffer_.data();
            const std::size_t stop = lineEnd();
            lineIsAscii_ = lineIsAscii_ && asciiRunFrom(std::string_view(data + begin_, stop - begin_)) == stop - begin_;
            if (carry_.size() + (stop - begin_) > kMaxLineBytes)
                throw LoadFailure{"radek je delsi nez " + std::to_string(kMaxLineBytes >> 20) + " MB"};
            if (stop == end_) {  // the line goes on in the next piece
                carry_.append(data + begin_, stop - begin_);
                begin_ = end_;
                continue;
            }
            std::string_view line(data + begin_, stop - begin_);
            skipLineFeed_ = data[stop] == '\r';
            begin_ = stop + 1;
            if (skipLineFeed_ && begin_ < end_) {
                if (data[begin_] == '\n') ++begin_;
                skipLineFeed_ = false;
            }
            ++lineNumber_;
            if (carry_.empty()) return line;
            carry_.append(line);
            return std::string_view(carry_);
        }
    }

private:
    // Where the line at begin_ ends: at its CR or LF, or at the end of the piece. The next LF
    // is remembered, so a file of CR-only line ends is not searched to the end for each line.
    std::size_t lineEnd() {
        const char* data = buffer_.data();
        if (!lineFeedKnown_ || nextLineFeed_ < begin_) {
            lineFeedKnown_ = true;
            const void* found = std::memchr(data + begin_, '\n', end_ - begin_);
            nextLineFeed_ = found ? static_cast<const char*>(found) - data : end_;
        }
        const void* cr = std::memchr(data + begin_, '\r', nextLineFeed_ - begin_);
        return cr ? static_cast<std::size_t>(static_cast<const char*>(cr) - data) : nextLineFeed_;
    }

    // Reads the next piece; false at the end of the source.
    bool fill() {
        std::size_t got = source_.read(buffer_.data(), buffer_.size());
        readBytes_ += got;
        if (progress_ && !progress_->keepGoing(readBytes_, source_.size()))
            throw LoadFailure{"nacitani bylo preruseno"};
        begin_ = 0;
        end_ = got;
        lineFeedKnown_ = false;
        // A CR that ended the previous piece pairs with an LF that starts this one.
        if (skipLineFeed_ && got > 0 && buffer_[0] == '\n') begin_ = 1;
        skipLineFeed_ = false;
        return got > 0 && (begin_ < end_ || fill());
    }

    ReplaySource& source_;
    TaskProgress* progress_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::size_t nextLineFeed_ = 0;  // the first LF at or after begin_, or end_ for none
    bool lineFeedKnown_ = false;
    std::string carry_;
    bool lineIsAscii_ = true;
    bool skipLineFeed_ = false;
    std::uint64_t readBytes_ = 0;
    int lineNumber_ = 0;
};

// Whether the source is UTF-8 throughout: it starts with the UTF-8 mark, or all of its bytes
// are valid UTF-8 with a character beyond ASCII. Anything else is Windows-1250 throughout, even
// where a line of it happens to be valid UTF-8 ("M\xCD\x8AA" is U+034A between two letters).
// Reads the source once, in large pieces, stopping as soon as the answer is known; a cancel is
// possible on the way.
bool isUtf8Source(ReplaySource& source, TaskProgress* progress) {
    std::vector<char> buffer(kScanPieceBytes);
    Utf8Detector detector;
    bool first = true;
    while (const std::size_t got = source.read(buffer.data(), buffer.size())) {
        const std::string_view piece(buffer.data(), got);
        if (first && piece.starts_with(kUtf8Bom)) return true;
        first = false;
        if (!detector.feed(piece)) return false;
        if (progress && !progress->keepGoing(0, source.size())) throw LoadFailure{"nacitani bylo preruseno"};
    }
    return detector.isUtf8Text();
}

// Splits into `parts`, reusing its storage: the loader splits every line. Its fields are
// short, so a plain scan beats a library search per field.
void split(std::string_view text, char separator, std::vector<std::string_view>& parts) {
    parts.clear();
    const char* start = text.data();
    const char* const end = text.data() + text.size();
    for (const char* c = start; c != end; ++c) {
        if (*c == separator) {
            parts.emplace_back(start, static_cast<std::size_t>(c - start));
            start = c + 1;
        }
    }
    parts.emplace_back(start, static_cast<std::size_t>(end - start));
}

// The form every writer uses, "dddd-dd-dd-dd-dd-dd", read without the general rules' checks:
// nearly every line of a replay starts with it.
bool readPlainTimeStamp(std::string_view field, int (&values)[6]) {
    if (field.size() != 19) return false;
    for (std::size_t dash = 4; dash < 19; dash += 3)
        if (field[dash] != '-') return false;
    unsigned notDigits = 0;
    const auto digit = [&](std::size_t at) {
        const unsigned value = static_cast<unsigned char>(field[at]) - unsigned{'0'};
        notDigits |= value > 9;
        return static_cast<int>(value);
    };
    values[0] = digit(0) * 1000 + digit(1) * 100 + digit(2) * 10 + digit(3);
    for (std::size_t i = 1; i < 6; ++i) values[i] = digit(2 + 3 * i) * 10 + digit(3 + 3 * i);
    return notDigits == 0;
}

// The date of the six pieces: the middle two as day and month, or the other way round.
DateTime dateOf(std::string_view field, const int (&values)[6]) {
    const auto [year, a, b, hour, minute, second] = values;
    if (auto time = DateTime::fromParts(year, b, a, hour, minute, second)) return *time;
    if (auto time = DateTime::fromParts(year, a, b, hour, minute, second)) return *time;
    throw LoadFailure{"casovy udaj '" + std::string(field) + "' neni platne datum"};
}

// "year-a-b-hour-minute-second": a is the day and b the month, or the other way round when
// that is no valid date. Each piece is decimal digits, blanks around it allowed; pieces after
// the sixth are ignored.
DateTime readTimeStamp(std::string_view field) {
    const auto fail = [&](const char* what) -> DateTime {
        throw LoadFailure{"casovy udaj '" + std::string(field) + "' " + what};
    };
    int values[6];
    if (readPlainTimeStamp(field, values)) return dateOf(field, values);
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
    return dateOf(field, values);
}

// The first full hour strictly after `time`.
DateTime nextFullHour(const DateTime& time) { return time.fullHour().plusHours(1); }

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

    void load(ReplaySource& source, TaskProgress* progress) {
        world_.events.assign(1, ReplayEvent{});
        world_.storedWinner.reset();  // it stood for the last event of the list replaced
        world_.players.assign(1, Player{});
        try {
            source.open();
        } catch (const ReplayReadError& error) {
            throw LoadFailure{error.what()};
        }
        utf8File_ = isUtf8Source(source, progress);
        source.rewind();
        LineReader lines(source, progress);
        // The header's own failures, a header too long among them, name line 1.
        lineNumber_ = 1;
        const std::optional<std::string_view> header = lines.next();
        if (!header) {
            lineNumber_ = 0;
            throw LoadFailure{"soubor neobsahuje hlavicku"};
        }
        readHeader(decoded(header->starts_with(kUtf8Bom) ? header->substr(kUtf8Bom.size()) : *header,
                           lines.lineIsAscii()));
        // A line takes at least 20 bytes: room for every event without regrowth on the way.
        world_.events.reserve(std::min<std::uint64_t>(source.size() / 20, kMaxEvents) + 1);
        world_.tiles.assign(static_cast<std::size_t>(world_.fieldCount()) + 1, Tile{});

        while (true) {
            lineNumber_ = lines.lineNumber() + 1;
            const std::optional<std::string_view> line = lines.next();
            if (!line) break;
            const std::string_view trimmed = TrimBlanks(decoded(*line, lines.lineIsAscii()));
            if (trimmed.empty()) continue;
            readActionLine(trimmed);
        }
        lineNumber_ = 0;
        if (lastAction_ == Action::Attack) appendImplied(Action::End, lastEvent().time);
        world_.eventCount = static_cast<std::int16_t>(world_.lastEventIndex());
        world_.loaded = true;
    }

    // What a failure says, with the line it stopped at.
    LoadOutcome failed(const std::string& description) const {
        const std::string where = lineNumber_ == 0 ? "" : "radek " + std::to_string(lineNumber_) + ": ";
        return {std::string(kLoadErrorPrefix) + where + description, lineNumber_};
    }

private:
    // The line as Windows-1250; valid until the next call.
    std::string_view decoded(std::string_view line, bool ascii) {
        if (ascii || !utf8File_) return line;
        decodedLine_ = utf8ToCp1250(line);
        return decodedLine_;
    }

    void readHeader(std::string_view line) {
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
        for (std::size_t i = 1; i < fields.size(); ++i) fields[i] = TrimBlanks(fields[i]);
        const DateTime lineTime = readTimeStamp(fields[0]);

        ImpliedEvents& implied = implied_;
        if (implied.started && lineTime > implied.holdEndTime && lastAction_ != Action::EndHoldFire &&
            !implied.holdEnded)
            implied.holdEndDue = true;
        insertImpliedEvents(fields, lineTime);

        const Action action = appendLineEvent(fields, lineTime);
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
                if (keyword(fields) != KeywordOf(Action::Start)) {
                    const DateTime time = lastEvent().time;
                    appendImplied(Action::Start, time);
                    implied.holdEndTime = time.plusDays(1);
                }
            } else if (implied.roundsDue) {
                implied.roundsDue = false;
                if (lastAction_ != Action::AddRounds && world_.lastEventIndex() >= 2) {
                    const DateTime t = nextFullHour(lastEvent().time);
                    if (t <= lineTime) {
                        const std::int64_t hours = lineTime.fullHour().hoursSince(t);
                        const std::int16_t amount = checked16(hours + 1);
                        appendImplied(Action::AddRounds, t.plusHours(hours)).amount = amount;
                    }
                }
            } else if (implied.holdEndDue) {
                implied.holdEndDue = false;
                implied.holdEnded = true;
                appendImplied(Action::EndHoldFire, implied.holdEndTime);
            } else {
                return;
            }
        }
    }

    static std::string_view keyword(const std::vector<std::string_view>& fields) {
        if (fields.size() < 2) throw LoadFailure{"radek nema klicove slovo akce"};
        return fields[1];
    }

    // Appends an event the file implies: only its time and keyword are set. The time is taken
    // by value: it is often the last event's, which the growing list may move.
    ReplayEvent& appendImplied(Action action, DateTime time) {
        if (world_.lastEventIndex() >= kMaxEvents) throwTooManyEvents();
        ReplayEvent& event = world_.events.emplace_back();
        event.time = time;
        event.setAction(action);
        lastAction_ = action;
        return event;
    }

    // The line's event, built in place at the end of the list: a replay has up to 32,767 of
    // them. A line that fails leaves none.
    Action appendLineEvent(const std::vector<std::string_view>& fields, const DateTime& lineTime) {
        ReplayEvent& event = world_.events.emplace_back();
        Action action;
        try {
            action = fillEvent(event, fields, lineTime);
            if (world_.lastEventIndex() > kMaxEvents) throwTooManyEvents();
        } catch (...) {
            world_.events.pop_back();
            throw;
        }
        lastAction_ = action;
        return action;
    }

    [[noreturn]] static void throwTooManyEvents() {
        throw LoadFailure{"replay ma vice nez " + std::to_string(kMaxEvents) + " udalosti"};
    }

    static Action fillEvent(ReplayEvent& event, const std::vector<std::string_view>& fields,
                            const DateTime& lineTime) {
        event.time = lineTime;
        event.setKeyword(keyword(fields));
        const ActionInfo& info = InfoOf(event.action);
        if (fields.size() < info.fieldCount())
            throw LoadFailure{"akce '" + event.keyword + "' potrebuje " + std::to_string(info.fieldCount()) +
                              " poli, radek jich ma " + std::to_string(fields.size())};
        for (std::size_t i = 0; i < info.operandCount; ++i) fillOperand(event, info.operands[i], fields[2 + i]);
        return info.action;
    }

    static void fillOperand(ReplayEvent& event, OperandField slot, std::string_view field) {
        switch (slot.operand) {
            case Operand::Place: event.place.assign(field); break;
            case Operand::Target: event.target.assign(field); break;
            case Operand::PlayerName: event.playerName.assign(field); break;
            case Operand::ArmyType: event.armyType.assign(field); break;
            case Operand::Amount: event.amount = readCount(slot.reading, field); break;
            case Operand::Success: event.success = readCount(slot.reading, field) != 0; break;
            case Operand::Survivors: event.survivors = readCount(slot.reading, field); break;
        }
    }

    static std::int16_t readCount(Reading reading, std::string_view field) {
        return reading == Reading::StrictNumber ? readStrictNumber(field) : readLeadingNumber(field);
    }

    const ReplayEvent& lastEvent() const { return world_.events.back(); }

    WorldState& world_;
    bool utf8File_ = false;
    std::string decodedLine_;
    std::vector<std::string_view> fields_;
    int lineNumber_ = 0;
    ImpliedEvents implied_;
    Action lastAction_ = Action::Other;  // the action of the event last in the list
};

}  // namespace

LoadOutcome LoadReplay(WorldState& world, ReplaySource& source, TaskProgress* progress) {
    ReplayLoader loader(world);
    try {
        loader.load(source, progress);
        return {};
    } catch (const LoadFailure& failure) {
        return loader.failed(failure.description);
    } catch (const std::bad_alloc&) {
        return loader.failed("nedostatek pameti");
    } catch (const std::exception& error) {
        return loader.failed(error.what());
    }
}

LoadOutcome LoadReplay(WorldState& world, const std::string& path, TaskProgress* progress) {
    ReplayFile file(path);
    return LoadReplay(world, file, progress);
}

LoadOutcome LoadReplayFromBytes(WorldState& world, std::string_view bytes) {
    ReplayText text(bytes);
    return LoadReplay(world, text);
}

}  // namespace trelvin

// The guard of the keyframes: on generated replays, valid and hostile, every move of the
// session leaves the world and reports the messages, in order, exactly as applying the events
// from the first to the world it started from does.
#include <random>

#include <QtTest>

#include "bridge/core_text.h"
#include "support/generated_lines.h"
#include "support/session_fixture.h"

using namespace trelvin::testing;
using trelvin::Keyframes;
using trelvin::ReplaySession;
using trelvin::WorldState;

namespace {

constexpr int kColumns = 20;
constexpr int kRows = 15;
constexpr int kEvents = 2 * Keyframes::kSpacing + 700;  // two keyframes and events after the last

// The generated replay's lines, to be changed into a hostile one.
struct Lines : GeneratedLines {
    Lines() : GeneratedLines({kColumns, kRows, 4, kEvents, 3}) {}
};

enum class Keyframing { Used, NotUsed, UsedUntilFieldZeroChanges };

struct Case {
    const char* name;
    std::string replay;
    Keyframing keyframing;
    bool failing;  // some of its events report a failure
};

std::vector<Case> Cases() {
    std::vector<Case> cases;
    // Valid, with the end the loader adds after a final attack: the rule fills in the winner,
    // which a rebuild to before it keeps.
    Lines valid;
    valid.append("buy;C5;Hovado;1");
    valid.append("end;");
    cases.push_back({"valid", valid.text(), Keyframing::Used, false});

    // Failing moves and purchases, attacks without the moves to pay for them, ends in the middle
    // that write the winner into the last event, a headquarters whose terrain is emptied (the
    // redraw fills in grass), and a last event that reads the winner written there: a player
    // joining.
    Lines failing;
    failing.insertEvery(97, {"move;A0;Z99;5", "end;louka", "attack;A0;B0;5;1;3", "convert_gnd;C5;",
                             "buy;A14;Hovado;30000", "trade;Nikdo;Hrac1;7", "retreat;C3;9"});
    failing.append("create_hq;Pozdni;les;B2");
    cases.push_back({"failing actions and ends", failing.text(), Keyframing::Used, true});

    // Ends whose rule cannot write: the event before the last names no field.
    Lines unwritable;
    unwritable.insertEvery(301, {"end;les"});
    unwritable.append("move;Z99;A0;1");
    unwritable.append("end;les");
    cases.push_back({"ends that cannot write", unwritable.text(), Keyframing::Used, true});

    // A purchase on a blank field writes into entry 0 of the fields, which the world's creation
    // never resets: a rebuild then depends on what the world held before it.
    Lines blank;
    blank.insert(blank.lines.size() - 300, "buy;;Hovado;5");
    cases.push_back({"a blank field", blank.text(), Keyframing::UsedUntilFieldZeroChanges, false});

    // A creation shorter than the map leaves the fields after it as they were, armies bought
    // there included; a longer one fails before it empties the players.
    for (const int change : {-1, 1}) {
        Lines odd;
        std::string& creation = odd.lines[1];
        creation.resize(creation.size() + std::size_t(change), 'S');
        odd.insertEvery(499, {"buy;T14;Hovado;3"});
        cases.push_back({change < 0 ? "a short creation" : "a long creation", odd.text(), Keyframing::NotUsed,
                         change > 0});
    }
    // A first event as long as the map that creates nothing.
    Lines uncreated;
    uncreated.lines[1] = uncreated.lines[1].substr(0, 20) + "trade;" + std::string(kColumns * kRows, 'N') + ";Hrac1;5";
    cases.push_back({"no creation", uncreated.text(), Keyframing::NotUsed, false});
    return cases;
}

// The world and the messages a rebuild from the first event leaves: `first` is 1 for a move
// that rebuilds, the target itself for a step forward or to the first event.
std::pair<QStringList, QStringList> Applied(WorldState world, int first, int target) {
    trelvin::RecordingReporter reporter;
    for (int index = first; index <= target; ++index) trelvin::ExecuteEvent(world, std::int16_t(index), reporter);
    QStringList messages;
    for (const std::string& text : reporter.texts) messages << trelvin::FromCore(text);
    return {WorldLines(world), messages};
}

// Where two worlds' lines first differ, for the failure's message; empty when they do not.
QString Difference(const QStringList& got, const QStringList& expected) {
    for (qsizetype i = 0; i < std::max(got.size(), expected.size()); ++i) {
        const QString a = got.value(i, "(none)"), b = expected.value(i, "(none)");
        if (a != b) return QString("line %1: %2 instead of %3").arg(i).arg(a, b);
    }
    return {};
}

QStringList Shown(const Session& t) {
    QStringList messages;
    for (const std::string& text : t.reporter.texts) messages << trelvin::FromCore(text);
    return messages;
}

}  // namespace

class KeyframeEquivalenceTest : public QObject {
    Q_OBJECT

private slots:
    void everyMoveLeavesWhatTheRebuildFromTheFirstEventLeaves() {
        for (const Case& c : Cases()) {
            Session t;
            QVERIFY2(t.open(c.replay).succeeded(), c.name);
            const int count = t.session.eventCount();
            QVERIFY2(count > 2 * Keyframes::kSpacing, c.name);
            QVERIFY2((t.session.history().log.nearest(0, trelvin::EventKind::Failures, true) > 0) == c.failing, c.name);
            std::mt19937 random(11);
            int rebuilds = 0, fromKeyframes = 0;
            // End first: every replay goes past its last keyframe at once.
            for (int move = 0; move < 60; ++move) {
                const int roll = move == 0 ? 0 : int(random() % 10);
                const int position = t.session.position();
                // The redraw after the last move, in a way of viewing of its own.
                t.session.setViewMode(trelvin::ViewMode(random() % 3));
                t.session.revealForView(kColumns * kRows);
                const bool fieldZeroChanged = !t.session.world().tiles[0].armyType.empty();

                int first = 1, target = 1;
                QStringList jumpMessages;
                std::function<void()> step;
                if (roll == 0) {
                    target = count;
                    step = [&] { t.session.last(); };
                } else if (roll <= 2 && position > 1) {
                    target = std::max(position - 1, 1);
                    step = [&] { t.session.back(); };
                } else if (roll <= 3) {
                    first = target = std::min(position + 1, count);
                    step = [&] { t.session.forward(); };
                } else if (roll == 4) {
                    step = [&] { t.session.first(); };
                } else {
                    // Around a keyframe as often as anywhere.
                    const int k = int(1 + random() % 2) * Keyframes::kSpacing;
                    target = roll <= 6 ? k - 1 + int(random() % 3) : 1 + int(random() % unsigned(count));
                    step = [&] { jumpMessages = t.session.jumpTo(target); };
                }
                const auto [world, messages] = Applied(t.session.world(), first, target);
                t.reporter.texts.clear();
                const std::vector<int> applied = t.applies(step);
                const QString where = QString("%1, move %2 to %3").arg(c.name).arg(move).arg(target);
                const QString difference = Difference(WorldLines(t.session.world()), world);
                QVERIFY2(difference.isEmpty(), qPrintable(where + ": " + difference));
                const QStringList boxes = Shown(t);
                QCOMPARE(roll >= 5 ? jumpMessages : boxes, messages);
                if (roll >= 5) QCOMPARE(boxes, QStringList{});
                QCOMPARE(t.session.position(), target);

                if (first > 1 || target < Keyframes::kSpacing) continue;
                ++rebuilds;
                const bool keyframed = applied.empty() || applied.front() > 1;
                fromKeyframes += keyframed;
                if (c.keyframing == Keyframing::UsedUntilFieldZeroChanges)
                    QVERIFY2(keyframed != fieldZeroChanged, qPrintable(where));
            }
            QVERIFY2(rebuilds > 10, c.name);
            if (c.keyframing == Keyframing::Used) QVERIFY2(fromKeyframes == rebuilds, c.name);
            if (c.keyframing == Keyframing::NotUsed) QVERIFY2(fromKeyframes == 0, c.name);
            if (c.keyframing == Keyframing::UsedUntilFieldZeroChanges) QVERIFY2(fromKeyframes > 0, c.name);
        }
    }
};

QTEST_GUILESS_MAIN(KeyframeEquivalenceTest)
#include "keyframe_equivalence_test.moc"

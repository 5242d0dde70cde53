// The series recorded at opening against what the player panel shows: after stepping to every
// action of the battle sample and of generated replays, valid and hostile, each player's moves,
// nectar, nectar per hour and territory are the panel's numbers.
#include <QtTest>
#include <QtWidgets>

#include "bridge/core_text.h"
#include "panels/player_panel.h"
#include "support/generated_lines.h"
#include "support/session_fixture.h"

using namespace trelvin::testing;
using trelvin::PlayerSeries;
using trelvin::Standing;

namespace {

struct Case {
    const char* name;
    std::string replay;
};

std::string SampleBytes(const char* name) {
    QFile file(QStringLiteral(TRELVIN_SAMPLES_DIR "/") + name);
    file.open(QIODevice::ReadOnly);
    return file.readAll().toStdString();
}

std::vector<Case> Cases() {
    std::vector<Case> cases{{"the battle sample", SampleBytes("bitva-u-potoka.trp")}};
    const trelvin::GeneratorOptions options{12, 10, 4, 1200, 5};
    cases.push_back({"generated", GeneratedLines(options).text()});

    // Failing actions, captured headquarters, a second player of an existing name, a player
    // joining late, a purchase on a blank field, and the world created again in the middle,
    // which empties the player table.
    GeneratedLines hostile(options);
    hostile.insertEvery(61, {"move;A0;Z99;5", "attack;A0;B0;5;1;3", "buy;A4;Hovado;30000", "trade;Nikdo;Hrac1;7",
                             "buy;;Hovado;5", "create_hq;Hrac2;louka;E5", "end;louka", "retreat;C3;9"});
    hostile.insert(hostile.lines.size() / 2, hostile.lines[1].substr(20));
    hostile.append("create_hq;Pozdni;les;B2");
    cases.push_back({"hostile", hostile.text()});

    // A creation shorter than the map leaves the fields after it as they were.
    GeneratedLines shortCreation(options);
    shortCreation.lines[1].pop_back();
    shortCreation.insertEvery(97, {"buy;L9;Hovado;3"});
    cases.push_back({"a short creation", shortCreation.text()});
    return cases;
}

// What the panel shows for a standing from the series, in the panel's own form.
QStringList PanelTextsOf(const Standing& standing, const PlayerSeries::Entry& entry, int speed) {
    if (!standing.playing) return {"", "", "Uz nehraje", ""};
    return {QString("%1 (+ %2/hod)").arg(standing.moves).arg(speed),
            QString("%1 (+ %2/hod)").arg(standing.nectar).arg(standing.nectarPerHour),
            trelvin::FromCore(entry.who->hqField), QString::number(standing.territory)};
}

}  // namespace

class CourseSeriesTest : public QObject {
    Q_OBJECT

private slots:
    void theSeriesAreThePlayerPanelsNumbersAtEveryAction() {
        for (const Case& c : Cases()) {
            Session t;
            t.open(c.replay);
            trelvin::PlayerPanel panel(t.session, nullptr);
            const PlayerSeries& series = t.session.history().series;
            QVERIFY2(series.complete(), c.name);
            QCOMPARE(series.eventCount(), t.session.eventCount());
            int playersSeen = 0;
            for (int event = 1; event <= t.session.eventCount(); ++event) {
                if (event > 1) t.session.forward();
                QCOMPARE(t.session.position(), event);
                const trelvin::WorldState& world = t.session.world();
                const QString where = QString("%1, action %2").arg(c.name).arg(event);
                QVERIFY2(series.playersAfter(event) == world.lastPlayerIndex(), qPrintable(where));
                QVERIFY2(!series.at(event, world.lastPlayerIndex() + 1), qPrintable(where));
                for (int place = 1; place <= world.lastPlayerIndex(); ++place) {
                    const std::optional<PlayerSeries::Entry> entry = series.at(event, place);
                    QVERIFY2(entry, qPrintable(where));
                    panel.cmbHraci->setCurrentIndex(place - 1);
                    panel.cmbHraci_Click();
                    const QStringList shown{panel.lblPocetTahu->text(), panel.lblMnozstviNektaru->text(),
                                            panel.lblVeleni->text(), panel.lblVelikostUzemi->text()};
                    QCOMPARE(PanelTextsOf(entry->standing, *entry, world.speed), shown);
                }
                playersSeen = std::max(playersSeen, world.lastPlayerIndex());
            }
            QVERIFY2(playersSeen >= 2, c.name);
        }
    }
};

QTEST_MAIN(CourseSeriesTest)
#include "course_series_test.moc"

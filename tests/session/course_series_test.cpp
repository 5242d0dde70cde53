// The series recorded at opening against what the player panel shows: after stepping to every
// action of a replay whose creation is shorter than its map, each player's moves, nectar, nectar
// per hour and territory are the panel's numbers.
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

// A creation shorter than the map leaves the fields after it as they were. The series of other
// replays are held against the engine's world in the core's own tests.
std::string ShortCreation() {
    GeneratedLines replay({12, 10, 4, 1200, 5});
    replay.lines[1].pop_back();
    replay.insertEvery(97, {"buy;L9;Hovado;3"});
    return replay.text();
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
        Session t;
        t.open(ShortCreation());
        trelvin::PlayerPanel panel(t.session, nullptr);
        const PlayerSeries& series = t.session.history().series;
        QVERIFY(series.complete());
        QCOMPARE(series.eventCount(), t.session.eventCount());
        int playersSeen = 0;
        for (int event = 1; event <= t.session.eventCount(); ++event) {
            if (event > 1) t.session.forward();
            QCOMPARE(t.session.position(), event);
            const trelvin::WorldState& world = t.session.world();
            const QString where = QString("action %1").arg(event);
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
        QVERIFY(playersSeen >= 2);
    }
};

QTEST_MAIN(CourseSeriesTest)
#include "course_series_test.moc"

// Each panel alone on a session: what it shows after moves and choices, and what it asks the
// session to do.
#include <QtTest>
#include <QtWidgets>

#include "panels/action_list_panel.h"
#include "panels/charts_panel.h"
#include "panels/description_strip.h"
#include "panels/field_panel.h"
#include "panels/map_panel.h"
#include "panels/playback_commands.h"
#include "panels/playback_controls.h"
#include "panels/player_panel.h"
#include "panels/timeline_strip.h"
#include "panels/view_mode_panel.h"
#include "widgets/clock_face.h"
#include "widgets/course_chart.h"
#include "bridge/date_text.h"
#include "widgets/timeline.h"
#include "support/session_fixture.h"

using namespace trelvin::testing;
using trelvin::ViewMode;

// An event an hour for ten days: 240 hours, far more than a short timeline has pixels for.
static std::string HourlyReplay() {
    std::string text = "0;Hodiny;9;3;2;3\r\n2004-01-06-00-00-00;create_world;NNNNNN\r\n";
    for (int day = 1; day <= 10; ++day)
        for (int hour = 0; hour < 24; ++hour)
            text += "2004-" + std::string(day < 10 ? "0" : "") + std::to_string(day) + "-06-" + (hour < 10 ? "0" : "") +
                    std::to_string(hour) + "-30-00;fly\r\n";
    return text;
}

// Jana's headquarters falls at event 5.
static const std::string kFall = "0;Dobyti;2;2;1;3\r\n2004-06-19-08-00-00;create_world;NN\r\n"
                                 "2004-06-19-08-10-00;create_hq;Karel;les;A0\r\n"
                                 "2004-06-19-08-20-00;create_hq;Jana;louka;B0\r\n"
                                 "2004-06-19-08-30-00;attack;A0;B0;1;1;1\r\n";

class PanelsTest : public QObject {
    Q_OBJECT

private slots:
    void thePlayerPanelKeepsItsChoiceByIndex() {
        Session t;
        t.open(kFall);
        trelvin::PlayerPanel panel(t.session, nullptr);
        const auto shown = [&panel] {
            return QStringList{panel.lblPocetTahu->text(), panel.lblMnozstviNektaru->text(), panel.lblVeleni->text(),
                               panel.lblVelikostUzemi->text()};
        };
        for (int i = 0; i < 3; ++i) t.session.forward();
        panel.cmbHraci->setCurrentIndex(0);
        panel.cmbHraci_Click();
        QCOMPARE(shown(), (QStringList{"15 (+ 3/hod)", "500 (+ 12/hod)", "A0", "1"}));
        panel.cmbHraci->setCurrentIndex(1);
        panel.cmbHraci_Click();
        t.session.forward();  // Jana falls
        QCOMPARE(panel.cmbHraci->currentIndex(), 1);
        QCOMPARE(shown(), (QStringList{"", "", "Uz nehraje", ""}));
        t.session.first();  // no players: no choice, the texts stay
        QCOMPARE(panel.cmbHraci->currentIndex(), -1);
        QCOMPARE(shown(), (QStringList{"", "", "Uz nehraje", ""}));
    }

    void theMapFollowsMovesAndViewsAndItsClicksNameFieldsForTheFieldPanel() {
        Session t;
        t.open(kAlfa);
        trelvin::MapPanel map(t.session, nullptr);
        trelvin::ViewModePanel views(t.session, nullptr);
        trelvin::FieldPanel field(t.session, nullptr);
        QObject::connect(&map, &trelvin::MapGrid::clicked, &field, &trelvin::FieldPanel::m_Click);
        // The session redraws the fields the grid holds, as the window tells it.
        QObject::connect(&map, &trelvin::MapGrid::fieldsChanged, &t.session, &trelvin::ReplaySession::setMapFields);
        map.resize(300, 200);
        map.show();
        map.build(6630);
        QCOMPARE(map.scene().pictures, std::vector<int>(6, 2));  // free land until the first redraw
        const auto inspection = [&field] {
            return QStringList{field.lblPVlastnik->text(), field.lblPTyp->text(), field.lblPTypArmady->text(),
                               field.lblPPArmady->text()};
        };
        const auto click = [&map](int k) {
            QTest::mouseClick(map.viewport(), Qt::LeftButton, {}, map.fieldRectInViewport(k).center());
        };
        t.session.last();
        // A0 Karel's headquarters, B0 Karel's with 3 units, C0 free, A1 free rock, B1 "X",
        // C1 Jana's headquarters.
        const std::vector<int> everything{15, 4, 2, 2, 16, 15};
        QCOMPARE(map.scene().pictures, everything);
        views.o[1]->click();  // as les: everything in sight, Jana's headquarters plain
        QCOMPARE(map.scene().pictures, (std::vector<int>{15, 4, 2, 2, 16, 9}));
        views.o[0]->click();  // as louka: column A out of sight, Karel's army and headquarters hidden
        QCOMPARE(map.scene().pictures, (std::vector<int>{1, 3, 2, 1, 16, 15}));
        click(2);
        QCOMPARE(field.txtPolicko->text(), QString("B0"));
        QCOMPARE(inspection(), (QStringList{"Karel", "Normalni", "neznamy", "neznamo"}));
        views.o[2]->click();
        QCOMPARE(map.scene().pictures, everything);
        click(2);  // the field already named is refreshed in the new view
        QCOMPARE(inspection(), (QStringList{"Karel", "Normalni", QString::fromUtf8("Vosi\u010dka"), "3"}));
        field.txtPolicko->setText("B1");
        QCOMPARE(inspection(), (QStringList{"Nedobytne pole", "", "", ""}));
        field.txtPolicko->setText("D0");  // not a field: unchanged
        QCOMPARE(inspection(), (QStringList{"Nedobytne pole", "", "", ""}));
        views.o[0]->click();
        field.txtPolicko->setText("A0");
        field.txtPolicko->setText("A0x");  // a row the lookup cannot read leaves the field shown
        QCOMPARE(inspection(), (QStringList{"nezname uzemi", "", "", ""}));
        t.session.first();  // a move leaves the panel as it is
        QCOMPARE(inspection(), (QStringList{"nezname uzemi", "", "", ""}));
    }

    void theDescriptionStripTellsTheActionItsTimeAndThePosition() {
        Session t;
        t.open(kAlfa);
        trelvin::DescriptionStrip strip(t.session, nullptr);
        t.session.forward();
        QCOMPARE(strip.lbl->text(), QString("vytvoreni veleni hrace Karel(les)"));
        QCOMPARE(strip.lblTah->text(), QString("2 (7)"));
        QVERIFY2(strip.lblCas->text().contains("8:10:00"), qPrintable(strip.lblCas->text()));
        QCOMPARE(strip.pHod->time(), std::optional(QTime(8, 10, 0)));
        t.open("0;Kratky;0;1;1;3\r\n");  // no events: the clock has no time to show
        QVERIFY_THROWS_EXCEPTION(std::exception, strip.showClock());
        QCOMPARE(strip.pHod->time(), std::nullopt);
    }

    void theButtonsFollowTheirCommandsAndTheModeSwapsTheRows() {
        Session t;
        t.open(PlainReplay(10));
        trelvin::PlaybackCommands commands(t.session, nullptr);
        trelvin::PlaybackControls controls(t.session, commands, nullptr);
        controls.moveSlideRowOntoStepRow();
        QCOMPARE(controls.cmdD->y(), controls.cmdForw->y());
        t.session.updateButtons();
        const auto enabled = [&controls] {
            QString flags;
            for (QPushButton* b : {controls.cmdForw, controls.cmdEnd, controls.cmdSEnd, controls.cmdD, controls.cmdRD,
                                   controls.cmdBack, controls.cmdBegin, controls.cmdSBegin, controls.cmdZ, controls.cmdRZ,
                                   controls.cmdS})
                flags += b->isEnabled() ? '1' : '0';
            return flags;
        };
        QCOMPARE(enabled(), QString("11111000000"));
        QCOMPARE(t.applies([&] { controls.cmdEnd->click(); }), Range(1, 10));
        QCOMPARE(enabled(), QString("00000111110"));
        controls.ov[1]->click();
        QVERIFY(controls.cmdForw->isHidden());
        QVERIFY(!controls.cmdS->isHidden());
        QCOMPARE(t.applies([&] { controls.cmdRZ->click(); }), Range(1, 9));
        QVERIFY(t.session.isPlaying());
        controls.ov[0]->click();  // a change of mode stops the show; the stop button keeps its state
        QVERIFY(!t.session.isPlaying());
        QCOMPARE(enabled(), QString("11111111111"));
        QVERIFY(controls.cmdS->isHidden());
        controls.cmdS_Click();
        QCOMPARE(enabled(), QString("11111111110"));
    }

    void theListNarrowsByKindAndSearchAndAChosenRowIsJumpedTo() {
        Session t;
        trelvin::ActionListPanel list(t.session, nullptr);
        t.open(kCapture);
        list.setKind(trelvin::EventKind::Lifecycle);
        QCOMPARE(list.shownEvents(), (std::vector<int>{1, 2, 3, 4, 7}));
        list.setKind(trelvin::EventKind::All);
        QCOMPARE(list.shownEvents(), Range(1, 7));
        list.searchBox()->setText("jana");  // any case; the names and fields an event mentions
        QCOMPARE(list.shownEvents(), (std::vector<int>{3, 6}));
        list.searchBox()->setText("B0");
        QCOMPARE(list.shownEvents(), (std::vector<int>{3, 6}));
        list.setKind(trelvin::EventKind::Attacks);
        QCOMPARE(list.shownEvents(), std::vector<int>{6});
        list.searchBox()->clear();
        list.setKind(trelvin::EventKind::All);
        emit list.table()->clicked(list.table()->model()->index(5, 0));
        QCOMPARE(t.session.position(), 6);
        QCOMPARE(list.table()->currentIndex().row(), 5);
    }

    void theListFiltersByPlayerExplainsItsRowsAndMarksWhereTheCurrentActionStands() {
        Session t;
        trelvin::ActionListPanel list(t.session, nullptr);
        list.resize(480, 500);
        list.show();
        t.open(kCapture);
        QCOMPARE(list.playerBox()->count(), 3);  // everyone, Karel, Jana
        list.playerBox()->setCurrentIndex(1);    // Karel: his headquarters, his failed move, his attack
        QCOMPARE(list.shownEvents(), (std::vector<int>{2, 5, 6}));
        list.playerBox()->setCurrentIndex(2);  // Jana: her headquarters, the attack on her field
        QCOMPARE(list.shownEvents(), (std::vector<int>{3, 6}));
        list.setKind(trelvin::EventKind::Attacks);
        QCOMPARE(list.shownEvents(), std::vector<int>{6});
        // The current action hidden: a mark above the first row after it, or under the last row.
        QCOMPARE(list.table()->hereRow(), 0);
        QVERIFY(!list.table()->currentIndex().isValid());
        t.session.last();
        QCOMPARE(list.table()->hereRow(), 1);
        t.session.jumpTo(6);
        QCOMPARE(list.table()->hereRow(), -1);
        QCOMPARE(list.table()->currentIndex().row(), 0);
        // The whole of the selected action: its description, who played and whose field it reached.
        const QString detail = list.detail()->toPlainText();
        for (const char* part : {"Akce 6", "Utok se zdaril", "Dobyto veleni hrace Jana", "Hrac: Karel", "Na poli hrace: Jana"})
            QVERIFY2(detail.contains(part), qPrintable(detail));
        const QString tip = list.table()->model()->index(0, 3).data(Qt::ToolTipRole).toString();
        QVERIFY2(tip.contains("Dobyto veleni hrace Jana"), qPrintable(tip));

        list.setPlayer(trelvin::ActionPlayers::kNobody);
        list.setKind(trelvin::EventKind::All);
        list.searchBox()->setText("zzz");
        QCOMPARE(list.shownEvents(), std::vector<int>{});
        QCOMPARE(list.table()->emptyText(), QString("Nic nenalezeno"));
        list.searchBox()->setText("Z9");  // a field: the failed move that names it
        QCOMPARE(list.shownEvents(), std::vector<int>{5});
        QCOMPARE(list.table()->emptyText(), QString());
        list.searchBox()->setText("z9");  // another field, which nothing names
        QCOMPARE(list.shownEvents(), std::vector<int>{});
        list.searchBox()->clear();
        t.session.jumpTo(5);
        QVERIFY2(list.detail()->toPlainText().contains("Chyba pri provadeni tahu"), qPrintable(list.detail()->toPlainText()));
    }

    // While another replay opens, anything that redraws before its history is built must not
    // show rows of the replay it replaces from a history that is gone.
    void theListTheTimelineAndTheChartLetGoOfAReplayBeingReplaced() {
        Session t;
        trelvin::ActionListPanel list(t.session, nullptr);
        trelvin::TimelineStrip strip(t.session, nullptr);
        trelvin::ChartsPanel charts(t.session, nullptr);
        charts.show();
        t.open(kCapture);
        // The list's rows, the timeline's last event, the chart's hover text at the first action.
        std::vector<std::tuple<int, int, QString>> shownWhileOpening;
        connect(&t.session, &trelvin::ReplaySession::replacing, this, [&] {
            shownWhileOpening.emplace_back(list.table()->model()->rowCount(), strip.timeline->visibleRange().second,
                                           charts.chart->hoverText(1));
        }, Qt::DirectConnection);
        t.open(kAlfa);
        QCOMPARE(shownWhileOpening, (std::vector<std::tuple<int, int, QString>>{{0, 0, QString()}}));
        QCOMPARE(list.shownEvents(), Range(1, 7));
    }

    void theTimelineZoomsAroundThePointerThinsItsTicksAndTellsTheEventUnderIt() {
        Session t;
        trelvin::TimelineStrip strip(t.session, nullptr);
        strip.resize(400, 60);
        strip.show();
        t.open(HourlyReplay());
        trelvin::Timeline& timeline = *strip.timeline;
        const int count = t.session.eventCount();
        QCOMPARE(timeline.visibleRange(), std::pair(1, count));
        QVERIFY(!timeline.scrollBar()->isEnabled());
        QVERIFY(timeline.showsDays());  // 240 hours on a bar of a few hundred pixels
        const int x = timeline.xOf(100);
        const auto turn = [&](int eighths) {
            QWheelEvent wheel(QPointF(x, 10), timeline.mapToGlobal(QPointF(x, 10)), {}, QPoint(0, eighths), Qt::NoButton,
                              Qt::ControlModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&timeline, &wheel);
        };
        for (int notch = 0; notch < 6; ++notch) turn(120);
        const auto [first, last] = timeline.visibleRange();
        QVERIFY2(last - first < count / 4, qPrintable(QString("%1 to %2").arg(first).arg(last)));
        QVERIFY2(std::abs(timeline.eventAt(x) - 100) <= 1, qPrintable(QString::number(timeline.eventAt(x))));
        QVERIFY(!timeline.showsDays());
        QVERIFY(timeline.scrollBar()->isEnabled());
        timeline.scrollBar()->setValue(0);  // panned to the start, as wide as before
        QCOMPARE(timeline.visibleRange(), std::pair(1, 1 + last - first));
        const QString hover = timeline.hoverText(timeline.xOf(10));
        for (const QString& part : {QString("Akce 10 z %1").arg(count), QString("Druh: fly"),
                                    trelvin::GeneralDateText(t.session.world().events[10].time)})
            QVERIFY2(hover.contains(part), qPrintable(hover));
        t.session.jumpTo(count);  // the stretch follows the position
        QCOMPARE(timeline.visibleRange().second, count);
        for (int notch = 0; notch < 20; ++notch) turn(-120);
        QCOMPARE(timeline.visibleRange(), std::pair(1, count));
    }

    void theTimelineJumpsWhereItIsClickedAndFollowsThePosition() {
        Session t;
        trelvin::TimelineStrip strip(t.session, nullptr);
        strip.resize(400, 30);
        strip.show();
        t.open(kCapture);
        QCOMPARE(strip.lblPosition->text(), QString("1 (7)"));
        trelvin::Timeline& timeline = *strip.timeline;
        QTest::mouseClick(&timeline, Qt::LeftButton, {}, QPoint(timeline.xOf(6), timeline.height() / 2));
        QTRY_COMPARE(t.session.position(), 6);
        QCOMPARE(std::pair(timeline.position(), strip.lblPosition->text()), std::pair(6, QString("6 (7)")));
    }
};

QTEST_MAIN(PanelsTest)
#include "panels_test.moc"

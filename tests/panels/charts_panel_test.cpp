// The panel "Prubeh hry" on a session: a click in the chart goes to the action under the
// pointer, the position's line follows every move, a player hidden from the legend leaves the
// chart, and the CSV it saves is written whole or not at all.
#include <QtTest>
#include <QtWidgets>

#include <QChart>
#include <QLegend>
#include <QLegendMarker>

#include "history/player_csv.h"
#include "panels/charts_panel.h"
#include "widgets/course_chart.h"
#include "widgets/hover_note.h"
#include "widgets/player_colors.h"
#include "shell/window_fixture.h"
#include "support/session_fixture.h"

using namespace trelvin::testing;
using trelvin::CourseChart;

namespace {

std::string SampleBytes(const char* name) {
    QFile file(QStringLiteral(TRELVIN_SAMPLES_DIR "/") + name);
    file.open(QIODevice::ReadOnly);
    return file.readAll().toStdString();
}

// The middle of the plot in the chart's viewport.
QPoint PlotCentre(const CourseChart& chart) {
    return chart.mapFromScene(chart.chart()->mapToScene(chart.chart()->plotArea().center()));
}

struct Shown {
    Shown() : panel(t.session, nullptr) {
        t.open(SampleBytes("bitva-u-potoka.trp"));
        panel.resize(900, 320);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
    }
    Session t;
    trelvin::ChartsPanel panel;
    CourseChart& chart = *panel.chart;
};

}  // namespace

class ChartsPanelTest : public QObject {
    Q_OBJECT

private slots:
    void aClickInThePlotGoesToTheActionUnderThePointer() {
        Shown s;
        const int count = s.t.session.eventCount();
        QVERIFY(count > 20);
        const QPoint centre = PlotCentre(s.chart);
        // Half the distance between two actions: the action chosen is the one nearest the click.
        const double half = double(s.chart.xOf(count) - s.chart.xOf(1)) / (count - 1) / 2;
        QVERIFY(half > 3);
        QStringList jumps;
        connect(&s.t.session, &trelvin::ReplaySession::jumped, this, [&](int position) { jumps << QString::number(position); });
        // A click on the action shown asks for no jump.
        QStringList expected;
        int last = s.t.session.position();
        for (const int x : {s.chart.xOf(1), s.chart.xOf(count), centre.x(), centre.x() + int(half) - 1, s.chart.xOf(7) + 2}) {
            QTest::mouseClick(s.chart.viewport(), Qt::LeftButton, {}, QPoint(x, centre.y()));
            const int position = s.t.session.position();
            QVERIFY2(std::abs(s.chart.xOf(position) - x) <= half, qPrintable(QString("click at x %1").arg(x)));
            if (position != last) expected << QString::number(position);
            last = position;
        }
        QCOMPARE(jumps, expected);
        // Left of the plot, over the values, nothing moves.
        QTest::mouseClick(s.chart.viewport(), Qt::LeftButton, {}, QPoint(s.chart.xOf(1) - 30, centre.y()));
        QCOMPARE(s.t.session.position(), last);
    }

    // The plot keeps its place as the quantities change, whatever their values' widths.
    void thePlotKeepsItsPlaceAcrossTheQuantities() {
        Shown s;
        std::vector<qreal> lefts;
        for (int index = 0; index < s.panel.quantity->count(); ++index) {
            s.panel.quantity->setCurrentIndex(index);
            QTRY_VERIFY(s.chart.chart()->plotArea().isValid());
            QCoreApplication::processEvents();
            lefts.push_back(s.chart.chart()->plotArea().left());
        }
        const auto [lowest, highest] = std::minmax_element(lefts.begin(), lefts.end());
        QVERIFY2(*highest - *lowest <= 1, qPrintable(QString("from %1 to %2").arg(*lowest).arg(*highest)));
    }

    // The hover text stays while the pointer rests, follows it, and goes when it leaves.
    void restingThePointerTellsTheActionAndEveryShownPlayersValue() {
        Shown s;
        const QPoint centre = PlotCentre(s.chart);
        const int event = s.chart.eventAt(centre.x());
        QTest::mouseMove(s.chart.viewport(), centre);
        auto& note = Find<trelvin::HoverNote>(s.chart, "hoverNote");
        QTRY_VERIFY(note.isVisible());
        QCOMPARE(note.text(), s.chart.hoverText(event));
        QVERIFY(s.chart.hoverText(event).contains(QString("Akce %1").arg(event)));
        // Where a tooltip would have gone, and the view hidden its own at the rest.
        QTest::qWait(1500);
        QHelpEvent rest(QEvent::ToolTip, centre, s.chart.viewport()->mapToGlobal(centre));
        QApplication::sendEvent(s.chart.viewport(), &rest);
        QVERIFY(note.isVisible());
        QCOMPARE(note.text(), s.chart.hoverText(event));
        const QPoint left = note.pos();
        const QPoint further = centre + QPoint(60, 0);
        QTest::mouseMove(s.chart.viewport(), further);
        QTRY_COMPARE(note.text(), s.chart.hoverText(s.chart.eventAt(further.x())));
        QVERIFY(note.pos().x() > left.x());
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(s.chart.viewport(), &leave);
        QVERIFY(!note.isVisible());
    }

    void theCsvIsWrittenWholeOrNotAtAll() {
        Shown s;
        const QString path = s.t.directory.filePath("bitva.csv");
        QCOMPARE(s.panel.writeCsv(path), QString());
        QFile saved(path);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QVERIFY(saved.readAll().startsWith("index,time,player,side,"));
        // A folder of that name is left alone, with a message.
        QVERIFY(!s.panel.writeCsv(s.t.directory.path()).isEmpty());
        QVERIFY(QFileInfo(s.t.directory.path()).isDir());
    }
};

QTEST_MAIN(ChartsPanelTest)
#include "charts_panel_test.moc"

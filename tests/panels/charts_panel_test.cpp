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
#include "widgets/player_colors.h"
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

// The pixels of the plot close to `color`.
int PixelsNear(CourseChart& chart, const QColor& color) {
    const QImage image = chart.viewport()->grab().toImage();
    const QRectF plot = chart.chart()->plotArea();
    const QRect area(chart.mapFromScene(chart.chart()->mapToScene(plot.topLeft())),
                     chart.mapFromScene(chart.chart()->mapToScene(plot.bottomRight())));
    int near = 0;
    const qreal ratio = image.devicePixelRatio();
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor pixel = image.pixelColor(int(x * ratio), int(y * ratio));
            near += std::abs(pixel.red() - color.red()) + std::abs(pixel.green() - color.green()) +
                        std::abs(pixel.blue() - color.blue()) < 40;
        }
    return near;
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

    void restingThePointerTellsTheActionAndEveryShownPlayersValue() {
        Shown s;
        const QPoint centre = PlotCentre(s.chart);
        const int event = s.chart.eventAt(centre.x());
        QTest::mouseMove(s.chart.viewport(), centre);
        QTRY_VERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), s.chart.hoverText(event));
        QVERIFY(s.chart.hoverText(event).contains(QString("Akce %1").arg(event)));
    }

    void thePositionsLineFollowsStepsJumpsAndTheSlideShow() {
        Shown s;
        const auto lineAt = [&s] { return std::pair(s.chart.position(), s.chart.markerX()); };
        const auto expected = [&s] {
            return std::pair(s.t.session.position(), std::optional<int>(s.chart.xOf(s.t.session.position())));
        };
        QCOMPARE(lineAt(), std::pair(1, std::optional<int>(s.chart.xOf(1))));
        s.t.session.forward();
        QCOMPARE(lineAt(), expected());
        s.t.session.jumpTo(30);
        QCOMPARE(lineAt(), expected());
        s.t.session.first();
        s.t.session.play(true, 10);
        QTRY_VERIFY(s.t.session.position() >= 5);
        s.t.session.stop();
        QCOMPARE(lineAt(), expected());
        // A new size moves the line with the plot.
        s.panel.resize(600, 300);
        QTRY_COMPARE(lineAt(), expected());
    }

    void aPlayerHiddenFromTheLegendLeavesTheChartAndItsHoverText() {
        Shown s;
        QVERIFY(s.chart.playerCount() >= 2);
        const QColor color = trelvin::PlayerColor(2);
        QLegendMarker* entry = s.chart.chart()->legend()->markers(s.chart.seriesOf(2).front()).value(0);
        QVERIFY(entry);
        const QString hover = s.chart.hoverText(s.t.session.eventCount());
        QVERIFY(PixelsNear(s.chart, color) > 20);
        emit entry->clicked();
        QVERIFY(!s.chart.playerShown(2));
        for (QAbstractSeries* series : s.chart.seriesOf(2)) QVERIFY(!series->isVisible());
        QCOMPARE(PixelsNear(s.chart, color), 0);
        QVERIFY(s.chart.hoverText(s.t.session.eventCount()).size() < hover.size());
        QVERIFY(s.chart.playerShown(1));
        // Hidden it stays hidden in another quantity, and a second click brings it back.
        s.panel.quantity->setCurrentIndex(s.panel.quantity->count() - 1);
        QVERIFY(!s.chart.playerShown(2));
        QCOMPARE(PixelsNear(s.chart, color), 0);
        emit s.chart.chart()->legend()->markers(s.chart.seriesOf(2).front()).value(0)->clicked();
        QVERIFY(s.chart.playerShown(2));
        QVERIFY(PixelsNear(s.chart, color) > 20);
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

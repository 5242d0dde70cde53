// The open flow in the window: it builds the grid for the new map in the designed places,
// reports what fails in its own order, and stops at the grid's limits.
#include "shell/window_fixture.h"

using namespace trelvin::testing;

static QRectF rectOf(const trelvin::GridRect& r) { return QRectF(r.left, r.top, r.width, r.height); }
static QRectF fieldRect(const trelvin::MapGrid& grid, int k) { return rectOf(grid.layout().fields().at(k - 1).rect); }

class MapWindowTest : public QObject {
    Q_OBJECT

private slots:
    void alfaAfterALargerWorldHasOnlyItsSixFieldsAndFiveLabels() {
        Window t;
        const trelvin::MapGrid& grid = t.find<trelvin::MapGrid>("grid");
        t.open("velky.trp", BlankWorld(5, 4));
        QCOMPARE(grid.fieldCount(), 20);
        const double width = t.window->outerWidthTwips();
        QCOMPARE(t.applies([&] { t.open("alfa.trp", kAlfa); }), std::vector<int>{1});
        QVERIFY2(t.messages.texts.isEmpty(), qPrintable(t.messages.texts.join('|')));
        QCOMPARE(grid.fieldCount(), 6);
        for (int k = 1; k <= 6; ++k) {
            const int i = (k - 1) / 3 + 1, j = (k - 1) % 3 + 1;
            QCOMPARE(fieldRect(grid, k), QRectF(width / 2 + 300 * j - 150, 300 * i + 2650, 300, 300));
        }
        QCOMPARE(grid.layout().labelCount(), 5);
        // Until the first step every field shows free land.
        QCOMPARE(grid.scene().pictures, std::vector<int>(6, 2));
        QCOMPARE(t.find<QLabel>("lblTah").text(), QString("1 (7)"));
    }

    // Zobrazeni -> Zvyraznit akci: on at start, the marks as far as the way of viewing sees.
    void theCurrentActionIsMarkedInEveryWayOfViewingUntilTurnedOff() {
        Window t;
        t.open("alfa.trp", kAlfa);
        const trelvin::MapPanel& grid = t.find<trelvin::MapPanel>("grid");
        QAction& highlight = t.find<QAction>("highlightAction");
        QVERIFY(t.find<QMenu>("mnuZobrazeni").actions().contains(&highlight));
        QVERIFY(highlight.isChecked());
        for (int i = 1; i < 6; ++i) t.controls.cmdForw_Click();  // Karel's attack from A0 on B0
        const auto marks = [&grid] {
            const trelvin::ActionMarks& m = grid.scene().marks;
            return std::tuple(m.outlined, m.arrowFrom, m.arrowTo);
        };
        QCOMPARE(marks(), std::tuple(std::vector<int>{1, 2}, 1, 2));
        t.find<QRadioButton>("o0").click();  // as louka: A0 is out of sight, and nothing points to it
        QCOMPARE(marks(), std::tuple(std::vector<int>{2}, 0, 0));
        highlight.trigger();
        QVERIFY(grid.scene().marks.empty());
        t.controls.cmdBack_Click();
        QVERIFY(grid.scene().marks.empty());
        highlight.trigger();
        QCOMPARE(marks(), std::tuple(std::vector<int>{}, 0, 0));  // Karel's purchase, hidden from louka
        t.find<QRadioButton>("o2").click();
        QCOMPARE(marks(), std::tuple(std::vector<int>{1}, 0, 0));
    }

    void cancelledFirstDialogReportsAndLeavesTheButtonsDisabled() {
        Window t;
        t.open(std::nullopt);
        const QStringList& texts = t.messages.texts;
        QCOMPARE(texts.size(), 3);
        QVERIFY2(texts[0].startsWith("Chyba pri nacitani replaye - "), qPrintable(texts[0]));
        QVERIFY2(texts[1].startsWith("Chyba pri provadeni tahu - "), qPrintable(texts[1]));
        QCOMPARE(texts[2], QString("Index mimo rozsah: udalost 1 neexistuje"));
        QVERIFY(t.find<QLineEdit>("txtPolicko").isEnabled());
        QVERIFY(!t.find<QPushButton>("cmdS").isEnabled());
        QCOMPARE(EnabledButtons(t), QString("0000000000"));
        QCOMPARE(t.find<QLabel>("lblTah").text(), QString("1 (0)"));
    }

    // Past the grid's limits the flow reports the overflow and stops before enabling the panels.
    void gridPositionsOverflowFrom101RowsOr110Columns() {
        for (const auto& [columns, rows, overflows] : {std::tuple{1, 101, true}, {110, 1, true}, {109, 100, false}}) {
            Window t;
            t.open("velky.trp", BlankWorld(columns, rows));
            QCOMPARE(t.messages.texts, overflows ? QStringList{"Preteceni (hodnota mimo povoleny rozsah)"} : QStringList{});
            QCOMPARE(t.find<QLineEdit>("txtPolicko").isEnabled(), !overflows);
        }
    }
};

QTEST_MAIN(MapWindowTest)
#include "map_window_test.moc"

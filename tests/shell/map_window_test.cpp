// The map in the window: the open flow that builds the grid, the view modes that set its
// pictures, and the inspection panel filled by clicks and typed names.
#include "shell/window_fixture.h"

using namespace trelvin::testing;

// A world of plain fields only.
static std::vector<std::string> BlankWorld(int columns, int rows) {
    return {"0;Velky;2;" + std::to_string(columns) + ";" + std::to_string(rows) + ";3",
            "2004-06-19-08-00-00;create_world;" + std::string(std::size_t(rows * columns), 'N')};
}

static QRectF rectOf(const trelvin::GridRect& r) { return QRectF(r.left, r.top, r.width, r.height); }
static QRectF fieldRect(const trelvin::MapGrid& grid, int k) { return rectOf(grid.layout().fields().at(k - 1).rect); }
static QRectF labelRect(const trelvin::MapGrid& grid, int n) { return rectOf(grid.layout().labels().at(n - 1).rect); }

static std::vector<int> pictures(const trelvin::MapGrid& grid) {
    std::vector<int> result;
    for (int k = 1; k <= grid.fieldCount(); ++k) result.push_back(grid.fieldPicture(k));
    return result;
}

// A real mouse click on field k of the painted grid.
static void clickField(trelvin::MapGrid& grid, int k) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.fieldRectInViewport(k).center());
}

static QStringList inspection(const frmMain& w) {
    return {w.lblPVlastnik->text(), w.lblPTyp->text(), w.lblPTypArmady->text(), w.lblPPArmady->text()};
}

class MapWindowTest : public QObject {
    Q_OBJECT

private slots:
    void alfaAfterALargerWorldHasOnlyItsSixFieldsAndFiveLabels() {
        Window t;
        t.open("velky.trp", BlankWorld(5, 4));
        QCOMPARE(t.window->grid->fieldCount(), 20);
        const double width = t.window->outerWidthTwips();
        QCOMPARE(t.applies([&] { t.open("alfa.trp", kAlfa); }), std::vector<int>{1});
        const trelvin::MapGrid& grid = *t.window->grid;
        QVERIFY2(t.messages.texts.isEmpty(), qPrintable(t.messages.texts.join('|')));
        QCOMPARE(grid.fieldCount(), 6);
        for (int k = 1; k <= 6; ++k) {
            const int i = (k - 1) / 3 + 1, j = (k - 1) % 3 + 1;
            QCOMPARE(fieldRect(grid, k), QRectF(width / 2 + 300 * j - 150, 300 * i + 2650, 300, 300));
        }
        QCOMPARE(grid.layout().labelCount(), 5);
        for (int n = 1; n <= 5; ++n) QCOMPARE(QString::fromStdString(grid.layout().labels()[n - 1].caption), QStringList({"A", "B", "C", "0", "1"})[n - 1]);
        QCOMPARE(labelRect(grid, 2), QRectF(fieldRect(grid, 2).left(), 2650, 300, 300));
        QCOMPARE(labelRect(grid, 5), QRectF(fieldRect(grid, 1).left() - 300, fieldRect(grid, 4).top(), 300, 300));
        QCOMPARE(t.window->lblTah->text(), QString("1 (7)"));
    }

    void cancelledFirstDialogReportsAndLeavesTheButtonsDisabled() {
        Window t;
        t.files.answers.push_back(std::nullopt);
        t.window->mnuOtevritItem_Click();
        const QStringList& texts = t.messages.texts;
        QCOMPARE(texts.size(), 3);
        QVERIFY(texts[0].startsWith("Chyba pri nacitani replaye - "));
        QVERIFY(texts[1].startsWith("Chyba pri provadeni tahu - "));
        QCOMPARE(texts[2], QString("Index mimo rozsah: udalost 1 neexistuje"));
        QVERIFY(t.window->txtPolicko->isEnabled() && !t.window->cmdS->isEnabled());
        QCOMPARE(EnabledButtons(*t.window), QString("0000000000"));
        QCOMPARE(t.window->lblTah->text(), QString("1 (0)"));
    }

    // Past the grid's limits the flow reports the overflow and stops before enabling the panels.
    void gridPositionsOverflowFrom101RowsOr110Columns() {
        for (const auto& [columns, rows, overflows] : {std::tuple{1, 101, true}, {110, 1, true}, {109, 100, false}}) {
            Window t;
            t.open("velky.trp", BlankWorld(columns, rows));
            QCOMPARE(t.messages.texts, overflows ? QStringList{"Preteceni (hodnota mimo povoleny rozsah)"} : QStringList{});
            QCOMPARE(t.window->txtPolicko->isEnabled(), !overflows);
        }
    }

    void viewModesSetThePicturesAndClicksOrNamesFillTheInspection() {
        Window t;
        t.window->show();
        t.open("alfa.trp", kAlfa);
        frmMain& w = *t.window;
        w.cmdEnd_Click();
        // A0 Karel's headquarters, B0 Karel's with 3 units, C0 free, A1 free rock, B1 "X",
        // C1 Jana's headquarters.
        const std::vector<int> everything{15, 4, 2, 2, 16, 15};
        QCOMPARE(pictures(*w.grid), everything);
        w.o[1]->click();  // as les: everything in sight, Jana's headquarters plain
        QCOMPARE(pictures(*w.grid), (std::vector<int>{15, 4, 2, 2, 16, 9}));
        w.o[0]->click();  // as louka: column A out of sight, Karel's army and headquarters hidden
        QCOMPARE(pictures(*w.grid), (std::vector<int>{1, 3, 2, 1, 16, 15}));
        clickField(*w.grid, 2);
        QCOMPARE(w.txtPolicko->text(), QString("B0"));
        QCOMPARE(inspection(w), (QStringList{"Karel", "Normalni", "neznamy", "neznamo"}));

        // The same field clicked again in another view is refreshed.
        w.o[2]->click();
        QCOMPARE(pictures(*w.grid), everything);
        clickField(*w.grid, 2);
        QCOMPARE(inspection(w), (QStringList{"Karel", "Normalni", QString::fromUtf8("Vosi\u010dka"), "3"}));
        w.txtPolicko->setText("B1");
        QCOMPARE(inspection(w), (QStringList{"Nedobytne pole", "", "", ""}));
        for (const char* name : {"C0", "D0", "A2", "c0", "", "C"}) {  // not a field: unchanged
            w.txtPolicko->setText(name);
            QCOMPARE(inspection(w), (QStringList{"volne uzemi", "", "", ""}));
        }
        w.o[0]->click();
        w.txtPolicko->clear();
        QTest::keyClicks(w.txtPolicko, "A0x");
        QCOMPARE(inspection(w), (QStringList{"nezname uzemi", "", "", ""}));
    }
};

QTEST_MAIN(MapWindowTest)
#include "map_window_test.moc"

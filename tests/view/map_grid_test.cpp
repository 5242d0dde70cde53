// The map in the window: view-mode clicks set the pictures of the table, clicks on the grid
// and typed names fill the inspection panel.
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include "shell/twips.h"
#include "shell/window_fixture.h"
#include "view/map_grid.h"

using trelvin::testing::kAlfa;
using trelvin::testing::Window;

namespace {

std::vector<int> pictures(const trelvin::MapGrid& grid) {
    std::vector<int> result;
    for (int k = 1; k <= grid.fieldCount(); ++k) result.push_back(grid.fieldPicture(k));
    return result;
}

// A real mouse click on field k of the painted grid.
void clickField(trelvin::MapGrid& grid, int k) {
    const QPoint centre = trelvin::TwipsToPixels(grid.fieldRect(k).toRect()).center();
    QTest::mouseClick(&grid, Qt::LeftButton, {}, centre - grid.pos());
}

QStringList panel(const frmMain& w) {
    return {w.lblPVlastnik->text(), w.lblPTyp->text(), w.lblPTypArmady->text(), w.lblPPArmady->text()};
}

}  // namespace

class MapGridTest : public QObject {
    Q_OBJECT

private slots:
    void viewModesSetThePicturesOfTheTable() {
        Window t;
        t.open("alfa.trp", kAlfa);
        frmMain& w = *t.window;
        w.cmdEnd_Click();
        // A0 Karel's headquarters, B0 Karel's with 3 units, C0 free, A1 free rock, B1 "X",
        // C1 Jana's headquarters.
        QCOMPARE(pictures(*w.grid), (std::vector<int>{15, 4, 2, 2, 16, 15}));
        w.o[1]->click();  // as les: everything in sight, Jana's headquarters plain
        QCOMPARE(pictures(*w.grid), (std::vector<int>{15, 4, 2, 2, 16, 9}));
        w.o[0]->click();  // as louka: column A out of sight, Karel's army and headquarters hidden
        QCOMPARE(pictures(*w.grid), (std::vector<int>{1, 3, 2, 1, 16, 15}));
        w.o[2]->click();
        QCOMPARE(pictures(*w.grid), (std::vector<int>{15, 4, 2, 2, 16, 15}));
    }

    void clicksAndTypedNamesFillTheInspectionPanel() {
        Window t;
        t.window->show();
        t.open("alfa.trp", kAlfa);
        frmMain& w = *t.window;
        w.cmdEnd_Click();
        w.o[0]->click();

        clickField(*w.grid, 2);
        QCOMPARE(w.txtPolicko->text(), QString("B0"));
        QCOMPARE(panel(w), (QStringList{"Karel", "Normalni", "neznamy", "neznamo"}));

        // The same field clicked again in another way of viewing is refreshed.
        w.o[2]->click();
        clickField(*w.grid, 2);
        QCOMPARE(panel(w), (QStringList{"Karel", "Normalni", QString::fromUtf8("Vosi\u010dka"), "3"}));

        w.txtPolicko->setText("B1");
        QCOMPARE(panel(w), (QStringList{"Nedobytne pole", "", "", ""}));
        w.txtPolicko->setText("C0");
        QCOMPARE(panel(w), (QStringList{"volne uzemi", "", "", ""}));
        for (const char* notAField : {"D0", "A2", "c0", "", "C"}) {
            w.txtPolicko->setText(notAField);
            QCOMPARE(panel(w), (QStringList{"volne uzemi", "", "", ""}));
        }
        w.o[0]->click();
        w.txtPolicko->clear();
        QTest::keyClicks(w.txtPolicko, "A0x");
        QCOMPARE(w.txtPolicko->text(), QString("A0x"));
        QCOMPARE(panel(w), (QStringList{"nezname uzemi", "", "", ""}));
    }
};

QTEST_MAIN(MapGridTest)
#include "map_grid_test.moc"

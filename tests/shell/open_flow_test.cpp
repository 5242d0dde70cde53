// The window at start-up and the open flow: the grid it builds, a second open, a cancelled
// first dialog, maps too large for the grid's 16-bit positions.
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "shell/twips.h"
#include "shell/window_fixture.h"
#include "view/map_grid.h"

using trelvin::testing::kAlfa;
using trelvin::testing::Window;

namespace {

std::vector<QPushButton*> allButtons(const frmMain& w) {
    return {w.cmdBegin, w.cmdBack, w.cmdForw, w.cmdEnd, w.cmdSBegin,
            w.cmdRZ,    w.cmdZ,    w.cmdS,    w.cmdD,   w.cmdRD, w.cmdSEnd};
}

std::string terrain(int count) { return std::string(static_cast<std::size_t>(count), 'N'); }

}  // namespace

class OpenFlowTest : public QObject {
    Q_OBJECT

private slots:
    void startUpState() {
        Window t;
        frmMain& w = *t.window;
        QCOMPARE(w.windowTitle(), QString("Trelvin - Replay v1.1"));
        QVERIFY(!w.windowIcon().isNull());
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(w.centralWidget()->size(), QSize(6630 / 15, 6000 / 15));
        for (QPushButton* button : allButtons(w)) {
            QVERIFY(!button->isEnabled());
            QCOMPARE(button->y(), 480 / 15);
        }
        for (QPushButton* button : {w.cmdSBegin, w.cmdRZ, w.cmdZ, w.cmdS, w.cmdD, w.cmdRD, w.cmdSEnd})
            QVERIFY(button->isHidden());
        QCOMPARE(w.cmdForw->geometry(), QRect(3840 / 15, 480 / 15, 1215 / 15, 375 / 15));
        QCOMPARE(w.cmdRZ->geometry(), QRect(1200 / 15, 480 / 15, 855 / 15, 375 / 15));
        QCOMPARE(w.lblTah->text(), QString("0"));
        QCOMPARE(w.cmbHraci->currentText(), QString("Zvolte hrace"));
        QVERIFY(!w.cmbHraci->isEnabled() && !w.txtPolicko->isEnabled());
        QVERIFY(w.ov[0]->isChecked() && w.o[2]->isChecked());
        QCOMPARE(w.grid->fieldCount(), 0);
        QCOMPARE(w.position, std::int16_t{0});
    }

    void alfaBuildsSixFieldsAndFiveLabels() {
        Window t;
        const double width = t.window->outerWidthTwips();
        t.open("alfa.trp", kAlfa);
        const trelvin::MapGrid& grid = *t.window->grid;
        QVERIFY2(t.messages.texts.isEmpty(), qPrintable(t.messages.texts.join('|')));
        QCOMPARE(grid.fieldCount(), 6);
        for (int k = 1; k <= 6; ++k) {
            const int i = (k - 1) / 3 + 1;
            const int j = (k - 1) % 3 + 1;
            QCOMPARE(grid.fieldRect(k), QRectF(width / 2 + 300 * j - 150, 300 * i + 2650, 300, 300));
            QCOMPARE(grid.fieldPicture(k), 2);
        }
        QCOMPARE(grid.labelCount(), 5);
        const QStringList captions{"A", "B", "C", "0", "1"};
        for (int n = 1; n <= 5; ++n) QCOMPARE(grid.labelCaption(n), captions[n - 1]);
        QCOMPARE(grid.labelRect(2), QRectF(grid.fieldRect(2).left(), 2650, 300, 300));
        QCOMPARE(grid.labelRect(5), QRectF(grid.fieldRect(1).left() - 300, grid.fieldRect(4).top(), 300, 300));

        frmMain& w = *t.window;
        QCOMPARE(w.position, std::int16_t{1});
        QCOMPARE(t.applied, std::vector<int>{1});
        QCOMPARE(w.lblTah->text(), QString("1 (7)"));
        QVERIFY(w.lbl->text().startsWith("Svet Alfa vytvoren\nRozmery: 3x2"));
        QVERIFY(w.txtPolicko->isEnabled() && w.cmbHraci->isEnabled());
        QVERIFY(w.cmdForw->isEnabled() && w.cmdEnd->isEnabled() && w.cmdD->isEnabled());
        QVERIFY(!w.cmdBack->isEnabled() && !w.cmdS->isEnabled());
    }

    void secondOpenLeavesNothingOfTheFirst() {
        Window t;
        t.open("big.trp", {"0;Velky;2;5;4;3", "2004-06-19-08-00-00;create_world;" + terrain(20)});
        QCOMPARE(t.window->grid->fieldCount(), 20);
        t.open("alfa.trp", kAlfa);
        QCOMPARE(t.window->grid->fieldCount(), 6);
        QCOMPARE(t.window->grid->labelCount(), 5);
        QCOMPARE(t.window->grid->labelCaption(5), QString("1"));
    }

    void cancelledFirstDialog() {
        Window t;
        t.files.answers.push_back(std::nullopt);
        t.window->mnuOtevritItem_Click();
        const QStringList& texts = t.messages.texts;
        QCOMPARE(texts.size(), 3);
        QVERIFY(texts[0].startsWith("Chyba pri nacitani replaye - "));
        QVERIFY(texts[1].startsWith("Chyba pri provadeni tahu - "));
        QVERIFY(!texts[2].startsWith("Chyba") && !texts[2].isEmpty());
        frmMain& w = *t.window;
        QVERIFY(w.txtPolicko->isEnabled() && w.cmbHraci->isEnabled());
        QCOMPARE(w.lblTah->text(), QString("1 (0)"));
        for (QPushButton* button : allButtons(w)) QVERIFY(!button->isEnabled());
        QVERIFY(!w.atBegin && !w.atEnd);  // updateButtons never ran

        // Stepping a replay that does not exist reports and never ends the program.
        w.cmdForw_Click();
        w.cmdEnd_Click();
        w.cmdBack_Click();
        QCOMPARE(w.position, std::int16_t{0});
    }

    void failedReloadKeepsTheCountAndNavigationSurvives() {
        Window t;
        t.open("alfa.trp", kAlfa);
        t.files.answers.push_back(t.write("bad.trp", {"0;Zla;2;3;2;3", "2004-06-19-08-00-00;create_world;NNNNNN",
                                                      "2004-06-19-08-10-00;move;A0;B0;12x"}));
        t.window->mnuOtevritItem_Click();
        t.messages.texts.clear();
        t.window->cmdEnd_Click();  // eventCount is still Alfa's 7; only event 1 exists
        QCOMPARE(t.window->position, std::int16_t{7});
        QCOMPARE(t.messages.texts.size(), 6);
        QCOMPARE(t.window->lblTah->text(), QString("7 (7)"));
    }

    void gridPositionsOverflowAt101RowsAnd110Columns() {
        for (const auto& [rows, columns, loaded] : {std::tuple{101, 1, 101}, std::tuple{1, 110, 110}}) {
            Window t;
            t.open("velky.trp", {"0;Velky;2;" + std::to_string(columns) + ";" + std::to_string(rows) + ";3",
                                 "2004-06-19-08-00-00;create_world;" + terrain(rows * columns)});
            QCOMPARE(t.messages.texts, QStringList{"Preteceni (hodnota mimo povoleny rozsah)"});
            QCOMPARE(t.window->grid->fieldCount(), loaded);
            QVERIFY(!t.window->grid->fieldVisible(loaded));
            QCOMPARE(t.window->grid->labelCount(), 0);
            QVERIFY(!t.window->txtPolicko->isEnabled());
            QVERIFY(!t.window->cmdForw->isEnabled());
        }
    }

    void largestMapOpensAndRedrawsAtOnce() {
        Window t;
        t.window->show();
        const int widthBefore = t.window->width();
        QElapsedTimer clock;
        clock.start();
        t.open("najvetsi.trp", {"0;Velky;2;109;100;3", "2004-06-19-08-00-00;create_world;" + terrain(10900)});
        t.window->o_Click(2);
        t.window->grid->repaint();
        QVERIFY2(clock.elapsed() < 1500, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(t.window->grid->fieldCount(), 10900);
        QCOMPARE(t.window->grid->labelCount(), 209);
        QCOMPARE(t.window->grid->labelCaption(27), QString("["));
        QVERIFY(t.window->width() >= widthBefore);
    }
};

QTEST_MAIN(OpenFlowTest)
#include "open_flow_test.moc"

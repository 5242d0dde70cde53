// The window's keys, a dropped file and the field tooltip: each key presses exactly the button
// of the mode shown and nothing when that button is disabled; text fields keep their keys.
#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QUrl>

#include "shell/window_fixture.h"
#include "view/map_grid.h"

using trelvin::testing::kAlfa;
using trelvin::testing::PlainReplay;
using trelvin::testing::Window;

namespace {

// A shown, active window: window shortcuts reach only the active one.
void activate(frmMain& w) {
    w.show();
    w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w));
}

// Presses `key` in the focused control; returns the events it applied.
std::vector<int> press(Window& t, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    t.applied.clear();
    QWidget* focused = QApplication::focusWidget();
    QTest::keyClick(focused ? focused : t.window.get(), key, modifiers);
    return t.applied;
}

// Drags `urls` onto the window and drops them; returns whether the window took the drag.
bool drop(frmMain& w, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPoint centre = w.rect().center();
    QDragEnterEvent enter(centre, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&w, &enter);
    QDropEvent dropped(centre, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&w, &dropped);
    return enter.isAccepted();
}

// Asks the grid for the tooltip at the centre of field k.
void hover(trelvin::MapGrid& grid, int k) {
    const QPoint at = (grid.fieldRect(k).center() / 15).toPoint() - grid.pos();
    QHelpEvent help(QEvent::ToolTip, at, grid.mapToGlobal(at));
    QApplication::sendEvent(&grid, &help);
}

}  // namespace

class KeyboardAndDropTest : public QObject {
    Q_OBJECT

private slots:
    void stepKeysPressTheirButtons() {
        Window t;
        frmMain& w = *t.window;
        activate(w);
        for (Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End, Qt::Key_Space})
            QVERIFY(press(t, key).empty());  // nothing opened: every button is disabled
        QVERIFY(w.ov[0]->isChecked());  // Space on the focused, selected option keeps it selected

        t.open("rada.trp", PlainReplay(10));
        QCOMPARE(press(t, Qt::Key_Right), std::vector<int>{2});
        QCOMPARE(press(t, Qt::Key_Right), std::vector<int>{3});
        QCOMPARE(press(t, Qt::Key_Left), (std::vector<int>{1, 2}));
        QCOMPARE(press(t, Qt::Key_End), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
        QCOMPARE(w.position, std::int16_t{10});
        QVERIFY(press(t, Qt::Key_Right).empty());
        QVERIFY(press(t, Qt::Key_End).empty());
        QVERIFY(press(t, Qt::Key_Space).empty());
        QVERIFY(!w.tSlide->isActive());
        QCOMPARE(press(t, Qt::Key_Home), std::vector<int>{1});
        QVERIFY(press(t, Qt::Key_Left).empty());
        QVERIFY(press(t, Qt::Key_Home).empty());
        QCOMPARE(w.position, std::int16_t{1});
    }

    void slideShowKeysPressTheVisibleRow() {
        Window t;
        frmMain& w = *t.window;
        activate(w);
        t.open("rada.trp", PlainReplay(10));
        w.ov[1]->click();
        QVERIFY(w.cmdForw->isHidden() && !w.cmdD->isHidden());

        QVERIFY(press(t, Qt::Key_Right).empty());  // the show has no single steps
        QVERIFY(press(t, Qt::Key_Home).empty());   // cmdSBegin is disabled at event 1
        QCOMPARE(press(t, Qt::Key_Space), std::vector<int>{2});  // "-->" steps at once
        QVERIFY(w.tSlide->isActive() && w.slideForward && w.cmdS->isEnabled());
        QCOMPARE(w.tSlide->interval(), 5000);
        QVERIFY(press(t, Qt::Key_Space).empty());  // "II"
        QVERIFY(!w.tSlide->isActive() && !w.cmdS->isEnabled());
        QCOMPARE(press(t, Qt::Key_End).size(), std::size_t{10});
        QVERIFY(press(t, Qt::Key_Space).empty());  // "-->" is disabled at the end
        QVERIFY(!w.tSlide->isActive());
        QCOMPARE(press(t, Qt::Key_Home), std::vector<int>{1});

        w.ov[0]->click();
        QCOMPARE(press(t, Qt::Key_Right), std::vector<int>{2});
        QVERIFY(press(t, Qt::Key_Space).empty());  // no show in step mode
        QVERIFY(!w.tSlide->isActive());
    }

    void textFieldsKeepTheirKeys() {
        Window t;
        frmMain& w = *t.window;
        activate(w);
        t.open("rada.trp", PlainReplay(10));
        w.cmdForw_Click();
        for (QLineEdit* field : {w.txtPolicko, w.cmbHraci->lineEdit()}) {
            field->setFocus();
            field->setText("B1");
            for (Qt::Key key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_Right, Qt::Key_End, Qt::Key_Space})
                QVERIFY(press(t, key).empty());
            QCOMPARE(field->text(), QString("B1 "));
            QCOMPARE(w.position, std::int16_t{2});
        }
    }

    void menuShortcuts() {
        Window t;
        frmMain& w = *t.window;
        activate(w);
        t.files.answers.push_back(t.write("alfa.trp", kAlfa));
        QCOMPARE(press(t, Qt::Key_O, Qt::ControlModifier), std::vector<int>{1});
        QCOMPARE(w.grid->fieldCount(), 6);
        QSignalSpy quit(w.mnuKonecItem, &QAction::triggered);
        press(t, Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(quit.count(), 1);
    }

    void tabFollowsTheLayout() {
        Window t;
        frmMain& w = *t.window;
        activate(w);
        t.open("rada.trp", PlainReplay(10));
        w.cmdForw_Click();
        const auto tabChain = [&w](QWidget* first, int steps) {
            first->setFocus();
            QList<QWidget*> chain{QApplication::focusWidget()};
            for (int step = 1; step < steps; ++step) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                chain.push_back(QApplication::focusWidget());
            }
            return chain;
        };
        // Tab enters a group of options once, at its first; the arrows Up and Down move inside.
        const QList<QWidget*> step{w.ov[0], w.cmdBegin,   w.cmdBack,     w.cmdForw, w.cmdEnd,
                                   w.o[0],  w.cmbHraci, w.txtPolicko, w.ov[0]};
        QCOMPARE(tabChain(w.ov[0], step.size()), step);

        w.ov[1]->click();
        const QList<QWidget*> show{w.ov[1], w.cmdSBegin, w.cmdRZ, w.cmdZ, w.cmdD, w.cmdRD,
                                   w.cmdSEnd, w.o[0]};
        QCOMPARE(tabChain(w.ov[1], show.size()), show);
    }

    void droppedFileOpensWithoutTheDialog() {
        Window t;
        frmMain& w = *t.window;
        const QString alfa = t.write("alfa.trp", kAlfa);
        t.files.answers.push_back(t.write("jina.trp", PlainReplay(3)));
        QVERIFY(!drop(w, {QUrl::fromLocalFile(alfa), QUrl::fromLocalFile(alfa)}));
        QVERIFY(!drop(w, {QUrl("https://example.org/alfa.trp")}));
        QVERIFY(!drop(w, {}));
        QVERIFY(drop(w, {QUrl::fromLocalFile(alfa)}));
        QTRY_COMPARE(w.position, std::int16_t{1});
        QCOMPARE(t.applied, std::vector<int>{1});
        QCOMPARE(w.grid->fieldCount(), 6);
        QVERIFY(w.txtPolicko->isEnabled());
        QCOMPARE(t.files.answers.size(), std::size_t{1});  // the dialog was never asked

        // The dropped path became the current one: a cancelled dialog reopens it.
        t.files.answers = {std::nullopt};
        t.window->mnuOtevritItem_Click();
        QCOMPARE(w.grid->fieldCount(), 6);
        QVERIFY2(t.messages.texts.isEmpty(), qPrintable(t.messages.texts.join('|')));
    }

    void hoverNamesTheField() {
        Window t;
        frmMain& w = *t.window;
        activate(w);
        // Column 74 has the code page's character 0x8A, "Š".
        t.open("siroky.trp", {"0;Siroky;2;74;2;3",
                              "2004-06-19-08-00-00;create_world;" + std::string(148, 'N')});
        hover(*w.grid, 1);
        QTRY_COMPARE(QToolTip::text(), QString("A0"));
        hover(*w.grid, 74 + 3);
        QTRY_COMPARE(QToolTip::text(), QString("C1"));
        hover(*w.grid, 74);
        QTRY_COMPARE(QToolTip::text(), QString::fromUtf8("\xc5\xa0" "0"));
    }
};

QTEST_MAIN(KeyboardAndDropTest)
#include "keyboard_and_drop_test.moc"

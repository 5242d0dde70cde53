// Finding one's way through a replay in the window: a jump leaves exactly what the steps leave
// on the screen, the jump keys find their events, a jump across failing events puts their
// messages on the status line instead of message boxes, and the prompt answers bad numbers itself.
#include <QApplication>
#include <QLabel>

#include "widgets/jump_prompt.h"
#include "shell/window_fixture.h"
#include "support/session_fixture.h"

using namespace trelvin::testing;

// Everything the window shows of the world, and the world itself.
static QStringList Snapshot(Window& t) {
    const trelvin::ReplaySession& session = t.window->session();
    QStringList shown;
    for (const char* label : {"lblTah", "lblCas", "lbl", "lblPocetTahu", "lblMnozstviNektaru", "lblVeleni", "lblVelikostUzemi"})
        shown << t.find<QLabel>(label).text();
    const QComboBox& players = t.find<QComboBox>("cmbHraci");
    shown << QString::number(players.currentIndex()) << QString::number(players.count()) << EnabledButtons(t)
          << QString::number(session.atBegin()) << QString::number(session.atEnd()) << t.find<QLabel>("lblPosition").text();
    QString pictures;
    for (int picture : t.find<trelvin::MapPanel>("grid").scene().pictures) pictures += QString::number(picture) + ' ';
    return shown << pictures << WorldLines(t.world());
}

class FindingWindowTest : public QObject {
    Q_OBJECT

private slots:
    void aJumpLeavesTheStateTheStepsLeave() {
        const QString battle = TRELVIN_SAMPLES_DIR "/bitva-u-potoka.trp";
        for (int mode = 0; mode < 3; ++mode) {
            for (int n : {1, 2, 30, 44, 88, 89}) {
                Window stepped, jumped;
                for (Window* t : {&stepped, &jumped}) {
                    t->open(battle);
                    t->find<QRadioButton>(QString("o%1").arg(mode)).click();
                    t->controls.cmdForw_Click();
                    t->find<QComboBox>("cmbHraci").setCurrentIndex(1);
                    t->find<trelvin::PlayerPanel>("f").cmbHraci_Click();
                    // Both have been at the end, whose event writes the winner into the list.
                    t->controls.cmdEnd_Click();
                    t->controls.cmdBegin_Click();
                }
                for (int i = 1; i < n; ++i) stepped.controls.cmdForw_Click();
                jumped.controls.cmdEnd_Click();
                jumped.window->session().jumpTo(n);
                QCOMPARE(Snapshot(jumped), Snapshot(stepped));
            }
        }
    }

    void jumpKeysFindTheirEventsAndTellFailuresOnTheStatusLine() {
        Window t;
        t.open("dobyti.trp", kCapture);
        frmMain& w = *t.window;
        const auto at = [&w] { return w.session().position(); };
        const auto jump = [&t](const char* action) { t.find<QAction>(action).trigger(); };
        // From the first event: the next failure, the next attack; none after the capture.
        jump("nextFailure");
        QCOMPARE(at(), 5);
        jump("nextAttack");
        QCOMPARE(at(), 6);
        jump("nextCapture");
        QCOMPARE(at(), 6);
        QCOMPARE(w.statusBar()->currentMessage(), QString("Dale uz zadna takova akce neni"));
        t.controls.cmdEnd_Click();
        jump("previousCapture");
        QCOMPARE(at(), 6);
        t.messages.texts.clear();
        jump("previousFailure");  // re-applies the failing move
        QCOMPARE(at(), 5);
        QVERIFY2(t.messages.texts.isEmpty(), qPrintable(t.messages.texts.join('|')));
        QVERIFY2(w.statusBar()->currentMessage().startsWith("Akce 5: 1 hlaseni, posledni: Chyba pri provadeni tahu"),
                 qPrintable(w.statusBar()->currentMessage()));
    }

    void theStatusLineTellsTheLastJumpOnlyUntilTheNextMoveOrOpen() {
        Window t;
        t.open("dobyti.trp", kCapture);
        frmMain& w = *t.window;
        const auto status = [&w] { return w.statusBar()->currentMessage(); };
        w.session().jumpTo(6);
        QVERIFY2(status().startsWith("Akce 6: 1 hlaseni"), qPrintable(status()));
        t.controls.cmdForw_Click();
        QCOMPARE(status(), QString());
        t.find<QAction>("nextCapture").trigger();  // none after the last: said, until the next move
        QCOMPARE(status(), QString("Dale uz zadna takova akce neni"));
        t.controls.cmdBegin_Click();
        QCOMPARE(status(), QString());
        w.session().jumpTo(3);
        QCOMPARE(status(), QString("Akce 3"));
        t.open("alfa.trp", kAlfa);
        QCOMPARE(status(), QString());
    }

    void thePromptAnswersBadNumbersItself() {
        Window t;
        t.activate();
        t.open("dobyti.trp", kCapture);
        QStringList problems;
        std::vector<std::pair<int, int>> heights;  // each answer's height, and the height its text needs
        int rounds = 0;
        const std::function<void()> answer = [&] {
            auto* prompt = t.window->findChild<trelvin::JumpPrompt*>("jumpPrompt");
            if (!prompt || !prompt->isVisible()) return QTimer::singleShot(10, answer);
            for (const char* entry : {"abc", "99", "0"}) {
                prompt->entry()->setText(entry);
                QTest::keyClick(prompt->entry(), Qt::Key_Return);
                problems << prompt->problem()->text();
                // The answer wraps; the prompt grows to hold all its lines.
                QApplication::processEvents();
                const QLabel& problem = *prompt->problem();
                heights.emplace_back(problem.height(), problem.heightForWidth(problem.width()));
            }
            prompt->entry()->setText(++rounds == 1 ? "4" : "2");
            QTest::keyClick(prompt->entry(), rounds == 1 ? Qt::Key_Return : Qt::Key_Escape);
        };
        QAction& jumpTo = t.find<QAction>("jumpToAction");
        QTimer::singleShot(0, answer);
        jumpTo.trigger();
        QCOMPARE(t.window->session().position(), 4);
        QCOMPARE(problems.size(), 3);
        QVERIFY2(problems[0].contains("abc"), qPrintable(problems[0]));
        QVERIFY2(problems[1].contains("99"), qPrintable(problems[1]));
        QVERIFY2(problems[2].contains("od 1 do 7"), qPrintable(problems[2]));
        for (const auto& [height, needed] : heights) QVERIFY2(height >= needed, qPrintable(QString("%1 < %2").arg(height).arg(needed)));
        QTimer::singleShot(0, answer);
        jumpTo.trigger();  // Escape: nowhere
        QCOMPARE(t.window->session().position(), 4);
    }
};

QTEST_MAIN(FindingWindowTest)
#include "finding_window_test.moc"

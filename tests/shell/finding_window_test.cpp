// Finding one's way through a replay: a jump leaves exactly the state of the steps, the list's
// kinds and search pick the right events, the key-event jumps find them, the prompt answers
// bad numbers itself, and a jump across failing events shows no message box.
#include "playback/action_list.h"
#include "playback/jump_prompt.h"
#include "playback/timeline.h"
#include "shell/window_fixture.h"

using namespace trelvin::testing;

// Events: 1 create_world, 2 and 3 create_hq, 4 start, 5 a move off the map (fails),
// 6 the attack that takes Jana's headquarters, 7 the end.
static const std::vector<std::string> kCapture{
    "0;Dobyti;2;2;1;3",
    "2004-06-19-08-00-00;create_world;NN",
    "2004-06-19-08-10-00;create_hq;Karel;les;A0",
    "2004-06-19-08-20-00;create_hq;Jana;louka;B0",
    "2004-06-19-08-25-00;move;A0;Z9;1",
    "2004-06-19-08-30-00;attack;A0;B0;1;1;1",
};

// Everything the window shows of the world, and the world itself.
static QStringList Snapshot(const Window& t) {
    const frmMain& w = *t.window;
    QStringList shown{w.lblTah->text(), w.lblCas->text(), w.lbl->text(), w.lblPocetTahu->text(),
                      w.lblMnozstviNektaru->text(), w.lblVeleni->text(), w.lblVelikostUzemi->text(),
                      QString::number(w.cmbHraci->currentIndex()), QString::number(w.cmbHraci->count()),
                      EnabledButtons(w), QString::number(w.playback->atBegin()), QString::number(w.playback->atEnd())};
    QString pictures;
    for (int k = 1; k <= w.grid->fieldCount(); ++k) pictures += QString::number(w.grid->fieldPicture(k)) + ' ';
    shown << pictures << QString::fromStdString(t.world.actionText) << QString::fromStdString(t.world.currentTime.iso());
    for (const trelvin::Tile& tile : t.world.tiles)
        shown << QString::fromStdString(tile.terrain + "|" + tile.owner + "|" + tile.armyType + "|" +
                                        std::to_string(tile.armyCount) + "|" + std::to_string(tile.visible));
    for (const trelvin::Player& p : t.world.players)
        shown << QString::fromStdString(p.name + "|" + p.side + "|" + p.hqField + "|" + std::to_string(p.moves) + "|" +
                                        std::to_string(p.nectar) + "|" + std::to_string(p.nectarPerHour) + "|" +
                                        std::to_string(p.territory) + "|" + std::to_string(p.playing));
    return shown;
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
                    t->files.answers.push_back(battle);
                    t->window->mnuOtevritItem_Click();
                    t->window->o[mode]->click();
                    t->window->cmdForw_Click();
                    t->window->cmbHraci->setCurrentIndex(1);
                    t->window->cmbHraci_Click();
                    t->window->cmdBegin_Click();
                }
                for (int i = 1; i < n; ++i) stepped.window->cmdForw_Click();
                jumped.window->cmdEnd_Click();
                jumped.window->jumpTo(n);
                QCOMPARE(Snapshot(jumped), Snapshot(stepped));
                QCOMPARE(jumped.window->timelinePosition->text(), stepped.window->lblTah->text());
            }
        }
    }

    void kindsAndSearchPickTheirEventsAndKeysJumpToThem() {
        Window t;
        t.open("dobyti.trp", kCapture);
        trelvin::ActionList& list = *t.window->actionList;
        const std::pair<trelvin::EventKind, std::vector<int>> kinds[] = {
            {trelvin::EventKind::All, Range(1, 7)},           {trelvin::EventKind::Attacks, {6}},
            {trelvin::EventKind::HeadquartersCaptures, {6}},  {trelvin::EventKind::Economy, {}},
            {trelvin::EventKind::Moves, {5}},                 {trelvin::EventKind::Lifecycle, {1, 2, 3, 4, 7}},
            {trelvin::EventKind::Failures, {5}},
        };
        for (const auto& [kind, events] : kinds) {
            list.setKind(kind);
            QCOMPARE(list.shownEvents(), events);
        }
        list.setKind(trelvin::EventKind::All);
        list.searchBox()->setText("jana");  // any case; the names and fields an event mentions
        QCOMPARE(list.shownEvents(), (std::vector<int>{3, 6}));
        list.searchBox()->setText("B0");
        QCOMPARE(list.shownEvents(), (std::vector<int>{3, 6}));
        list.setKind(trelvin::EventKind::Attacks);
        QCOMPARE(list.shownEvents(), std::vector<int>{6});
        list.searchBox()->clear();
        list.setKind(trelvin::EventKind::All);

        // From the first event: the next failure, the next attack; none after the capture.
        frmMain& w = *t.window;
        const auto at = [&w] { return int(w.playback->position()); };
        w.nextFailure->trigger();
        QCOMPARE(at(), 5);
        w.nextAttack->trigger();
        QCOMPARE(at(), 6);
        w.nextCapture->trigger();
        QCOMPARE(at(), 6);
        w.cmdEnd_Click();
        w.previousCapture->trigger();
        QCOMPARE(at(), 6);
        w.previousFailure->trigger();
        QCOMPARE(at(), 5);
        QCOMPARE(list.table()->currentIndex().row(), 4);  // the current event is selected

        // A row chosen in the list is gone to.
        emit list.table()->clicked(list.table()->model()->index(1, 0));
        QCOMPARE(at(), 2);
    }

    void aJumpAcrossFailingEventsShowsNoMessageBox() {
        Window t;
        t.open("dobyti.trp", kCapture);
        t.window->cmdEnd_Click();
        t.messages.texts.clear();
        t.window->jumpTo(6);  // re-applies the failing move
        QVERIFY(t.messages.texts.isEmpty());
        QVERIFY2(t.window->statusBar()->currentMessage().contains("Chyba pri provadeni tahu"),
                 qPrintable(t.window->statusBar()->currentMessage()));
        t.window->cmdBack_Click();  // the step back keeps its message box
        QCOMPARE(t.messages.texts.size(), 1);
    }

    void thePromptAnswersBadNumbersItselfAndTheTimelineJumps() {
        Window t;
        t.activate();
        t.open("dobyti.trp", kCapture);
        QStringList problems;
        int rounds = 0;
        const std::function<void()> answer = [&] {
            auto* prompt = t.window->findChild<trelvin::JumpPrompt*>();
            if (!prompt || !prompt->isVisible()) return QTimer::singleShot(10, answer);
            for (const char* entry : {"abc", "99", "0"}) {
                prompt->entry()->setText(entry);
                QTest::keyClick(prompt->entry(), Qt::Key_Return);
                problems << prompt->problem()->text();
            }
            prompt->entry()->setText(++rounds == 1 ? "4" : "2");
            QTest::keyClick(prompt->entry(), rounds == 1 ? Qt::Key_Return : Qt::Key_Escape);
        };
        QTimer::singleShot(0, answer);
        t.window->jumpToAction->trigger();
        QCOMPARE(t.window->playback->position(), std::int16_t(4));
        QCOMPARE(problems.size(), 3);
        QVERIFY(problems[0].contains("abc") && problems[1].contains("99") && problems[2].contains("od 1 do 7"));
        QTimer::singleShot(0, answer);
        t.window->jumpToAction->trigger();  // Escape: nowhere
        QCOMPARE(t.window->playback->position(), std::int16_t(4));

        trelvin::Timeline& timeline = *t.window->timeline;
        QTest::mouseClick(&timeline, Qt::LeftButton, {}, QPoint(timeline.xOf(6), timeline.height() / 2));
        QTRY_COMPARE(t.window->playback->position(), std::int16_t(6));
        QCOMPARE(timeline.position(), 6);
    }
};

QTEST_MAIN(FindingWindowTest)
#include "finding_window_test.moc"

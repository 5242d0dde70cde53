// A hundred opens of two replays in turn through one shown window, each played to the end
// and back. Every open must rebuild the same grid and keep the same number of child objects
// (which a leak check at exit would not see); the sanitizer build checks that nothing of the
// earlier opens is leaked.
#include <QLabel>
#include <QTest>

#include "shell/window_fixture.h"
#include "view/map_grid.h"

using trelvin::testing::Window;

class RepeatedOpensTest : public QObject {
    Q_OBJECT

private slots:
    void hundredAlternatingOpens() {
        struct Replay {
            QString path;
            int fields;
            int labels;
            std::int16_t events = 0;
        };
        Replay replays[] = {{TRELVIN_SAMPLES_DIR "/alfa.trp", 3 * 2, 3 + 2},
                            {TRELVIN_SAMPLES_DIR "/bitva-u-potoka.trp", 8 * 6, 8 + 6}};
        Window t;
        frmMain& w = *t.window;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        qsizetype children = 0;

        for (int open = 0; open < 100; ++open) {
            Replay& replay = replays[open % 2];
            t.files.answers.push_back(replay.path);
            w.mnuOtevritItem_Click();
            QVERIFY2(t.messages.texts.isEmpty(), qPrintable(t.messages.texts.join(" | ")));
            if (open < 2) replay.events = t.world.eventCount;
            QCOMPARE(t.world.eventCount, replay.events);
            QCOMPARE(w.grid->fieldCount(), replay.fields);
            QCOMPARE(w.grid->labelCount(), replay.labels);
            QCOMPARE(w.lblTah->text(), QString("1 (%1)").arg(replay.events));

            w.cmdEnd_Click();
            QCOMPARE(w.position, replay.events);
            w.cmdBegin_Click();
            QCoreApplication::processEvents();
            if (open == 0) children = w.findChildren<QObject*>().size();
            QCOMPARE(w.findChildren<QObject*>().size(), children);
        }
        QCOMPARE(replays[0].events, std::int16_t{7});
        QVERIFY(replays[1].events > 7);
    }
};

QTEST_MAIN(RepeatedOpensTest)
#include "repeated_opens_test.moc"

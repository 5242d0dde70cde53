// The session alone: opening keeps what a failed load read and announces the replay, every
// move announces its position once, and a jump tells where it went with its messages reported
// instead of shown.
#include <QSignalSpy>
#include <QtTest>

#include "support/session_fixture.h"

using namespace trelvin::testing;
using trelvin::ReplaySession;

class ReplaySessionTest : public QObject {
    Q_OBJECT

private slots:
    void openingAppliesTheFirstEventAndKeepsWhatAFailedLoadRead() {
        Session t;
        QSignalSpy opened(&t.session, &ReplaySession::opened);
        QSignalSpy moved(&t.session, &ReplaySession::positionChanged);
        QCOMPARE(t.applies([&] { QVERIFY(t.open(kAlfa, "alfa.trp").succeeded()); }), std::vector<int>{1});
        QCOMPARE(opened.size(), 1);
        QCOMPARE(opened[0][1].toInt(), 7);
        QVERIFY(opened[0][0].toString().endsWith("alfa.trp"));
        QCOMPARE(moved.size(), 0);  // the opener refreshes the views in its own order
        QCOMPARE(std::pair(t.session.position(), t.session.history().log.size()), std::pair(1, 7));

        // A later file that fails at its third line: the message is the result, the count
        // stays, and so do the events read so far.
        const trelvin::LoadResult failed = t.open("0;Beta;0;2;1;3\r\n2004-06-19-08-00-00;create_world;NN\r\nx;fly\r\n");
        QVERIFY2(failed.failure.startsWith("Chyba pri nacitani replaye - radek 3"), qPrintable(failed.failure));
        QCOMPARE(t.reporter.texts.size(), std::size_t{1});
        QCOMPARE(std::pair(t.session.eventCount(), t.session.world().lastEventIndex()), std::pair(7, 1));
        QCOMPARE(opened.size(), 2);
        QCOMPARE(t.session.world().actionText.substr(0, 9), std::string("Svet Beta"));
    }

    void movesAnnounceThePositionOnceAndTheShowWhetherItPlays() {
        Session t;
        t.open(PlainReplay(10));
        QSignalSpy moved(&t.session, &ReplaySession::positionChanged);
        QSignalSpy playing(&t.session, &ReplaySession::playingChanged);
        t.session.forward();
        QCOMPARE(moved.takeFirst(), (QList<QVariant>{2, 10}));
        QCOMPARE(t.applies([&] { t.session.last(); }), Range(1, 10));
        QCOMPARE(moved.takeFirst(), (QList<QVariant>{10, 10}));
        QVERIFY(moved.isEmpty());  // once per move, after all of its events

        t.session.play(false, 1000);  // one step back at once
        QCOMPARE(playing.takeFirst(), QList<QVariant>{true});
        QCOMPARE(std::pair(t.session.position(), t.session.slideForward()), std::pair(9, false));
        t.session.stop();
        QCOMPARE(playing.takeFirst(), QList<QVariant>{false});
    }

    void aJumpTellsWhereItWentWithTheMessagesItReported() {
        Session t;
        t.open(kCapture);
        QSignalSpy jumped(&t.session, &ReplaySession::jumped);
        const QStringList messages = t.session.jumpTo(6);  // past the failing move, event 5
        QCOMPARE(std::pair(t.session.position(), int(messages.size())), std::pair(6, 1));
        QCOMPARE(jumped.takeFirst(), (QList<QVariant>{6, messages}));
        QVERIFY(t.reporter.texts.empty());
        // Event 5 was passed: going on tells nothing of it; going back to it tells its own again.
        QCOMPARE(t.session.jumpTo(7), QStringList());
        QCOMPARE(t.session.jumpTo(5), messages);
        // A replay of one event has one place to jump to, and the jump is still told.
        Session one;
        one.open(BlankWorld(2, 1));
        QSignalSpy told(&one.session, &ReplaySession::jumped);
        one.session.jumpTo(1);
        QCOMPARE(told.size(), 1);
        // After a load that read no event there is nowhere to jump.
        Session empty;
        empty.open("");
        QSignalSpy untold(&empty.session, &ReplaySession::jumped);
        QCOMPARE(empty.session.jumpTo(1), QStringList());
        QCOMPARE(untold.size(), 0);
    }

    void aChangeOfTheWayOfViewingRedrawsTheMap() {
        Session t;
        t.open(kAlfa);
        t.session.setMapFields({6, 6});  // as the window's grid holds them
        t.session.last();
        QSignalSpy changed(&t.session, &ReplaySession::viewModeChanged);
        const auto visible = [&] {
            QString flags;
            for (int k = 1; k <= 6; ++k) flags += t.session.world().tiles[k].visible ? '#' : '.';
            return flags;
        };
        QCOMPARE(visible(), QString("######"));
        t.session.setViewMode(trelvin::ViewMode::AsLouka);
        QCOMPARE(changed.takeFirst().at(0).value<trelvin::ViewMode>(), trelvin::ViewMode::AsLouka);
        QCOMPARE(visible(), QString(".##.##"));  // Jana's C1 and the fields touching it
        QCOMPARE(t.session.frame().pictures, (std::vector<int>{1, 3, 2, 1, 16, 15}));

        // The nearest events of a kind, from the position.
        t.session.first();
        QCOMPARE(std::pair(t.session.nearest(trelvin::EventKind::Attacks, true),
                           t.session.nearest(trelvin::EventKind::Attacks, false)), std::pair(6, 0));
        t.session.jumpTo(6);
        QCOMPARE(t.session.nearest(trelvin::EventKind::Lifecycle, true), 7);  // the last event, the end
    }
};

QTEST_GUILESS_MAIN(ReplaySessionTest)
#include "replay_session_test.moc"

// Files a user may really be handed, opened through the window: one for each way a load can
// end (the loader's own cases are the robustness tests'). Each shows its messages, stepping
// through what was loaded never crashes, and a later open of a good replay works. Then a
// hundred opens in a row, whose leaks are the sanitizer build's to find.
#include <thread>

#include "replay_generator.h"
#include "shell/slow_task_dialog.h"
#include "shell/window_fixture.h"
#include "widgets/timeline.h"

using namespace trelvin::testing;

static void row(const char* name, const QByteArray& bytes, const QStringList& expected) {
    QTest::newRow(name) << bytes << expected;
}

// Children that outlive a moment: the style's passing animations are not counted.
static qsizetype lasting(const QObject& window) {
    const QList<QObject*> all = window.findChildren<QObject*>();
    return std::count_if(all.begin(), all.end(), [](QObject* o) { return !o->inherits("QAbstractAnimation"); });
}

class HostileFilesWindowTest : public QObject {
    Q_OBJECT

    const QString kLoadFailed = "Chyba pri nacitani replaye - ";
    const QString kEventFailed = "Chyba pri provadeni tahu - ";
    const QString kAlfaPath = TRELVIN_SAMPLES_DIR "/alfa.trp";

private slots:
    void opensReportsAndRecovers_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("expected");  // prefixes of the texts shown
        const QStringList nothingLoaded{kLoadFailed, kEventFailed, "Index mimo rozsah: udalost 1 neexistuje"};

        row("empty", "", nothingLoaded);
        row("header only", "0;Alfa;2;3;2;3", {kEventFailed, nothingLoaded[2]});
        row("start day past 9999", "0;A;0;2;2;3\r\n9999-31-12-23-30-00;create_world;NNNN\r\n9999-31-12-23-59-59;fly\r\n",
            {kLoadFailed});
        row("255 x 255 map", "0;Obri;0;255;255;3\r\n2004-06-19-08-00-00;create_world;" + QByteArray(255 * 255, 'N'),
            {"Preteceni (hodnota mimo povoleny rozsah)"});
    }

    void opensReportsAndRecovers() {
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, expected);
        Window t;
        const trelvin::MapPanel& grid = t.find<trelvin::MapPanel>("grid");
        t.open(t.write("hostile.trp", bytes));
        const QStringList& texts = t.messages.texts;
        QVERIFY2(texts.size() == expected.size(), qPrintable(texts.join(" | ")));
        for (int i = 0; i < texts.size(); ++i) QVERIFY2(texts[i].startsWith(expected[i]), qPrintable(texts[i]));

        t.messages.texts.clear();
        t.controls.cmdForw_Click();
        t.controls.cmdEnd_Click();
        t.controls.cmdBack_Click();
        t.find<trelvin::ViewModePanel>("Frame2").o_Click(1);
        t.find<QLineEdit>("txtPolicko").setText("A0");
        if (grid.fieldCount() > 0) t.find<trelvin::FieldPanel>("Frame1").m_Click(grid.fieldCount());
        for (const QString& text : texts) QVERIFY2(text.startsWith(kEventFailed), qPrintable(text));

        t.messages.texts.clear();
        t.open(kAlfaPath);
        QVERIFY2(texts.isEmpty(), qPrintable(texts.join(" | ")));
        QCOMPARE(t.find<QLabel>("lblTah").text(), QString("1 (7)"));
        QCOMPARE(grid.fieldCount(), 6);
    }

    // A load that takes long shows a progress dialog named after the file, and its Cancel
    // reaches the loader.
    void aSlowLoadCanBeCancelled() {
        struct SlowSource : trelvin::ReplaySource {
            explicit SlowSource(QByteArray bytes) : bytes(std::move(bytes)) {}
            // The first pass, which only tells the encoding, is quick; the load itself is slow.
            std::size_t read(char* buffer, std::size_t) override {
                if (rewound) std::this_thread::sleep_for(std::chrono::milliseconds(20));
                const QByteArray piece = bytes.mid(offset, 64);
                std::memcpy(buffer, piece.constData(), std::size_t(piece.size()));
                offset += piece.size();
                return std::size_t(piece.size());
            }
            void rewind() override {
                offset = 0;
                rewound = true;
            }
            std::uint64_t size() const override { return std::uint64_t(bytes.size()); }
            QByteArray bytes;
            qsizetype offset = 0;
            bool rewound = false;
        };
        Window t;
        t.window->show();
        QByteArray replay = "0;Dlouhy;0;3;2;3\r\n2004-06-19-08-00-00;create_world;NNNNNN\r\n";
        while (replay.size() < 64 * 200) replay += "2004-06-19-08-00-00;fly\r\n";
        t.openReplay = [&](const QString&) { return std::make_unique<SlowSource>(replay); };
        bool dialogSeen = false;
        QTimer cancel;
        QObject::connect(&cancel, &QTimer::timeout, [&] {
            if (auto* dialog = t.window->findChild<QProgressDialog*>("slowTaskDialog"); dialog && dialog->isVisible()) {
                dialogSeen = dialog->labelText().contains("hostile.trp");
                dialog->cancel();
            }
        });
        cancel.start(50);
        t.open(t.write("hostile.trp", QByteArray()));
        cancel.stop();
        QVERIFY(dialogSeen);
        QVERIFY2(t.messages.texts.value(0).endsWith("nacitani bylo preruseno"), qPrintable(t.messages.texts.join(" | ")));
    }

    // After a failed open the step buttons keep the count of the replay before, as they are made to;
    // End then has a box for every action the list lacks, and the progress dialog's Cancel ends it
    // where it is. The list, the timeline and the jumps offer only what was read, and say the load
    // failed.
    void aFailedOpenLeavesNoTrap() {
        Window t;
        t.window->show();
        t.open("velky.trp", trelvin::GenerateReplay(trelvin::GeneratorOptions{}));
        t.open("prazdny.trp", "");
        QCOMPARE(t.window->session().eventCount(), 32767);
        QCOMPARE(t.window->session().actionsRead(), 0);
        const QList<QLabel*> notes = t.window->findChildren<QLabel*>("failedLoadNote");
        QCOMPARE(notes.size(), 3);  // the list's, the timeline's and the charts'
        for (const QLabel* note : notes) QVERIFY2(note->text().contains("nepodarilo nacist"), qPrintable(note->text()));
        QVERIFY(!t.find<trelvin::Timeline>("timeline").isEnabled());
        QVERIFY(!t.find<QAction>("jumpToAction").isEnabled());

        t.messages.texts.clear();
        QElapsedTimer sinceCancel;
        int boxesAfterCancel = 0;
        t.messages.whileShown = [&] {
            if (sinceCancel.isValid()) ++boxesAfterCancel;
            if (t.messages.texts.size() == 1) QTest::qWait(2 * trelvin::SlowTaskDialog::kDelayMilliseconds);
            auto* progress = t.window->findChild<QProgressDialog*>();
            if (progress && progress->isVisible() && !sinceCancel.isValid()) {
                progress->cancel();
                sinceCancel.start();
            }
        };
        t.find<QPushButton>("cmdEnd").click();
        QVERIFY(sinceCancel.isValid());
        QVERIFY2(sinceCancel.elapsed() < 1000, qPrintable(QString::number(sinceCancel.elapsed())));
        QVERIFY2(boxesAfterCancel <= 1, qPrintable(QString::number(boxesAfterCancel)));
        QVERIFY(t.window->session().position() < 10);

        // A real box is modal to the window alone: the progress dialog beside it keeps its Cancel.
        trelvin::MessageBoxService boxes(t.window.get());
        Qt::WindowModality modality = Qt::NonModal;
        QTimer::singleShot(0, [&] {
            if (QWidget* box = QApplication::activeModalWidget()) {
                modality = box->windowModality();
                box->close();
            }
        });
        boxes.showMessage(QStringLiteral("Chyba pri provadeni tahu - zkouska"));
        QCOMPARE(modality, Qt::WindowModal);
    }

    // Every open rebuilds the same grid and keeps the same number of child objects, which a
    // leak check at exit would not see.
    void hundredAlternatingOpens() {
        const std::tuple<QString, std::pair<int, int>, std::int16_t> replays[] = {
            {kAlfaPath, {3 * 2, 3 + 2}, 7}, {TRELVIN_SAMPLES_DIR "/bitva-u-potoka.trp", {8 * 6, 8 + 6}, 89}};
        Window t;
        t.window->show();
        QVERIFY(QTest::qWaitForWindowExposed(t.window.get()));
        const trelvin::MapPanel& grid = t.find<trelvin::MapPanel>("grid");
        qsizetype children = 0;
        for (int open = 0; open < 100; ++open) {
            const auto& [path, fieldsAndLabels, events] = replays[open % 2];
            t.open(path);
            QVERIFY2(t.messages.texts.isEmpty(), qPrintable(t.messages.texts.join(" | ")));
            QCOMPARE(std::pair(grid.fieldCount(), grid.layout().labelCount()), fieldsAndLabels);
            QCOMPARE(t.applies([&] { t.controls.cmdEnd_Click(); }), Range(1, events));
            t.controls.cmdBegin_Click();
            QCoreApplication::processEvents();
            if (open == 0) children = lasting(*t.window);
            QCOMPARE(lasting(*t.window), children);
        }
    }
};

QTEST_MAIN(HostileFilesWindowTest)
#include "hostile_files_window_test.moc"

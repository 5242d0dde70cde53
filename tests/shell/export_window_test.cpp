// Exports from the window: a picture is the map the window shows when the step buttons reach
// its action, the dialogs start from what the window shows, and a cancel or a failure is told
// once.
#include "export/map_frames.h"
#include "panels/export_dialog.h"
#include "shell/export_commands.h"
#include "shell/window_fixture.h"

using namespace trelvin::testing;
using trelvin::ExportDialog;
using trelvin::ExportOutcome;

namespace {

// Cancels as soon as it is asked.
struct Cancelling : trelvin::TaskProgress {
    bool keepGoing(std::uint64_t, std::uint64_t) override { return false; }
};

QString sample() { return QStringLiteral(TRELVIN_SAMPLES_DIR "/bitva-u-potoka.trp"); }

}  // namespace

class ExportWindowTest : public QObject {
    Q_OBJECT

private slots:
    void aPictureIsTheMapTheWindowShowsAtItsAction() {
        Window t;
        t.window->show();
        t.open(sample());
        t.window->resize(1200, 760);  // room for the whole map at every size below
        trelvin::MapPanel& map = t.find<trelvin::MapPanel>("grid");
        trelvin::ExportCommands& exports = t.find<trelvin::ExportCommands>("exports");
        const QString path = t.directory.filePath("map.png");
        for (const auto& [view, pixels, highlight] :
             {std::tuple{0, 20, true}, {1, 30, false}, {1, 30, true}, {2, 20, false}, {2, 12, true}}) {
            t.find<QRadioButton>(QString("o%1").arg(view)).click();
            map.setFieldPixels(pixels);
            t.find<QAction>("highlightAction").setChecked(highlight);
            t.find<QPushButton>("cmdBegin").click();
            for (int action = 1; action <= t.world().eventCount; ++action) {
                if (action > 1) t.find<QPushButton>("cmdForw").click();
                if (action != 1 && action != 17 && action != 18 && action != 40 && action != 71 &&
                    action != t.world().eventCount)
                    continue;
                const trelvin::ExportJob job{
                    path, action, action, 200, {trelvin::ViewMode(view), pixels, false, false, highlight}, {}};
                QCOMPARE(exports.run(job).status, ExportOutcome::Status::Written);
                const QImage exported(path);
                const QRect fields(map.fieldRectInViewport(1).topLeft(), exported.size());
                const QImage shown = map.viewport()->grab().toImage().copy(fields).convertToFormat(QImage::Format_RGB32);
                QVERIFY2(shown == exported.convertToFormat(QImage::Format_RGB32),
                         qPrintable(QStringLiteral("view %1, %2 px, marks %3, action %4").arg(view).arg(pixels).arg(int(highlight)).arg(action)));
            }
        }
        QCOMPARE(t.messages.texts, QStringList{});
    }

    void theDialogsStartFromWhatTheWindowShows() {
        Window t;
        QAction& pictureAction = t.find<QAction>("pictureAction");
        QVERIFY(!pictureAction.isEnabled());  // nothing to export before a replay
        t.open(sample());
        QVERIFY(t.find<QAction>("animationAction").isEnabled());
        for (int i = 1; i < 12; ++i) t.find<QPushButton>("cmdForw").click();
        t.find<QRadioButton>("o1").click();
        trelvin::MapPanel& map = t.find<trelvin::MapPanel>("grid");
        map.setFieldPixels(30);
        const QString folder = QFileInfo(sample()).absolutePath();

        ExportDialog picture(t.window->session(), map.fieldPixels(), t.find<QAction>("highlightAction").isChecked(),
                             ExportDialog::Kind::Picture, nullptr);
        const trelvin::ExportJob still = picture.job();
        QCOMPARE(std::tuple(still.first, still.last, int(still.picture.view), still.picture.fieldPixels, still.picture.labels,
                            still.picture.caption, still.picture.highlight),
                 std::tuple(12, 12, 1, 30, true, false, true));
        QCOMPARE(still.path, folder + "/bitva-u-potoka-akce-12.png");
        QVERIFY(!picture.from->isEnabled());
        QCOMPARE(picture.summary->text(), QString("Obrazek 270 x 210 bodu"));

        ExportDialog animation(t.window->session(), 30, false, ExportDialog::Kind::Animation, nullptr);
        QVERIFY(!animation.job().picture.highlight);
        QCOMPARE(animation.job().path, folder + "/bitva-u-potoka-akce-12-89.gif");
        animation.from->setValue(95);  // past the end: both ends keep their order
        QCOMPARE(std::pair(animation.from->value(), animation.to->value()), std::pair(89, 89));
        animation.from->setValue(20);
        animation.format->setCurrentIndex(1);
        QCOMPARE(animation.job().path, folder + "/bitva-u-potoka-akce-20-89.webp");
        animation.caption->setChecked(true);
        QCOMPARE(animation.summary->text(),
                 QString("70 snimku, 270 x %1 bodu").arg(210 + trelvin::FrameSize(0, 0, {trelvin::ViewMode::All, 30, false, true, false}).height()));
        // A name typed stays; its extension chooses the format, and a name without one gets it.
        animation.path->setText(t.directory.filePath("moje.gif"));
        emit animation.path->textEdited(animation.path->text());
        QCOMPARE(animation.format->currentText(), QString("GIF"));
        animation.to->setValue(30);
        animation.path->setText(t.directory.filePath("moje"));
        QCOMPARE(animation.job().path, t.directory.filePath("moje.gif"));

        // The menu's command: the dialog, then the file, and the status line says where.
        QTimer::singleShot(0, [&] {
            auto& dialog = t.find<ExportDialog>("exportDialog");
            QCOMPARE(QApplication::activeModalWidget(), static_cast<QWidget*>(&dialog));
            Find<QLineEdit>(dialog, "path").setText(t.directory.filePath("akce.png"));
            dialog.accept();
        });
        pictureAction.trigger();
        QVERIFY(QFile::exists(t.directory.filePath("akce.png")));
        QCOMPARE(t.window->statusBar()->currentMessage(), "Ulozeno: " + t.directory.filePath("akce.png"));
        QCOMPARE(t.messages.texts, QStringList{});
    }

    void aCancelOrAFailureIsToldOnce() {
        Window t;
        t.open(sample());
        trelvin::ExportCommands commands(t.window->session(), t.find<trelvin::MapPanel>("grid"), t.messages,
                                         [](const QString&) { return std::make_unique<Cancelling>(); }, t.window.get());
        const QString cancelled = t.directory.filePath("zrusena.gif");
        QCOMPARE(commands.run({cancelled, 1, 89, 200, {}, {}}).status, ExportOutcome::Status::Cancelled);
        const QString unwritable = t.directory.filePath("chybi/obrazek.png");
        QCOMPARE(commands.run({unwritable, 5, 5, 200, {}, {}}).status, ExportOutcome::Status::Failed);
        QCOMPARE(t.messages.texts.size(), 2);
        QCOMPARE(t.messages.texts[0], "Export byl zrusen, soubor " + cancelled + " nebyl zapsan");
        QVERIFY2(t.messages.texts[1].startsWith("Chyba pri exportu - Soubor " + unwritable + " nelze zapsat"),
                 qPrintable(t.messages.texts[1]));
    }
};

QTEST_MAIN(ExportWindowTest)
#include "export_window_test.moc"

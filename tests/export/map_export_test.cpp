// Exports of the map: pictures that are exactly the field pictures the window shows, animations
// whose frames decode to the pictures of their actions, files that appear only when complete,
// and trelvin-export's command line.
#include <sys/resource.h>

#include <csignal>

#include <QtTest>

#include <gif_lib.h>
#include <webp/demux.h>

#include "cursor/replay_cursor.h"
#include "export/export_command_line.h"
#include "export/map_export.h"
#include "model/replay_loader.h"
#include "render/map_painter.h"
#include "view/action_marks.h"
#include "view/field_pictures.h"

using namespace trelvin;

namespace {

WorldState battle() {
    WorldState world;
    LoadReplay(world, TRELVIN_SAMPLES_DIR "/bitva-u-potoka.trp");
    return world;
}

// The frame the window shows at `action`, reached with the step buttons from the first.
MapFrame shownAt(const WorldState& replay, int action, ViewMode mode) {
    ReplayCursor cursor(replay);
    cursor.setMap(mode, {replay.fieldCount(), replay.fieldCount()});
    cursor.first();
    while (cursor.position() < action) cursor.forward();
    return cursor.frame();
}

QImage exported(const WorldState& world, int action, const PictureOptions& options, const QString& path) {
    const ExportOutcome outcome = ExportMap(world, {path, action, action, kDefaultDelay, options, QPalette()});
    if (outcome.status != ExportOutcome::Status::Written) qWarning() << outcome.failure;
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

// The frames as a viewer shows them, each over the one before, and their delays.
std::vector<std::pair<QImage, int>> gifFrames(const QString& path) {
    int error = 0;
    GifFileType* gif = DGifOpenFileName(QFile::encodeName(path).constData(), &error);
    std::vector<std::pair<QImage, int>> frames;
    if (gif == nullptr) return frames;
    if (DGifSlurp(gif) == GIF_ERROR) {
        DGifCloseFile(gif, &error);
        return frames;
    }
    QImage canvas(gif->SWidth, gif->SHeight, QImage::Format_RGB32);
    for (int i = 0; i < gif->ImageCount; ++i) {
        const SavedImage& image = gif->SavedImages[i];
        GraphicsControlBlock control{};
        DGifSavedExtensionToGCB(gif, i, &control);
        const ColorMapObject* colours = image.ImageDesc.ColorMap ? image.ImageDesc.ColorMap : gif->SColorMap;
        const GifImageDesc& at = image.ImageDesc;
        for (int y = 0; y < at.Height; ++y)
            for (int x = 0; x < at.Width; ++x) {
                const int index = image.RasterBits[y * at.Width + x];
                if (index == control.TransparentColor) continue;
                const GifColorType c = colours->Colors[index];
                canvas.setPixel(at.Left + x, at.Top + y, qRgb(c.Red, c.Green, c.Blue));
            }
        frames.emplace_back(canvas.copy(), control.DelayTime * 10);
    }
    DGifCloseFile(gif, &error);
    return frames;
}

// The frames libwebp's decoder composes, with the time each ends.
std::vector<std::pair<QImage, int>> webpFrames(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    const WebPData data{reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size())};
    WebPAnimDecoderOptions options;
    WebPAnimDecoderOptionsInit(&options);
    options.color_mode = MODE_BGRA;  // QImage's ARGB32 in memory
    WebPAnimDecoder* decoder = WebPAnimDecoderNew(&data, &options);
    std::vector<std::pair<QImage, int>> frames;
    if (decoder == nullptr) return frames;
    WebPAnimInfo info;
    WebPAnimDecoderGetInfo(decoder, &info);
    while (WebPAnimDecoderHasMoreFrames(decoder)) {
        std::uint8_t* pixels = nullptr;
        int timestamp = 0;
        if (!WebPAnimDecoderGetNext(decoder, &pixels, &timestamp)) break;
        const QImage frame(pixels, int(info.canvas_width), int(info.canvas_height), QImage::Format_ARGB32);
        frames.emplace_back(frame.convertToFormat(QImage::Format_RGB32), timestamp);
    }
    WebPAnimDecoderDelete(decoder);
    return frames;
}

// Cancels once it has been asked `answers` times.
struct CancelAfter : TaskProgress {
    explicit CancelAfter(int answers) : left(answers) {}
    bool keepGoing(std::uint64_t, std::uint64_t) override { return left-- > 0; }
    int left;
};

QStringList filesIn(const QTemporaryDir& directory) {
    return QDir(directory.path()).entryList(QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
}

}  // namespace

class MapExportTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { Q_INIT_RESOURCE(assets); }

    // The marks, when asked for, change the marked fields' squares and nothing outside them.
    void aPictureAtTwentyPixelsIsTheGridOfTheFieldPictures() {
        const WorldState world = battle();
        QTemporaryDir directory;
        int marked = 0;
        for (const ViewMode mode : {ViewMode::All, ViewMode::AsLes, ViewMode::AsLouka}) {
            for (const int action : {1, 2, 18, 40, 53, 71, 86, int(world.eventCount)}) {
                const QImage image = exported(world, action, {mode, 20, false, false, false}, directory.filePath("p.png"));
                const QImage highlighted = exported(world, action, {mode, 20, false, false, true}, directory.filePath("h.png"));
                QCOMPARE(image.size(), QSize(8 * 20, 6 * 20));
                const auto [shown, marks] = shownAt(world, action, mode);
                const auto square = [](int k) { return QRect((k - 1) % 8 * 20, (k - 1) / 8 * 20, 20, 20); };
                QRect reach;  // the squares of the marked fields, and the fields an arrow between them crosses
                for (const int k : marks.outlined) reach |= square(k);
                if (marks.capturedHeadquarters != 0) reach |= square(marks.capturedHeadquarters);
                for (int k = 1; k <= 48; ++k) {
                    const QImage field = QImage(QStringLiteral(":/fields/%1.png").arg(shown[k - 1], 2, 10, QLatin1Char('0')));
                    QCOMPARE(image.copy(square(k)), field.convertToFormat(QImage::Format_RGB32));
                    const bool isMarked = std::find(marks.outlined.begin(), marks.outlined.end(), k) != marks.outlined.end() ||
                                          marks.capturedHeadquarters == k;
                    const bool changed = highlighted.copy(square(k)) != image.copy(square(k));
                    const QString where = QStringLiteral("view %1, action %2, field %3").arg(int(mode)).arg(action).arg(k);
                    if (isMarked) QVERIFY2(changed, qPrintable(where));
                    if (!reach.intersects(square(k))) QVERIFY2(!changed, qPrintable(where));
                    marked += isMarked;
                }
            }
        }
        QVERIFY2(marked >= 10, "the actions chosen mark fields");
    }

    // The painter keeps the captions it laid out; what it paints after other sizes, colours and
    // letters is what a painter new to them paints.
    void captionsFollowTheSizeTheColoursAndTheLetters() {
        MapScene scene;
        scene.columns = 3;
        scene.pictures = {1, 2, 3, 4, 5, 6};
        scene.columnCaptions = {"A", "B", "C"};
        scene.rowCaptions = {"0", "1"};
        QPalette dark;
        dark.setColor(QPalette::Window, Qt::black);
        dark.setColor(QPalette::WindowText, Qt::yellow);
        struct Look {
            int pixels;
            QPalette palette;
            bool sharp;
        };
        MapPainter used;
        for (const Look& look : {Look{20, QPalette(), false}, Look{33, QPalette(), false}, Look{33, dark, false},
                                 Look{33, dark, true}, Look{20, QPalette(), false}}) {
            MapPainter fresh;
            for (MapPainter* painter : {&used, &fresh}) {
                painter->setFieldPixels(look.pixels);
                painter->setSharpLetters(look.sharp);
            }
            QCOMPARE(used.render(scene, true, look.palette), fresh.render(scene, true, look.palette));
        }
    }

    void animationFramesDecodeToThePicturesOfTheirActions_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::addColumn<int>("view");
        QTest::addColumn<int>("pixels");
        QTest::addColumn<bool>("labels");
        QTest::addColumn<bool>("caption");
        QTest::addColumn<bool>("highlight");
        QTest::newRow("gif, the whole game with letters and captions") << "a.gif" << 1 << 89 << 2 << 20 << true << true << false;
        QTest::newRow("gif as les, highlighted, larger") << "a.gif" << 20 << 60 << 1 << 40 << false << false << true;
        QTest::newRow("gif as louka, smoothed pictures that fit") << "a.gif" << 1 << 30 << 0 << 6 << true << false << false;
        QTest::newRow("gif as louka, smoothed and highlighted") << "a.gif" << 1 << 89 << 0 << 6 << false << false << true;
        QTest::newRow("gif of one action") << "a.gif" << 89 << 89 << 2 << 20 << false << true << false;
        QTest::newRow("webp, the whole game with letters and captions") << "a.webp" << 1 << 89 << 2 << 20 << true << true << false;
        QTest::newRow("webp as louka, smoothed pictures, highlighted") << "a.webp" << 30 << 50 << 0 << 12 << true << false << true;
    }

    void animationFramesDecodeToThePicturesOfTheirActions() {
        QFETCH(QString, name);
        QFETCH(int, first);
        QFETCH(int, last);
        QFETCH(int, view);
        QFETCH(int, pixels);
        QFETCH(bool, labels);
        QFETCH(bool, caption);
        QFETCH(bool, highlight);
        const WorldState world = battle();
        QTemporaryDir directory;
        const PictureOptions options{ViewMode(view), pixels, labels, caption, highlight};
        const QString path = directory.filePath(name);
        QCOMPARE(ExportMap(world, {path, first, last, 120, options, QPalette()}).status, ExportOutcome::Status::Written);
        const auto frames = name.endsWith(".gif") ? gifFrames(path) : webpFrames(path);
        QCOMPARE(int(frames.size()), last - first + 1);
        for (int k = 0; k < int(frames.size()); ++k) {
            const QImage expected = exported(world, first + k, options, directory.filePath("p.png"));
            QVERIFY2(frames[k].first == expected, qPrintable(QStringLiteral("frame %1").arg(k)));
            // A GIF gives each frame its delay, a WebP the time it ends.
            QCOMPARE(frames[k].second, name.endsWith(".gif") ? 120 : 120 * (k + 1));
        }
    }

    void cancelledOrFailedExportsLeaveNoFile_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::addColumn<QList<int>>("cancels");  // after so many answers: on the way to the first action, or later
        QTest::newRow("png") << "a.png" << 40 << 40 << QList<int>{20};
        QTest::newRow("gif") << "a.gif" << 30 << 89 << QList<int>{20, 60};
        QTest::newRow("webp") << "a.webp" << 30 << 89 << QList<int>{20, 60};
    }

    void cancelledOrFailedExportsLeaveNoFile() {
        QFETCH(QString, name);
        QFETCH(int, first);
        QFETCH(int, last);
        QFETCH(QList<int>, cancels);
        const WorldState world = battle();
        QTemporaryDir directory;
        const PictureOptions options{ViewMode::All, 20, true, true};
        const auto run = [&](const QString& path, TaskProgress* progress = nullptr) {
            return ExportMap(world, {path, first, last, kDefaultDelay, options, QPalette()}, progress);
        };
        // Cancelled on the way to the action, and among the frames: a file of the name stays as it was.
        const QString path = directory.filePath(name);
        QFile old(path);
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("old");
        old.close();
        for (const int answers : cancels) {
            CancelAfter cancel(answers);
            QCOMPARE(run(path, &cancel).status, ExportOutcome::Status::Cancelled);
            QCOMPARE(filesIn(directory), QStringList{name});
            QVERIFY(old.open(QIODevice::ReadOnly));
            QCOMPARE(old.readAll(), QByteArray("old"));
            old.close();
        }
        QVERIFY(old.remove());
        // The disk fills up half way: files may grow to half a kilobyte only.
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit small{512, limit.rlim_max};
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);
        const ExportOutcome full = run(path);
        setrlimit(RLIMIT_FSIZE, &limit);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(full.status, ExportOutcome::Status::Failed);
        QVERIFY2(!full.failure.isEmpty(), "the failure is named");
        QCOMPARE(filesIn(directory), QStringList{});
    }

    void theCommandLineIsReadBeforeQtStarts_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");  // -1: an export is asked for
        QTest::addColumn<QString>("printed");
        QTest::newRow("a picture") << QStringList{"f.trp", "--at", "3", "-o", "a.png"} << -1 << "f.trp 3-3 all 20 000 200 a.png";
        QTest::newRow("everything, with =") << QStringList{"--at=2", "--to=9", "--view=les", "--field=30", "--labels", "--caption",
                                                          "--highlight", "--delay=100", "--output=a.WEBP", "f.trp"}
                                            << -1 << "f.trp 2-9 les 30 111 100 a.WEBP";
        QTest::newRow("highlighted only") << QStringList{"f.trp", "--highlight", "--at", "3", "-o", "a.png"} << -1
                                          << "f.trp 3-3 all 20 001 200 a.png";
        QTest::newRow("a replay named like an option") << QStringList{"--at", "1", "-o", "a.gif", "--", "-x.trp"} << -1
                                                       << "-x.trp 1-1 all 20 000 200 a.gif";
        QTest::newRow("help") << QStringList{"f.trp", "--help"} << 0 << "usage: trelvin-export";
        QTest::newRow("version") << QStringList{"-v"} << 0 << "trelvin-export " TRELVIN_VERSION;
        const QStringList picture{"f.trp", "-o", "a.png"};
        QTest::newRow("no replay") << QStringList{"--at", "3", "-o", "a.png"} << 2 << "no replay given";
        QTest::newRow("two replays") << (picture + QStringList{"g.trp", "--at", "1"}) << 2 << "only one replay";
        QTest::newRow("no action") << picture << 2 << "--at N is missing";
        QTest::newRow("no output") << QStringList{"f.trp", "--at", "3"} << 2 << "-o OUT is missing";
        QTest::newRow("no number") << (picture + QStringList{"--at", "3x"}) << 2 << "--at needs a whole number";
        QTest::newRow("a sign") << (picture + QStringList{"--at", "-3"}) << 2 << "--at needs a whole number";
        QTest::newRow("no value") << (picture + QStringList{"--at"}) << 2 << "--at needs a value";
        QTest::newRow("field too large") << (picture + QStringList{"--at", "1", "--field", "81"}) << 2 << "--field needs";
        QTest::newRow("field too small") << (picture + QStringList{"--at", "1", "--field", "1"}) << 2 << "--field needs";
        QTest::newRow("delay too short") << (picture + QStringList{"--at", "1", "--delay", "19"}) << 2 << "--delay needs";
        QTest::newRow("no such view") << (picture + QStringList{"--at", "1", "--view", "Les"}) << 2 << "--view needs";
        QTest::newRow("a png of many") << (picture + QStringList{"--at", "1", "--to", "2"}) << 2 << "--to needs";
        QTest::newRow("backwards") << QStringList{"f.trp", "--at", "5", "--to", "4", "-o", "a.gif"} << 2 << "--to must not";
        QTest::newRow("no known format") << QStringList{"f.trp", "--at", "5", "-o", "a.jpg"} << 2 << "OUT must end";
        QTest::newRow("unknown option") << (picture + QStringList{"--at", "1", "--glow"}) << 2 << "unknown option";
        QTest::newRow("a flag with a value") << (picture + QStringList{"--at", "1", "--labels=1"}) << 2 << "unknown option";
    }

    void theCommandLineIsReadBeforeQtStarts() {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, printed);
        std::vector<std::string> all{"trelvin-export"};
        for (const QString& argument : arguments) all.push_back(argument.toStdString());
        const ReadArguments read = ReadExportArguments(all);
        if (status < 0) {
            QVERIFY2(read.arguments.has_value(), read.error.c_str());
            const ExportArguments& a = *read.arguments;
            const char* views[] = {"louka", "les", "all"};
            const QString flags = QStringLiteral("%1%2%3").arg(int(a.picture.labels)).arg(int(a.picture.caption)).arg(int(a.picture.highlight));
            const QString asked = QStringLiteral("%1 %2-%3 %4 %5 %6 %7 %8")
                                      .arg(QString::fromStdString(a.replay))
                                      .arg(a.first)
                                      .arg(a.last.value_or(a.first))
                                      .arg(views[int(a.picture.view)])
                                      .arg(a.picture.fieldPixels)
                                      .arg(flags)
                                      .arg(a.delayMilliseconds)
                                      .arg(QString::fromStdString(a.output));
            QCOMPARE(asked, printed);
            return;
        }
        QVERIFY(!read.arguments.has_value());
        QCOMPARE(read.exitStatus, status);
        const std::string& text = status == 0 ? read.out : read.error;
        QVERIFY2(QString::fromStdString(text).contains(printed), text.c_str());
        QCOMPARE(read.out.empty(), status != 0);
    }
};

QTEST_MAIN(MapExportTest)
#include "map_export_test.moc"

// Files a user may really be handed, opened through the window: each shows its messages,
// stepping through what was loaded never crashes, and a later open of a good replay works.
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "shell/window_fixture.h"
#include "view/map_grid.h"

using trelvin::testing::Window;

namespace {

const QString kLoadFailed = "Chyba pri nacitani replaye - ";
const QString kEventFailed = "Chyba pri provadeni tahu - ";
// The flow's own box when the time of event 1 is missing, and when the grid cannot place a field.
const QString kNoEventOne = "Index mimo rozsah: udalost 1 neexistuje";
const QString kOverflow = "Preteceni (hodnota mimo povoleny rozsah)";

enum class Source { Bytes, Directory, Vanished };

// Expected texts ending in "- " are prefixes; the others are whole texts.
bool matches(const QString& text, const QString& expected) {
    return expected.endsWith("- ") ? text.startsWith(expected) : text == expected;
}

QByteArray alfaWithLineEnd(const QByteArray& end) {
    QFile sample(TRELVIN_SAMPLES_DIR "/alfa.trp");
    sample.open(QIODevice::ReadOnly);
    return sample.readAll().replace("\r\n", end);
}

// Past the event cap: a created world, then tens of megabytes of long lines in one second.
QByteArray oversized() {
    QByteArray bytes = "0;Obri;0;3;3;3\r\n2004-06-19-08-00-00;create_world;NNNNNNNNN\r\n";
    const QByteArray line = "2004-06-19-08-00-00;fly;" + QByteArray(400, 'x') + "\r\n";
    bytes.reserve(30 * 1024 * 1024 + line.size());
    while (bytes.size() < 30 * 1024 * 1024) bytes += line;
    return bytes;
}

QString openedPath(Window& t, Source source, const QByteArray& bytes) {
    if (source == Source::Directory) return t.directory.path();
    const QString path = t.directory.filePath("hostile.trp");
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    file.close();
    // Chosen in the dialog, gone before the loader opens it.
    if (source == Source::Vanished) QFile::remove(path);
    return path;
}

}  // namespace

class HostileFilesWindowTest : public QObject {
    Q_OBJECT

private slots:
    void opensReportsAndRecovers_data() {
        QTest::addColumn<int>("source");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("expected");
        const QStringList nothingLoaded{kLoadFailed, kEventFailed, kNoEventOne};
        const auto bytes = [](const char* name, const QByteArray& content, const QStringList& expected) {
            QTest::newRow(name) << int(Source::Bytes) << content << expected;
        };

        bytes("empty", "", nothingLoaded);
        bytes("header only", "0;Alfa;2;3;2;3", QStringList{kEventFailed, kNoEventOne});
        bytes("header of 5 fields", "0;Alfa;2;3;2\r\n", nothingLoaded);
        bytes("30 MB past the event cap", oversized(), QStringList{kLoadFailed});
        static constexpr char kNuls[] = "0;A\0;2;3;2;3\r\n1\0-\0";
        bytes("NUL bytes", QByteArray(kNuls, sizeof kNuls - 1), nothingLoaded);
        bytes("UTF-8 mixed with Windows-1250",
              "0;Sv\xECt \xC4\x8D\xFF\x81\x98;2;3;2;3\r\n2004-06-19-08-00-00;create_world;NNBSXN\r\n"
              "2004-06-19-08-10-00;create_hq;K\xC3\xA1ja;les;A0\r\n"
              "2004-06-19-09-05-00;buy;A0;Vosi\xC4\x8Dka\xE8\xFF;4\r\n",
              QStringList{});
        bytes("CR-only line ends", alfaWithLineEnd("\r"), QStringList{});
        bytes("LF-only line ends", alfaWithLineEnd("\n"), QStringList{});
        bytes("year 99", "0;A;0;2;2;3\r\n0099-01-01-00-00-00;create_world;NNNN\r\n", nothingLoaded);
        bytes("year 10000", "0;A;0;2;2;3\r\n10000-01-01-00-00-00;create_world;NNNN\r\n", nothingLoaded);
        bytes("start day past 9999",
              "0;A;0;2;2;3\r\n9999-31-12-23-30-00;create_world;NNNN\r\n9999-31-12-23-59-59;fly\r\n",
              QStringList{kLoadFailed});
        bytes("255 x 255 map",
              "0;Obri;0;255;255;3\r\n2004-06-19-08-00-00;create_world;" + QByteArray(255 * 255, 'N') + "\r\n",
              QStringList{kOverflow});
        QTest::newRow("directory") << int(Source::Directory) << QByteArray() << nothingLoaded;
        QTest::newRow("vanished") << int(Source::Vanished) << QByteArray("0;Alfa;2;3;2;3\r\n") << nothingLoaded;
    }

    void opensReportsAndRecovers() {
        QFETCH(int, source);
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, expected);
        Window t;
        frmMain& w = *t.window;
        t.files.answers.push_back(openedPath(t, Source(source), bytes));
        w.mnuOtevritItem_Click();

        const QStringList& texts = t.messages.texts;
        QVERIFY2(texts.size() == expected.size(), qPrintable(texts.join(" | ")));
        for (int i = 0; i < texts.size(); ++i) QVERIFY2(matches(texts[i], expected[i]), qPrintable(texts[i]));

        t.messages.texts.clear();
        w.cmdForw_Click();
        w.cmdEnd_Click();
        w.cmdBack_Click();
        w.o_Click(1);
        w.txtPolicko->setText("A0");
        if (w.grid->fieldCount() > 0) w.m_Click(w.grid->fieldCount());
        for (const QString& text : texts) QVERIFY2(text.startsWith(kEventFailed), qPrintable(text));
        QVERIFY(w.position >= 0 && w.position <= std::max<int>(1, t.world.eventCount));

        t.messages.texts.clear();
        t.files.answers.push_back(TRELVIN_SAMPLES_DIR "/alfa.trp");
        w.mnuOtevritItem_Click();
        QVERIFY2(texts.isEmpty(), qPrintable(texts.join(" | ")));
        QCOMPARE(t.world.eventCount, std::int16_t{7});
        QCOMPARE(w.lblTah->text(), QString("1 (7)"));
        QCOMPARE(w.grid->fieldCount(), 6);
        QVERIFY(w.cmdForw->isEnabled());
    }
};

QTEST_MAIN(HostileFilesWindowTest)
#include "hostile_files_window_test.moc"

// The window's keys, a dropped file and the field tooltip: each key presses exactly the button
// of the mode shown and nothing when that button is disabled; text fields keep their keys.
#include "panels/help_menu.h"
#include "widgets/clock_face.h"
#include "shell/window_fixture.h"

using namespace trelvin::testing;

struct KeyPress { Qt::Key key; std::vector<int> applied; };

const Qt::Key kStepKeys[] = {Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End, Qt::Key_Space};

// Presses `key` in the focused control; returns the events it applied.
static std::vector<int> press(Window& t, Qt::Key key) {
    return t.applies([&] { QTest::keyClick(QApplication::focusWidget(), key); });
}

// Drags `urls` onto the window and drops them; returns whether the window took the drag.
static bool drop(frmMain& w, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPoint centre = w.rect().center();
    QDragEnterEvent enter(centre, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&w, &enter);
    QDropEvent dropped(centre, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&w, &dropped);
    return enter.isAccepted();
}

class KeyboardAndDropTest : public QObject {
    Q_OBJECT

private slots:
    void eachKeyPressesTheButtonOfTheModeShown() {
        Window t;
        t.activate();
        for (Qt::Key key : kStepKeys) QVERIFY(press(t, key).empty());  // nothing opened yet
        t.open("rada.trp", PlainReplay(10));
        const KeyPress steps[] = {{Qt::Key_Right, {2}}, {Qt::Key_Right, {3}}, {Qt::Key_Left, {1, 2}},
                                  {Qt::Key_End, Range(1, 10)}, {Qt::Key_Right, {}}, {Qt::Key_End, {}}, {Qt::Key_Space, {}},
                                  {Qt::Key_Home, {1}}, {Qt::Key_Left, {}}, {Qt::Key_Home, {}}};
        for (const KeyPress& step : steps) QCOMPARE(press(t, step.key), step.applied);

        t.find<QRadioButton>("ov1").click();
        // Right has no button in the show; Space is "-->", then "II", then a disabled "-->".
        const KeyPress show[] = {{Qt::Key_Right, {}}, {Qt::Key_Home, {}}, {Qt::Key_Space, {2}}, {Qt::Key_Space, {}},
                                 {Qt::Key_End, Range(1, 10)}, {Qt::Key_Space, {}}, {Qt::Key_Home, {1}}};
        for (const KeyPress& step : show) QCOMPARE(press(t, step.key), step.applied);
        QVERIFY(!t.window->session().isPlaying());

        t.find<QRadioButton>("ov0").click();
        for (QLineEdit* field : {&t.find<QLineEdit>("txtPolicko"), t.find<QComboBox>("cmbHraci").lineEdit()}) {
            field->setFocus();
            field->setText("B1");
            for (Qt::Key key : kStepKeys) QVERIFY(press(t, key).empty());
            QCOMPARE(field->text(), QString("B1 "));
        }
    }

    // Napoveda -> Klavesy (F1) lists the keys of the rows and of the menus in the words of the
    // window: the command each presses, the menu entry each triggers.
    void theKeyTableTellsWhatEachKeyDoes() {
        Window t;
        QAction& keys = t.find<QAction>("keysAction");
        QCOMPARE(keys.shortcut(), QKeySequence(Qt::Key_F1));
        keys.trigger();
        auto* table = t.find<QDialog>("keyTable").findChild<QTableWidget*>();
        QStringList rows;
        for (int row = 0; row < table->rowCount(); ++row) rows << table->item(row, 0)->text() + ": " + table->item(row, 1)->text();
        for (const char* row : {"Sipka vpravo: O akci vpred", "Mezernik: Prehravat / Zastavit", "Ctrl+G: Na akci",
                                "Ctrl+Shift+Sipka vpravo: Dalsi dobyti veleni", "Ctrl++ / Ctrl+=: Priblizit mapu",
                                "F1: Klavesy"})
            QVERIFY2(rows.contains(row), qPrintable(rows.join(", ")));
        keys.trigger();  // one table at a time
        QCOMPARE(t.window->findChildren<QDialog*>("keyTable").size(), 1);
    }

    // Every button says what it does and, where a key presses it, which key; the clock says how
    // to read it; "O programu" names the version, the licence and the files read.
    void everyButtonAndTheClockHaveATooltipWithTheirKey() {
        Window t;
        const std::pair<const char*, const char*> keyed[] = {
            {"cmdBegin", "Home"},  {"cmdBack", "Sipka vlevo"}, {"cmdForw", "Sipka vpravo"}, {"cmdEnd", "End"},
            {"cmdSBegin", "Home"}, {"cmdS", "Mezernik"},       {"cmdD", "Mezernik"},         {"cmdSEnd", "End"},
        };
        for (const auto& [name, key] : keyed) {
            const QPushButton& button = t.find<QPushButton>(name);
            QVERIFY2(button.toolTip().contains(QString("(%1)").arg(key)), qPrintable(button.text() + ": " + button.toolTip()));
        }
        for (const QPushButton* button : t.window->findChildren<QPushButton*>())
            QVERIFY2(!button->toolTip().isEmpty(), qPrintable(button->text()));
        QVERIFY(!t.find<trelvin::ClockFace>("pHod").toolTip().isEmpty());
        const QString about = trelvin::AboutText();
        for (const char* part : {TRELVIN_VERSION, "Licence", "*.trp"}) QVERIFY2(about.contains(part), part);
    }

    void droppedFileRunsTheOpenFlowWithoutTheDialog() {
        Window t;
        frmMain& w = *t.window;
        const QString alfa = t.write("alfa.trp", QByteArray::fromStdString(kAlfa));
        t.files.answers.push_back(t.write("jina.trp", QByteArray::fromStdString(PlainReplay(3))));
        QVERIFY(!drop(w, {QUrl::fromLocalFile(alfa), QUrl::fromLocalFile(alfa)}));
        QVERIFY(!drop(w, {QUrl("https://example.org/alfa.trp")}));
        QVERIFY(drop(w, {QUrl::fromLocalFile(alfa)}));
        QTRY_COMPARE(t.applied, std::vector<int>{1});
        QCOMPARE(t.world().eventCount, std::int16_t{7});
        QCOMPARE(t.files.answers.size(), 1);  // the dialog was never asked

        // The dropped path became the current one: a cancelled dialog reopens it.
        t.files.answers = {std::nullopt};
        QCOMPARE(t.applies([&] { w.mnuOtevritItem_Click(); }), std::vector<int>{1});
        QVERIFY2(t.messages.texts.isEmpty(), qPrintable(t.messages.texts.join('|')));
    }

    void hoverNamesTheField() {
        Window t;
        t.activate();
        // Column 74 has the code page's character 0x8A, "Š": the name crosses into Unicode.
        t.open("siroky.trp", BlankWorld(74, 2));
        trelvin::MapGrid& grid = t.find<trelvin::MapGrid>("grid");
        QTRY_COMPARE(ToolTipAt(*grid.viewport(), grid.fieldRectInViewport(74).center()), QString::fromUtf8("\xc5\xa0" "0"));
    }
};

QTEST_MAIN(KeyboardAndDropTest)
#include "keyboard_and_drop_test.moc"

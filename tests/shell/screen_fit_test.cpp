// The window on a 1366 x 768 screen: every map starts at the same place, the window never
// outgrows the screen, zoom keeps clicks and names on their fields, and every designed caption
// fits its box.
#include "model/field_addressing.h"
#include "panels/fitting_label.h"
#include "bridge/date_text.h"
#include "shell/window_fixture.h"

using namespace trelvin::testing;

// Where field k's square lies in the window.
static QRect FieldInWindow(Window& t, int k) {
    const trelvin::MapGrid& grid = t.find<trelvin::MapGrid>("grid");
    const QRect r = grid.fieldRectInViewport(k);
    return QRect(grid.viewport()->mapTo(t.window.get(), r.topLeft()), r.size());
}

class ScreenFitTest : public QObject {
    Q_OBJECT

private slots:
    void everyMapStartsAtTheSamePlaceAndTheWindowStaysOnTheScreen() {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QCOMPARE(screen.size(), QSize(1366, 768));
        Window fresh;
        fresh.window->show();
        fresh.open("maly.trp", BlankWorld(5, 4));
        const QRect firstField = FieldInWindow(fresh, 1);
        const QSize designed = fresh.window->size();

        Window t;
        t.window->show();
        const trelvin::MapGrid& grid = t.find<trelvin::MapGrid>("grid");
        for (const auto& [columns, rows] : {std::pair{109, 100}, {60, 40}, {20, 10}, {5, 4}}) {
            t.open("mapa.trp", BlankWorld(columns, rows));
            QTest::qWait(50);  // the window manager answers the resize
            QVERIFY2(screen.contains(t.window->frameGeometry()), qPrintable(QString::number(columns)));
            const QSize view = grid.viewport()->size();
            const QSize content = grid.contentSize(20);
            // What the screen cannot show scrolls; a medium map is shown whole.
            QCOMPARE(grid.horizontalScrollBar()->maximum(), std::max(0, content.width() - view.width()));
            if (columns <= 20)
                QVERIFY2(view.width() >= content.width() && view.height() >= content.height(),
                         qPrintable(QString("%1x%2 in %3x%4").arg(content.width()).arg(content.height()).arg(view.width()).arg(view.height())));
        }
        QCOMPARE(FieldInWindow(t, 1), firstField);
        QCOMPARE(t.window->size(), designed);
    }

    void zoomKeepsClicksAndNamesOnTheirFields() {
        Window t;
        t.activate();
        t.open("mapa.trp", BlankWorld(40, 30));
        trelvin::MapPanel& grid = t.find<trelvin::MapPanel>("grid");
        const auto sizes = [&](const char* action) {
            t.find<QAction>(action).trigger();
            return grid.fieldPixels();
        };
        QCOMPARE(sizes("zoomInAction"), 24);
        QCOMPARE(sizes("zoomInAction"), 30);
        QCOMPARE(sizes("zoomOutAction"), 24);
        QCOMPARE(sizes("zoomResetAction"), 20);
        t.find<QAction>("zoomFitAction").trigger();
        QVERIFY(grid.fieldPixels() < 20);
        QCOMPARE(grid.horizontalScrollBar()->maximum(), 0);
        QCOMPARE(grid.verticalScrollBar()->maximum(), 0);

        const QLineEdit& fieldName = t.find<QLineEdit>("txtPolicko");
        for (int pixels : {4, 12, 20, 50}) {
            grid.setFieldPixels(pixels);
            grid.horizontalScrollBar()->setValue(grid.horizontalScrollBar()->maximum() / 2);
            for (int k : {1, 40, 621, 1200}) {
                const QRect field = grid.fieldRectInViewport(k);
                if (!grid.viewport()->rect().contains(field)) continue;
                QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, field.center());
                const QString name = QString::fromStdString(trelvin::FieldName(t.world(), k));
                QCOMPARE(fieldName.text(), name);
                QTRY_COMPARE(ToolTipAt(*grid.viewport(), field.center()), name);
            }
        }

        // Ctrl and the wheel zoom around the pointer: the field under it stays under it.
        grid.setFieldPixels(20);
        const QPoint pointer = grid.fieldRectInViewport(30 * 40 / 2 + 20).center();
        const int under = grid.fieldAt(pointer);
        const auto turn = [&](int eighths) {
            QWheelEvent wheel(pointer, grid.viewport()->mapToGlobal(pointer), {}, QPoint(0, eighths), Qt::NoButton,
                              Qt::ControlModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(grid.viewport(), &wheel);
        };
        turn(120);
        QCOMPARE(grid.fieldPixels(), 24);
        QCOMPARE(grid.fieldAt(pointer), under);
        turn(60);  // a touchpad's half notches add up to one step
        QCOMPARE(grid.fieldPixels(), 24);
        turn(60);
        QCOMPARE(grid.fieldPixels(), 30);
        QCOMPARE(grid.fieldAt(pointer), under);
    }

    void everyDesignedCaptionFitsItsBox() {
        Window t;
        t.window->show();
        frmMain& w = *t.window;
        const auto setText = [&t](const char* label, const QString& text) { t.find<QLabel>(label).setText(text); };
        // The longest values the boxes are meant for.
        setText("lblTah", "32767 (32767)");
        setText("lbl", "Utok z F4 (Jana) na E3 (volne uzemi) s 32767 jednotkami.\nUtok se zdaril prezilo 32767 "
                       "jednotek\nDobyto veleni hrace Bartolomej\nAkce stala 32767 tah(u).");
        setText("lblCas", trelvin::GeneralDateText(*trelvin::DateTime::fromParts(2004, 12, 31, 23, 59, 59),
                                                   QLocale(QLocale::Czech)));
        for (const char* value : {"lblPocetTahu", "lblMnozstviNektaru"}) setText(value, "32767 (+ 255/hod)");
        setText("lblVelikostUzemi", "255");
        setText("lblPTyp", "Normalni");
        setText("lblPVlastnik", "Nedobytne pole");
        setText("lblPTypArmady", QString::fromUtf8("Vosi\u010dka"));
        setText("lblVeleni", "Uz nehraje");

        const QWidget& grid = t.find<trelvin::MapGrid>("grid");
        QStringList cut;
        for (QWidget* widget : w.centralWidget()->findChildren<QWidget*>()) {
            if (!widget->isVisibleTo(&w) || widget == &grid || grid.isAncestorOf(widget)) continue;
            const QFontMetrics metrics = widget->fontMetrics();
            QString text;
            QSize needed;
            if (auto* label = qobject_cast<QLabel*>(widget)) {
                text = label->text();
                const int flags = int(label->alignment()) | (label->wordWrap() ? int(Qt::TextWordWrap) : 0);
                needed = metrics.boundingRect(label->contentsRect(), flags, text).size();
            } else if (auto* option = qobject_cast<QRadioButton*>(widget)) {
                text = option->text();
                needed = QSize(option->sizeHint().width(), metrics.height());
            } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
                text = button->text();
                needed = metrics.size(Qt::TextShowMnemonic, text) +
                         2 * QSize(1, 1) * button->style()->pixelMetric(QStyle::PM_ButtonMargin);
            } else if (auto* frame = qobject_cast<QGroupBox*>(widget)) {
                text = frame->title();
                needed = QSize(metrics.horizontalAdvance(text) + 16, 0);
            } else {
                continue;
            }
            if (needed.width() > widget->width() || needed.height() > widget->height())
                cut << QString("'%1' needs %2x%3 in %4x%5")
                           .arg(text).arg(needed.width()).arg(needed.height()).arg(widget->width()).arg(widget->height());
        }
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join("; ")));
    }

    // A value too long for its box is drawn smaller in the same box, its whole text in the tooltip;
    // the description keeps above the frame of the ways of viewing.
    void aValueTooLongIsDrawnSmallerWithItsWholeTextInTheTooltip() {
        Window t;
        t.activate();
        frmMain& w = *t.window;
        trelvin::FittingLabel& nectar = t.find<trelvin::FittingLabel>("lblMnozstviNektaru");
        const QRect designed = nectar.geometry();
        nectar.setText("1245296 (+ 2406/hod)");
        QVERIFY(!nectar.fitsIn(nectar.font()));
        const QFont fitted = nectar.fittedFont();
        QVERIFY2(fitted.pixelSize() < nectar.font().pixelSize(), qPrintable(QString::number(fitted.pixelSize())));
        QVERIFY2(fitted.pixelSize() >= trelvin::FittingLabel::kSmallestPixels, qPrintable(QString::number(fitted.pixelSize())));
        QVERIFY(nectar.fitsIn(fitted));
        QCOMPARE(nectar.geometry(), designed);
        QTRY_COMPARE(ToolTipAt(nectar, nectar.rect().center()), QString("1245296 (+ 2406/hod)"));
        nectar.setText("500 (+ 12/hod)");  // a value that fits: its own font, no tooltip
        QCOMPARE(nectar.fittedFont(), nectar.font());
        QTRY_COMPARE(ToolTipAt(nectar, nectar.rect().center()), QString());

        trelvin::FittingLabel& description = t.find<trelvin::FittingLabel>("lbl");
        description.setText("Utok z F4 (Bartolomej Svatopluk) na E3 (Maximilian Ferdinand) s 32767 jednotkami.\n"
                            "Utok se zdaril prezilo 32767 jednotek\nDobyto veleni hrace Maximilian Ferdinand\n"
                            "Akce stala 32767 tah(u).");
        QVERIFY(!description.fitsIn(description.font()));
        QVERIFY(description.fitsIn(description.fittedFont()));
        const int textBottom = description.mapTo(&w, description.contentsRect().bottomLeft()).y();
        QVERIFY2(textBottom < t.find<trelvin::ViewModePanel>("Frame2").mapTo(&w, QPoint()).y(),
                 qPrintable(QString::number(textBottom)));
        QTRY_COMPARE(ToolTipAt(description, description.rect().center()), description.text());
    }
};

QTEST_MAIN(ScreenFitTest)
#include "screen_fit_test.moc"

// A list cell's text cut where the style's own elision cuts it, at every width.
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QTest>

#include "widgets/cell_text.h"

class CellTextTest : public QObject {
    Q_OBJECT

private slots:
    void cutWhereTheStyleCutsAtEveryWidth() {
        const QFont font = QGuiApplication::font();
        const QFontMetricsF metrics(font);
        const QString texts[] = {
            QStringLiteral("42"),
            QStringLiteral("Hrac Vaclav presunul 12 vojaku z A1 na B1; To, Av, fi, ffl"),
            // Longer than the characters the first shaping takes, with narrow letters that may
            // not fill the width, and soft hyphens that take none.
            QStringLiteral("Utok na pole C7 ") + QString(120, u'i') + QStringLiteral(" konec"),
            QString(200, QChar(0xad)) + QStringLiteral("zluty kun upel"),
            QString::fromUtf8("Žluťoučký kůň úpěl ďábelské ódy, ") + QString(60, u'W'),
        };
        for (const QString& text : texts) {
            const int whole = int(metrics.horizontalAdvance(text)) + 3;
            for (int width = 0; width <= whole; width += width < 80 ? 1 : 7) {
                for (Qt::TextElideMode mode : {Qt::ElideRight, Qt::ElideMiddle}) {
                    QTextLayout layout;
                    trelvin::LayOutCellText(layout, text, font, width, mode);
                    const QString expected = metrics.elidedText(text, mode, width);
                    QVERIFY2(layout.text() == expected,
                             qPrintable(QStringLiteral("%1 px: '%2' instead of '%3'").arg(width).arg(layout.text(), expected)));
                }
            }
        }
    }
};

QTEST_MAIN(CellTextTest)
#include "cell_text_test.moc"

// On a Czech desktop: Qt's own dialogs and buttons speak Czech, and an action's date and time
// follow the Czech way of writing them. Run with LANG=cs_CZ.UTF-8.
#include "shell/qt_translations.h"
#include "shell/window_fixture.h"

using namespace trelvin::testing;

class CzechDesktopTest : public QObject {
    Q_OBJECT

private slots:
    void dialogsAndDatesAreCzech() {
        QCOMPARE(QLocale::system().language(), QLocale::Czech);
        QVERIFY(trelvin::InstallQtTranslations(*QCoreApplication::instance()));
        // "OK" reads the same in Czech; a box's other buttons show that Qt's own texts are.
        QMessageBox box(QMessageBox::NoIcon, "Trelvin", "text", QMessageBox::Ok | QMessageBox::Close);
        QCOMPARE(box.button(QMessageBox::Close)->text(), QString::fromUtf8("Zav\u0159\u00edt"));
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QString::fromUtf8("Zru\u0161it"));
        QCOMPARE(QCoreApplication::translate("QFileDialog", "Open"), QString::fromUtf8("Otev\u0159\u00edt"));

        Window t;
        t.open("alfa.trp", kAlfa);
        t.controls.cmdForw_Click();  // Karel's headquarters, 19 June 2004 at 08:10:00
        QCOMPARE(t.find<QLabel>("lblCas").text(), QString("19.06.04 8:10:00"));
        QCOMPARE(t.find<QLabel>("lblTime").text(), QString("19.06.04 8:10:00"));
    }
};

QTEST_MAIN(CzechDesktopTest)
#include "czech_desktop_test.moc"

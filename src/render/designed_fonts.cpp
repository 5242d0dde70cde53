#include "render/designed_fonts.h"

#include <QFont>
#include <QStringList>

namespace trelvin {

void RegisterDesignedFonts() {
    const QStringList sansSerif{QStringLiteral("Liberation Sans"), QStringLiteral("Arimo"), QStringLiteral("Arial"),
                                QStringLiteral("Nimbus Sans"), QStringLiteral("Helvetica")};
    QFont::insertSubstitutions(QString::fromLatin1(kDialogFontFamily), sansSerif.mid(1));
    QFont::insertSubstitutions(QStringLiteral("MS Sans Serif"), sansSerif);
    QFont::insertSubstitutions(QStringLiteral("Comic Sans MS"),
                               {QStringLiteral("Comic Neue"), QStringLiteral("Comic Relief"),
                                QStringLiteral("Liberation Sans")});
}

QString DesignedAreaStyle() {
    return QStringLiteral(
               "QWidget { font-family: '%1'; font-size: %2px; }"
               "QLabel#lblCas { font-family: 'Comic Sans MS'; font-size: 16px; font-weight: bold; }"
               "QGroupBox { border: 1px solid palette(mid); border-radius: 2px; margin-top: 7px; }"
               "QGroupBox::title { subcontrol-origin: margin; left: 6px; padding: 0 2px; }")
        .arg(QString::fromLatin1(kDialogFontFamily))
        .arg(kDialogFontPixels);
}

}  // namespace trelvin

#include "export/whole_file.h"

#include <QFileInfo>

#include "export/system_error_text.h"

namespace trelvin {

QString OpenWhole(QSaveFile& file) {
    const QFileInfo target(file.fileName());
    if (target.exists() && !target.isFile()) return QStringLiteral("%1 neni obycejny soubor").arg(file.fileName());
    if (!file.open(QIODevice::WriteOnly))
        return QStringLiteral("Soubor %1 nelze zapsat: %2").arg(file.fileName(), SystemErrorText(file));
    return {};
}

QString CommitWhole(QSaveFile& file) {
    // A disk that fills up may take part of a write without a word: what reached it is counted.
    const bool whole = file.flush() && file.size() == file.pos();
    if (whole && file.commit()) return {};
    return QStringLiteral("Soubor %1 nelze zapsat: %2")
        .arg(file.fileName(), whole ? SystemErrorText(file) : QStringLiteral("na disk se nevesel cely"));
}

}  // namespace trelvin

#include "export/system_error_text.h"

#include <cerrno>
#include <utility>

#include <QFileDevice>

namespace trelvin {

QString SystemErrorText(const QIODevice& device) {
    // A device's text is the system's own for the error code: matched against each code's.
    static const std::pair<int, const char*> kWords[] = {
        {ENOENT, "slozka neexistuje"},
        {EACCES, "pristup odepren"},
        {EPERM, "pristup odepren"},
        {ENOSPC, "disk je plny"},
        {EDQUOT, "na disku je vycerpana kvota"},
        {EROFS, "disk je jen pro cteni"},
        {ENOTDIR, "cast cesty neni slozka"},
        {EISDIR, "na tom miste je slozka"},
        {ENAMETOOLONG, "nazev je prilis dlouhy"},
        {EFBIG, "soubor by byl prilis velky"},
        {EIO, "chyba pri zapisu na zarizeni"},
        {EMFILE, "je otevreno prilis mnoho souboru"},
        {ENFILE, "je otevreno prilis mnoho souboru"},
        {EBUSY, "soubor nebo zarizeni je pouzivano"},
        {ETXTBSY, "soubor je pouzivan"},
        {EEXIST, "soubor uz existuje"},
    };
    const QString said = device.errorString();
    for (const auto& [code, words] : kWords)
        if (said == qt_error_string(code)) return QString::fromLatin1(words);
    if (const auto* file = qobject_cast<const QFileDevice*>(&device)) {
        switch (file->error()) {
            case QFileDevice::OpenError: return QStringLiteral("soubor nelze otevrit");
            case QFileDevice::WriteError: return QStringLiteral("zapis selhal");
            case QFileDevice::ResourceError: return QStringLiteral("dosly systemove prostredky");
            default: break;
        }
    }
    return QStringLiteral("neznama chyba systemu");
}

}  // namespace trelvin

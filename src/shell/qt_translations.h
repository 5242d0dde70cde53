#pragma once
// Qt's own texts (the Open dialog, the buttons of message boxes) in the language of the
// user's locale, from the translations Qt installs (Debian's qt6-translations-l10n).
class QCoreApplication;

namespace trelvin {

// True when a translation for the system locale was found and installed.
bool InstallQtTranslations(QCoreApplication& application);

}  // namespace trelvin

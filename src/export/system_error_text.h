#pragma once
// Why the system refused to write a file, in Czech words of our own: its own text comes in the
// desktop's language or in English, and a message must not mix languages.
#include <QIODevice>
#include <QString>

namespace trelvin {

// What went wrong with `device`'s last operation: "slozka neexistuje", "pristup odepren", "disk je
// plny", ...
QString SystemErrorText(const QIODevice& device);

}  // namespace trelvin

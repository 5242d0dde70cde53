#pragma once
// A file written whole or not at all through QSaveFile: it appears only once all of it reached
// the disk, and until then a file of that name stays as it was.
#include <QSaveFile>
#include <QString>

namespace trelvin {

// Opens `file` for writing; the failure's text, empty when it is open. Only a file is replaced: a
// folder or a device of that name is left alone.
QString OpenWhole(QSaveFile& file);

// Makes the written file appear; the failure's text when not all of it reached the disk.
QString CommitWhole(QSaveFile& file);

}  // namespace trelvin

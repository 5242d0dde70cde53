#pragma once
// The viewer's command line, read before any window exists, so that --help and --version work
// without a display: trelvin-replay [--help] [--version] [FILE].
#include <optional>

#include <QString>
#include <QStringList>

namespace trelvin {

struct ViewerArguments {
    std::optional<QString> file;  // opened at start-up as if chosen in the dialog
};

// Reads the arguments (the program's name first). Prints the usage or the version and
// answers the exit status when the program should end here: 0 after --help or --version,
// 2 after a wrong option, with the usage on standard error.
std::optional<ViewerArguments> ReadViewerArguments(const QStringList& arguments, int& exitStatus);

}  // namespace trelvin

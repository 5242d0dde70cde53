#pragma once
// trelvin-export's command line, read before Qt starts, so that --help, --version and a wrong
// argument are answered without a display or Qt's platform plugins:
//   trelvin-export FILE --at N [--to M] [--view all|les|louka] [--field PX] [--labels]
//                  [--caption] [--highlight] [--delay MS] -o OUT
//   trelvin-export FILE --html [--at N] [--view all|les|louka] -o OUT
#include <optional>
#include <string>
#include <vector>

#include "export/export_options.h"

namespace trelvin {

struct ExportArguments {
    std::string replay;
    std::string output;
    int first = 0;
    std::optional<int> last;  // an animation's last action
    bool html = false;        // the viewer's web page with the replay inside, opening at `first` (-1: as opened)
    int delayMilliseconds = kDefaultDelay;
    PictureOptions picture;
};

// What the command line asks for, or how the program ends at once: the text for standard
// output (--help, --version) or standard error (a wrong argument, with the usage), and the
// exit status, 0 or 2.
struct ReadArguments {
    std::optional<ExportArguments> arguments;
    int exitStatus = 0;
    std::string out;
    std::string error;
};

ReadArguments ReadExportArguments(const std::vector<std::string>& arguments);

}  // namespace trelvin

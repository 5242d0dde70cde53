#pragma once
// A replay as one web page: the viewer's page (built in build-web/, installed with the package)
// with the replay's bytes inside, opening at a moment of it. trelvin-export --html and the
// window's "Exportovat jako webovou stranku..." write it; the page reads it back as it reads
// the copies it saves of itself.
#include <string>
#include <string_view>

#include <QString>

#include "view/view_mode.h"

namespace trelvin {

// "#a=5&v=les&z=20&h=1": where the page opens; an action of 0 leaves the page where a replay
// opens, a field size of 0 at the page's own.
inline std::string WebPageMoment(int action, ViewMode view, int fieldPixels = 0, int highlight = -1) {
    const std::string_view side = ViewSide(view);
    std::string moment = "#";
    if (action > 0) moment += "a=" + std::to_string(action) + "&";
    moment += "v=" + std::string(side.empty() ? "all" : side);
    if (fieldPixels > 0) moment += "&z=" + std::to_string(fieldPixels);
    if (highlight >= 0) moment += "&h=" + std::to_string(highlight);
    return moment;
}

// Writes `output`: the page with the replay at `replayPath` inside (its bytes, under its file's
// name), opening at `moment`. Returns what went wrong in Czech, empty when the file is written; a
// failure leaves no file, and a file of that name as it was.
QString WriteReplayPage(const QString& output, const QString& replayPath, const std::string& moment);

}  // namespace trelvin

#pragma once
// An export of the map into a file: the picture of one action as a PNG, or the actions from
// one to another as an animated GIF or WebP, one frame per action. Frames are painted and
// written one at a time. The file appears only when it is complete: a cancelled or failed
// export leaves no file behind, and a file of that name as it was.
#include <QString>

#include "export/export_options.h"
#include "model/task_progress.h"
#include "model/world_state.h"

namespace trelvin {

struct ExportOutcome {
    enum class Status { Written, Cancelled, Failed };
    Status status = Status::Written;
    QString failure;  // what went wrong, for the user
};

// Exports `job` from `replay`'s events, on a copy of its world. `progress`, when given, is
// asked with the action reached of the last; its false cancels. The actions must lie within
// 1 .. the actions the replay's list holds, first <= last, and a PNG has one action.
ExportOutcome ExportMap(const WorldState& replay, const ExportJob& job, TaskProgress* progress = nullptr);

}  // namespace trelvin

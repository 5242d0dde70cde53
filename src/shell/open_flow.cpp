// Opening a replay, from the menu or by a file dropped on the window, and building the map
// grid for it.
#include <exception>
#include <optional>

#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>
#include <QUrl>

#include "bridge/core_text.h"
#include "bridge/twips.h"
#include "model/replay_loader.h"
#include "playback/playback.h"
#include "shell/frm_main.h"
#include "shell/slow_task_dialog.h"
#include "view/map_grid.h"

namespace {

// One local file; anything else is refused.
std::optional<QString> droppedFile(const QMimeData* data) {
    if (data == nullptr || !data->hasUrls()) return std::nullopt;
    const QList<QUrl> urls = data->urls();
    if (urls.size() != 1 || !urls.front().isLocalFile()) return std::nullopt;
    return urls.front().toLocalFile();
}

}  // namespace

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (droppedFile(event->mimeData())) event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event) {
    const std::optional<QString> path = droppedFile(event->mimeData());
    if (!path) return;
    event->acceptProposedAction();
    // The flow may show message boxes: run it once the drag source has been answered.
    QTimer::singleShot(0, this, [this, file = *path] { runOpenFlow(file); });
}

void frmMain::mnuOtevritItem_Click() { runOpenFlow(std::nullopt); }

void frmMain::runOpenFlow(const std::optional<QString>& dropped) {
    // No tick may step a replay whose grid is being replaced.
    playback->halt();
    try {
        grid->unloadAll();
        if (auto chosen = dropped ? dropped : services_.files.chooseFile(fileName_))
            fileName_ = *chosen;
        {
            trelvin::SlowTaskDialog progress(this, taskLabel("Nacitani"));
            const std::unique_ptr<trelvin::ReplaySource> source = services_.openReplay(fileName_);
            trelvin::LoadReplay(world_, *source, reporter_, &progress);
        }
        playback->openAtFirstEvent();
        RefreshAr();
        txtPolicko->setEnabled(true);
        cmbHraci->setEnabled(true);
        change_info();
        updateButtons();
        playback->disableStop();
    } catch (const std::exception& failure) {
        services_.messages.showMessage(trelvin::FromCore(failure.what()));
    }
    showReplayInFindingAids();
}

void frmMain::RefreshAr() {
    // Every replay's map starts at the same place: the window returns to its designed size
    // first, unless the user made it fill the screen.
    showDesignedClient();
    grid->build(world_.mapHeight, world_.mapWidth, outerWidthTwips());
    growToShowGrid();
}

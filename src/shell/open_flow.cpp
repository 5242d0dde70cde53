// Opening a replay, from the menu or by a file dropped on the window, and building the map
// grid for it.
#include <algorithm>
#include <exception>
#include <optional>

#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
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
    // The width is read from the laid-out window, shown or not.
    layout()->activate();
    grid->build(world_.mapHeight, world_.mapWidth, outerWidthTwips());
    growToShowGrid();
}

// The grid keeps the place its formula gives it; the window grows to show it whole where
// the screen has room.
void frmMain::growToShowGrid() {
    const trelvin::GridRect content = grid->layout().bounds();
    if (content.isEmpty()) return;
    const int margin = trelvin::TwipsToPixels(120);
    const int clientWidth = trelvin::TwipsToPixels(static_cast<int>(content.right())) + margin;
    const int clientHeight = trelvin::TwipsToPixels(static_cast<int>(content.bottom())) + margin;
    QSize wanted(std::max(width(), clientWidth),
                 std::max(height(), menuBar()->sizeHint().height() + clientHeight));
    if (wanted == size()) return;

    if (const QScreen* display = screen()) {
        const QRect room = display->availableGeometry();
        const QSize frameExtra = frameGeometry().size() - size();
        wanted = wanted.boundedTo(room.size() - frameExtra);
        resize(wanted.expandedTo(size()));
        QRect outer = frameGeometry();
        if (outer.right() > room.right()) outer.moveRight(room.right());
        if (outer.bottom() > room.bottom()) outer.moveBottom(room.bottom());
        move(std::max(outer.left(), room.left()), std::max(outer.top(), room.top()));
    } else {
        resize(wanted);
    }
}

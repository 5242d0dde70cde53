// Opening a replay, from the menu or by a file dropped on the window, in the designed order:
// the old grid goes, the file is chosen, loaded and its first event applied, the new grid is
// built, the panels are enabled and filled, and the buttons follow the position. A failure the
// loader and the executor do not report themselves is shown alone, and ends the flow there.
#include <exception>
#include <optional>

#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include "bridge/core_text.h"
#include "panels/description_strip.h"
#include "panels/field_panel.h"
#include "panels/map_panel.h"
#include "panels/player_panel.h"
#include "shell/frm_main.h"
#include "shell/window_fit.h"

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
    session_->halt();
    bool opened = false;
    try {
        grid->unloadAll();
        const std::optional<QString> chosen = dropped ? dropped : services_.files.chooseFile(session_->fileName());
        session_->open(chosen.value_or(session_->fileName()));
        opened = true;
        RefreshAr();
        Frame1->txtPolicko->setEnabled(true);
        f->cmbHraci->setEnabled(true);
        change_info();
        session_->updateButtons();
        session_->disableStop();
    } catch (const std::exception& failure) {
        services_.messages.showMessage(trelvin::FromCore(failure.what()));
        // A replay read whole whose map the grid cannot hold: the views offer nothing of it, and say so.
        if (opened && session_->loadFailure().isEmpty()) session_->refuseMap();
    }
}

void frmMain::RefreshAr() {
    // Every replay's map starts at the same place: the window returns to its designed size
    // first, unless the user made it fill the screen.
    fit_->showDesignedClient();
    grid->build(outerWidthTwips());
    fit_->growToShowMap();
}

void frmMain::change_info() {
    strip->showTexts();
    f->refreshList();
    strip->showClock();
}

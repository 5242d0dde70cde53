// Opening a replay and building the map grid for it.
#include <algorithm>
#include <exception>

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include "model/replay_loader.h"
#include "model/text_encoding.h"
#include "shell/frm_main.h"
#include "shell/twips.h"
#include "view/map_grid.h"

void frmMain::mnuOtevritItem_Click() {
    StepGuard guard(*this);
    // No tick may step a replay whose grid is being replaced.
    tSlide->stop();
    try {
        grid->unloadAll();
        if (auto chosen = services_.files.chooseFile(fileName_)) fileName_ = *chosen;
        trelvin::LoadReplay(world_, QFile::encodeName(fileName_).toStdString(), reporter_);
        position = 1;
        applyEvent(position);
        RefreshAr();
        txtPolicko->setEnabled(true);
        cmbHraci->setEnabled(true);
        change_info();
        updateButtons();
        cmdS->setEnabled(false);
    } catch (const std::exception& failure) {
        services_.messages.showMessage(QString::fromStdString(trelvin::cp1250ToUtf8(failure.what())));
    }
}

void frmMain::RefreshAr() {
    grid->build(world_.mapHeight, world_.mapWidth, outerWidthTwips());
    growToShowGrid();
}

// The grid keeps the place its formula gives it; the window grows to show it whole where
// the screen has room.
void frmMain::growToShowGrid() {
    const QRectF content = grid->contentRect();
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

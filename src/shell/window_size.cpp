// The map area and the window's size. The map scrolls and zooms in the client area right of
// the panels; the window grows to show a map whole where the screen has room, and returns to
// its designed size for a smaller one.
#include <algorithm>

#include <QDockWidget>
#include <QEvent>
#include <QLayout>
#include <QScreen>

#include "bridge/twips.h"
#include "shell/designed_layout.h"
#include "shell/frm_main.h"
#include "panels/action_list_panel.h"
#include "panels/map_panel.h"

namespace {

using trelvin::TwipsToPixels;

// The map area: right of the panels (they end at 3015) and below the view options, where the
// column letters begin.
constexpr int kMapAreaLeft = 3090;
constexpr int kMapAreaTop = trelvin::GridLayout::kColumnLettersTop;
// Room for the action list's number, time, keyword and a good part of the description; a
// screen without room for the smallest useful list starts with it hidden.
constexpr int kActionListWidth = 480;
constexpr int kSmallestActionList = 240;
// What a window manager's borders may take of the screen's width.
constexpr int kFrameAllowance = 16;
// Room left beyond the map's last field when the window grows to show it.
constexpr int kMapMargin = 8;

constexpr QSize kUnknownFrame(16, 48);

// The designed client area, after start-up removed the slide-show row's strip.
QSize designedClient() {
    return {TwipsToPixels(trelvin::kDesignedClientWidth),
            TwipsToPixels(trelvin::kDesignedClientHeight - trelvin::kSlideRowHeight)};
}

}  // namespace

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == client_ && event->type() == QEvent::Resize) placeMapArea();
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::placeMapArea() {
    const QPoint corner(TwipsToPixels(kMapAreaLeft), TwipsToPixels(kMapAreaTop));
    grid->setGeometry(QRect(corner, QSize(std::max(0, client_->width() - corner.x()),
                                          std::max(0, client_->height() - corner.y()))));
    grid->setAreaOrigin(corner * trelvin::kTwipsPerPixel);
}

void frmMain::settleLayout() {
    layout()->activate();
    centralWidget()->layout()->activate();
}

void frmMain::resizeClient(QSize client) {
    settleLayout();
    QSize wanted = client + (size() - client_->size());
    // The list beside keeps the width it has; the change goes to the designed area.
    const int listWidth = actionDock->isVisible() && !actionDock->isFloating() ? actionDock->width() : 0;
    if (const QScreen* display = screen()) {
        const QRect room = display->availableGeometry();
        // A window manager that has not framed the window yet tells no border: leave room for
        // a usual one, so the title bar stays on the screen.
        QSize frame = frameGeometry().size() - size();
        if (frame.isNull() && isVisible()) frame = kUnknownFrame;
        wanted = wanted.boundedTo(room.size() - frame);
        resize(wanted);
        // A window that grew keeps on the screen.
        QRect outer(frameGeometry().topLeft(), wanted + frame);
        if (outer.right() > room.right()) outer.moveRight(room.right());
        if (outer.bottom() > room.bottom()) outer.moveBottom(room.bottom());
        const QPoint corner(std::max(outer.left(), room.left()), std::max(outer.top(), room.top()));
        if (corner != frameGeometry().topLeft()) move(corner);
    } else {
        resize(wanted);
    }
    if (listWidth > 0) resizeDocks({actionDock}, {listWidth}, Qt::Horizontal);
    settleLayout();
    placeMapArea();
}

void frmMain::fitActionListBeside() {
    // The designed area keeps its size; the panels beside and below it add to the window.
    client_->setMinimumSize(designedClient());
    // The action list stands beside the designed area where the screen has room for it; on a
    // narrow screen it starts hidden, and the menu shows it.
    const int room = (screen() ? screen()->availableGeometry().width() : 1024) -
                     TwipsToPixels(trelvin::kDesignedClientWidth) - kFrameAllowance;
    if (room < kSmallestActionList) {
        actionDock->hide();
    } else {
        actionList->setPreferredWidth(std::min(kActionListWidth, room));
        resize(TwipsToPixels(trelvin::kDesignedClientWidth) + actionDock->sizeHint().width(), height());
    }
    resizeClient(QSize(TwipsToPixels(trelvin::kDesignedClientWidth), TwipsToPixels(trelvin::kDesignedClientHeight)));
}

void frmMain::showDesignedClient() {
    if (!isMaximized() && !isFullScreen()) resizeClient(designedClient());
    settleLayout();
    placeMapArea();
}

void frmMain::growToShowGrid() {
    if (isMaximized() || isFullScreen()) return;
    const QSize content = grid->contentSize(trelvin::MapGrid::kFieldPixels);
    if (content.isEmpty()) return;
    const QPoint corner(TwipsToPixels(kMapAreaLeft), TwipsToPixels(kMapAreaTop));
    resizeClient(designedClient().expandedTo(QSize(corner.x() + content.width() + kMapMargin,
                                                   corner.y() + content.height() + kMapMargin)));
}

int frmMain::outerWidthTwips() const {
    return trelvin::PixelsToTwips(frameGeometry().width() - (width() - client_->width()));
}

#include "shell/window_fit.h"

#include <algorithm>

#include <QDockWidget>
#include <QEvent>
#include <QLayout>
#include <QMainWindow>
#include <QScreen>

#include "bridge/twips.h"
#include "widgets/action_list.h"
#include "shell/designed_layout.h"
#include "widgets/map_grid.h"

namespace trelvin {

namespace {

// The map area: right of the panels (they end at 3015) and below the view options, where the
// column letters begin.
constexpr int kMapAreaLeft = 3090;
constexpr int kMapAreaTop = GridLayout::kColumnLettersTop;
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
    return {TwipsToPixels(kDesignedClientWidth), TwipsToPixels(kDesignedClientHeight - kSlideRowHeight)};
}

}  // namespace

WindowFit::WindowFit(QMainWindow& window, QWidget& client, MapGrid& map, QDockWidget& listDock, ActionList& list)
    : QObject(&window), window_(window), client_(client), map_(map), listDock_(listDock), list_(list) {
    client_.installEventFilter(this);
}

bool WindowFit::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &client_ && event->type() == QEvent::Resize) placeMapArea();
    return QObject::eventFilter(watched, event);
}

void WindowFit::placeMapArea() {
    const QPoint corner(TwipsToPixels(kMapAreaLeft), TwipsToPixels(kMapAreaTop));
    map_.setGeometry(QRect(corner, QSize(std::max(0, client_.width() - corner.x()),
                                         std::max(0, client_.height() - corner.y()))));
    map_.setAreaOrigin(corner * kTwipsPerPixel);
}

void WindowFit::settleLayout() {
    window_.layout()->activate();
    window_.centralWidget()->layout()->activate();
}

void WindowFit::resizeClient(QSize client) {
    settleLayout();
    // The list beside keeps the width it has; the change goes to the designed area.
    const int listWidth = listDock_.isVisible() && !listDock_.isFloating() ? listDock_.width() : 0;
    resizeWindow(client + (window_.size() - client_.size()));
    if (listWidth > 0) window_.resizeDocks({&listDock_}, {listWidth}, Qt::Horizontal);
    settleLayout();
    placeMapArea();
}

void WindowFit::resizeWindow(QSize wanted) {
    if (const QScreen* display = window_.screen()) {
        const QRect room = display->availableGeometry();
        // A window manager that has not framed the window yet tells no border: leave room for
        // a usual one, so the title bar stays on the screen.
        QSize frame = window_.frameGeometry().size() - window_.size();
        if (frame.isNull() && window_.isVisible()) frame = kUnknownFrame;
        wanted = wanted.boundedTo(room.size() - frame);
        window_.resize(wanted);
        // A window that grew keeps on the screen.
        QRect outer(window_.frameGeometry().topLeft(), wanted + frame);
        if (outer.right() > room.right()) outer.moveRight(room.right());
        if (outer.bottom() > room.bottom()) outer.moveBottom(room.bottom());
        const QPoint corner(std::max(outer.left(), room.left()), std::max(outer.top(), room.top()));
        if (corner != window_.frameGeometry().topLeft()) window_.move(corner);
    } else {
        window_.resize(wanted);
    }
}

void WindowFit::makeRoomBelow(QDockWidget& dock, int height) {
    if (dock.isFloating()) return;
    settleLayout();
    const int spare = std::max(0, client_.height() - designedClient().height());
    const int missing = height - dock.height() - spare;
    if (missing > 0 && !window_.isMaximized() && !window_.isFullScreen())
        resizeWindow(window_.size() + QSize(0, missing));
    settleLayout();
    window_.resizeDocks({&dock}, {height}, Qt::Vertical);
    settleLayout();
    placeMapArea();
}

void WindowFit::startDesigned() {
    // The designed area keeps its size; the panels beside and below it add to the window.
    client_.setMinimumSize(designedClient());
    const int room = (window_.screen() ? window_.screen()->availableGeometry().width() : 1024) -
                     TwipsToPixels(kDesignedClientWidth) - kFrameAllowance;
    if (room < kSmallestActionList) {
        listDock_.hide();
    } else {
        list_.setPreferredWidth(std::min(kActionListWidth, room));
        window_.resize(TwipsToPixels(kDesignedClientWidth) + listDock_.sizeHint().width(), window_.height());
    }
    resizeClient(QSize(TwipsToPixels(kDesignedClientWidth), TwipsToPixels(kDesignedClientHeight)));
}

void WindowFit::showDesignedClient() {
    if (!window_.isMaximized() && !window_.isFullScreen()) resizeClient(designedClient());
    settleLayout();
    placeMapArea();
}

void WindowFit::growToShowMap() {
    if (window_.isMaximized() || window_.isFullScreen()) return;
    const QSize content = map_.contentSize(MapGrid::kFieldPixels);
    if (content.isEmpty()) return;
    const QPoint corner(TwipsToPixels(kMapAreaLeft), TwipsToPixels(kMapAreaTop));
    resizeClient(designedClient().expandedTo(QSize(corner.x() + content.width() + kMapMargin,
                                                   corner.y() + content.height() + kMapMargin)));
}

int WindowFit::outerWidthTwips() const {
    return PixelsToTwips(window_.frameGeometry().width() - (window_.width() - client_.width()));
}

}  // namespace trelvin

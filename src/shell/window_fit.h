#pragma once
// The main window's size. The designed client area keeps its size, with the action list beside
// it and the timeline below; opening a replay returns the window to that size, so every map
// starts at the same place, then grows it to show the map whole at 100 % where the screen has
// room, never past the screen. The map area fills the client area right of the panels.
#include <QObject>
#include <QSize>

class QDockWidget;
class QMainWindow;
class QWidget;

namespace trelvin {

class ActionList;
class MapGrid;

class WindowFit : public QObject {
public:
    WindowFit(QMainWindow& window, QWidget& client, MapGrid& map, QDockWidget& listDock, ActionList& list);

    // The window's first size: the designed area, and the action list beside it where the
    // screen has room for it (on a narrow screen the list starts hidden).
    void startDesigned();
    // Back to the designed size, unless the user made the window fill the screen.
    void showDesignedClient();
    // Grown to show the map whole at 100 % where the screen has room.
    void growToShowMap();
    // A dock just shown below the designed area gets `height`: first from what the map area has
    // beyond its designed height, then by a taller window where the screen has room.
    void makeRoomBelow(QDockWidget& dock, int height);
    // Outer width in twips of the window as designed, as the grid's formula reads it: the
    // panels added beside it are not counted.
    int outerWidthTwips() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void resizeClient(QSize client);
    // The window at `wanted`, or as much of it as the screen has room for, kept on the screen.
    void resizeWindow(QSize wanted);
    // Lays the window out now, shown or not, so that sizes read next are current.
    void settleLayout();
    void placeMapArea();

    QMainWindow& window_;
    QWidget& client_;
    MapGrid& map_;
    QDockWidget& listDock_;
    ActionList& list_;
};

}  // namespace trelvin

#pragma once
// The map of the opened replay: the grid built when a replay is opened and redrawn, in the way
// of viewing chosen, after every move and every change of that way, with the current action
// marked over it while that is chosen; and its zoom commands.
#include "widgets/map_grid.h"

class QAction;

namespace trelvin {

class ReplaySession;

class MapPanel : public MapGrid {
    Q_OBJECT

public:
    MapPanel(const ReplaySession& session, QWidget* parent);

    // Builds the grid for the opened replay's map with the window's outer width in twips;
    // throws at the grid's limits, keeping the elements loaded until then.
    void build(double windowWidth);

    QAction* const zoomInAction;
    QAction* const zoomOutAction;
    QAction* const zoomResetAction;
    QAction* const zoomFitAction;
    // Zobrazeni -> Zvyraznit akci: the current action's marks, on at start.
    QAction* const highlightAction;

public slots:
    // The redraw: every field's picture and the marks of the map's frame, as the session's last
    // move or change of the way of viewing drew it.
    void Zobraz();

private:
    const ReplaySession& session_;
};

}  // namespace trelvin

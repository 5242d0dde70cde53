#include "panels/map_panel.h"

#include <QAction>
#include <QKeySequence>

#include "session/replay_session.h"

namespace trelvin {

MapPanel::MapPanel(const ReplaySession& session, QWidget* parent)
    : MapGrid(parent),
      zoomInAction(new QAction(QStringLiteral("Pri&blizit mapu"), this)),
      zoomOutAction(new QAction(QStringLiteral("&Oddalit mapu"), this)),
      zoomResetAction(new QAction(QStringLiteral("&Skutecna velikost (100 %)"), this)),
      zoomFitAction(new QAction(QStringLiteral("&Cela mapa"), this)),
      highlightAction(new QAction(QStringLiteral("&Zvyraznit akci"), this)),
      session_(session) {
    zoomInAction->setObjectName(QStringLiteral("zoomInAction"));
    zoomOutAction->setObjectName(QStringLiteral("zoomOutAction"));
    zoomResetAction->setObjectName(QStringLiteral("zoomResetAction"));
    zoomFitAction->setObjectName(QStringLiteral("zoomFitAction"));
    highlightAction->setObjectName(QStringLiteral("highlightAction"));
    zoomInAction->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    zoomOutAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Minus));
    zoomResetAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_0));
    zoomFitAction->setShortcut(QKeySequence(Qt::Key_F));
    connect(zoomInAction, &QAction::triggered, this, [this] { zoomIn(); });
    connect(zoomOutAction, &QAction::triggered, this, [this] { zoomOut(); });
    connect(zoomResetAction, &QAction::triggered, this, [this] { setFieldPixels(kFieldPixels); });
    connect(zoomFitAction, &QAction::triggered, this, &MapGrid::zoomToFit);
    highlightAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_H));
    highlightAction->setCheckable(true);
    highlightAction->setChecked(true);
    connect(highlightAction, &QAction::toggled, this, &MapPanel::Zobraz);
    connect(&session, &ReplaySession::positionChanged, this, &MapPanel::Zobraz);
    connect(&session, &ReplaySession::viewModeChanged, this, &MapPanel::Zobraz);
}

void MapPanel::build(double windowWidth) {
    const WorldState& world = session_.world();
    MapGrid::build(world.mapHeight, world.mapWidth, windowWidth);
}

void MapPanel::Zobraz() { setFrame(session_.frame(), highlightAction->isChecked()); }

}  // namespace trelvin

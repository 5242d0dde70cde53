#pragma once
// Soubor -> Exportovat obrazek... and Exportovat animaci...: the dialog of the options, then the
// export with a progress dialog once it takes more than half a second; a failure or a cancel
// ends with one message, and a written file is announced.
#include <QObject>
#include <QString>

#include "export/map_export.h"

class QAction;
class QWidget;

namespace trelvin {

class MapPanel;
class MessageService;
class ReplaySession;

class ExportCommands : public QObject {
    Q_OBJECT

public:
    ExportCommands(ReplaySession& session, const MapPanel& map, MessageService& messages, QWidget* window);

    QAction* const pictureAction;
    QAction* const animationAction;

    // Runs an export as the dialog asked for it, in the map's colours.
    ExportOutcome run(ExportJob job);

signals:
    void written(const QString& path);

private:
    void ask(bool animation);
    void followSession();

    ReplaySession& session_;
    const MapPanel& map_;
    MessageService& messages_;
    QWidget* window_;
};

}  // namespace trelvin

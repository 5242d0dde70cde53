#pragma once
// Soubor -> Exportovat obrazek... and Exportovat animaci...: the dialog of the options, then the
// export with a progress dialog once it takes more than half a second; a failure or a cancel
// ends with one message, and a written file is announced. Soubor -> Exportovat jako webovou
// stranku...: the viewer's web page with the replay inside, opening where the window stands.
#include <QObject>
#include <QString>

#include "export/map_export.h"
#include "panels/export_dialog.h"
#include "session/replay_session.h"

class QAction;
class QWidget;

namespace trelvin {

class MapPanel;
class MessageService;

class ExportCommands : public QObject {
    Q_OBJECT

public:
    // `progress` shows how far a long export has come, and lets the user cancel it.
    ExportCommands(ReplaySession& session, const MapPanel& map, MessageService& messages, ProgressShower progress,
                   QWidget* window);

    QAction* const pictureAction;
    QAction* const animationAction;
    QAction* const pageAction;

    // Runs an export as the dialog asked for it, in the map's colours.
    ExportOutcome run(ExportJob job);
    // Writes the web page to `path`; the failure's text, empty when it is written.
    QString writePage(const QString& path);

signals:
    void written(const QString& path);

private:
    void ask(bool animation);
    void askForPage();
    void followSession();

    ReplaySession& session_;
    const MapPanel& map_;
    MessageService& messages_;
    ProgressShower progress_;
    QWidget* window_;
    // What each dialog was left with, offered again for the rest of the run.
    ExportChoices pictureChoices_;
    ExportChoices animationChoices_;
};

}  // namespace trelvin

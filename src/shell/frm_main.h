#pragma once
// The main window. It builds the menus, places the panels where the design puts their controls,
// and runs the open flow; the session moves through the replay, and each panel follows it.
#include <memory>
#include <optional>

#include <QMainWindow>
#include <QString>

#include "session/replay_session.h"
#include "shell/message_reporter.h"
#include "shell/message_service.h"
#include "shell/open_file_service.h"

class QDockWidget;
class QDragEnterEvent;
class QDropEvent;
class QMenu;

namespace trelvin {
class ActionListPanel;
class ChartsPanel;
class ExportCommands;
class DescriptionStrip;
class FieldPanel;
class HelpMenu;
class JumpMenu;
class MapPanel;
class PlaybackCommands;
class PlaybackControls;
class PlayerPanel;
class TimelineStrip;
class ViewModePanel;
class WindowFit;

struct WindowServices {
    MessageService& messages;
    OpenFileService& files;
    ReplayOpener openReplay;  // empty: the file at the path
};
}  // namespace trelvin

class frmMain : public QMainWindow {
    Q_OBJECT

public:
    explicit frmMain(trelvin::WindowServices services, QWidget* parent = nullptr);
    ~frmMain() override;

    trelvin::ReplaySession& session() { return *session_; }
    int outerWidthTwips() const;

    // Object names, by which tests find things: each member below, and each a panel holds, is named
    // as the member; an element of a control array adds its index (ov(1) is "ov1"); a dialog the
    // window opens is named after its kind ("jumpPrompt", "exportDialog", "keyTable").
    QMenu* mnuSoubor;
    QAction* mnuOtevritItem;
    QAction* mnuKonecItem;
    // Additions: the map as a picture, a stretch of the game as an animation.
    trelvin::ExportCommands* exports;

    // The panels, each named as the design names its frame where it has one.
    trelvin::PlaybackCommands* commands;
    trelvin::PlaybackControls* controls;
    trelvin::DescriptionStrip* strip;
    trelvin::ViewModePanel* Frame2;
    trelvin::PlayerPanel* f;
    trelvin::FieldPanel* Frame1;
    trelvin::MapPanel* grid;  // the field pictures m(1..) and the grid labels l(1..)

    // Additions for finding one's way through a long replay.
    QMenu* mnuZobrazeni;
    trelvin::JumpMenu* mnuPrejit;
    trelvin::TimelineStrip* timelineStrip;  // across the whole bottom of the window
    QDockWidget* timelineDock;
    QDockWidget* actionDock;
    trelvin::ActionListPanel* actionList;
    trelvin::HelpMenu* mnuNapoveda;
    // Each player's course over the whole replay, below the window.
    QDockWidget* chartsDock;
    trelvin::ChartsPanel* charts;

public slots:
    void Form_Load();
    void mnuOtevritItem_Click();
    void mnuKonecItem_Click();
    void RefreshAr();
    void change_info();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildPanels(QWidget* client);
    void buildFindingAids();
    void buildCharts();
    void setTabOrderByLayout();
    // The open flow; a dropped file stands in for the dialog's choice.
    void runOpenFlow(const std::optional<QString>& dropped);
    // What a jump or a search for one tells goes to the status line, until the next move or open.
    void showJumpStatus(int position, const QStringList& messages);
    // So does the name of a file the user had written.
    void showWritten(const QString& path);

    trelvin::WindowServices services_;
    trelvin::MessageReporter reporter_;
    trelvin::ReplaySession* session_;
    trelvin::WindowFit* fit_ = nullptr;
};

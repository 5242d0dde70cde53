#pragma once
// The main window. It builds the menus, places the panels where the design puts their controls,
// and runs the open flow; the session moves through the replay, and each panel follows it.
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
class DescriptionStrip;
class FieldPanel;
class MapPanel;
class PlaybackCommands;
class PlaybackControls;
class PlayerPanel;
class TimelineStrip;
class ViewModePanel;
enum class EventKind;

struct WindowServices {
    MessageService& messages;
    OpenFileService& files;
    ApplyEvent applyEvent;    // empty: the executor
    ReplayOpener openReplay;  // empty: the file at the path
};
}  // namespace trelvin

class frmMain : public QMainWindow {
    Q_OBJECT

public:
    explicit frmMain(trelvin::WindowServices services, QWidget* parent = nullptr);
    ~frmMain() override;

    trelvin::ReplaySession& session() { return *session_; }

    // Outer width in twips of the window as designed, as the grid's formula reads it: the
    // panels added beside it are not counted.
    int outerWidthTwips() const;

    QMenu* mnuSoubor;
    QAction* mnuOtevritItem;
    QAction* mnuKonecItem;

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
    QMenu* mnuPrejit;
    QAction* jumpToAction;
    QAction* previousAttack;
    QAction* nextAttack;
    QAction* previousCapture;
    QAction* nextCapture;
    QAction* previousFailure;
    QAction* nextFailure;
    trelvin::TimelineStrip* timelineStrip;
    QDockWidget* actionDock;
    trelvin::ActionListPanel* actionList;

public slots:
    void Form_Load();
    void mnuOtevritItem_Click();
    void mnuKonecItem_Click();
    void RefreshAr();
    void change_info();

    // Goes to the nearest event of a kind after (or before) the current one.
    void jumpToNearest(trelvin::EventKind kind, bool forward);
    // Asks for an action number and goes there.
    void askForJump();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildPanels(QWidget* client);
    void buildFindingAids();
    void setTabOrderByLayout();
    // The open flow; a dropped file stands in for the dialog's choice.
    void runOpenFlow(const std::optional<QString>& dropped);
    // What a jump reported goes to the status line.
    void showJumpStatus(int position, const QStringList& messages);
    // The window's size: the designed client area with the panels around it, grown to show
    // the map at 100 % where the screen has room, never past the screen.
    void fitActionListBeside();
    void showDesignedClient();
    void growToShowGrid();
    void resizeClient(QSize client);
    // Lays the window out now, shown or not, so that sizes read next are current.
    void settleLayout();
    // The map area fills the client area right of the panels and below the view options.
    void placeMapArea();

    trelvin::WindowServices services_;
    trelvin::MessageReporter reporter_;
    trelvin::ReplaySession* session_;
    QWidget* client_ = nullptr;
};

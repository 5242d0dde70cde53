#pragma once
// The main window: every control of the viewer and their handlers. The handlers are thin:
// moving through the replay is the playback's, drawing the map the map grid's, the clock the
// clock face's; the window wires them to its controls and runs the open flow.
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include <QMainWindow>
#include <QString>

#include "model/replay_source.h"
#include "model/world_state.h"
#include "playback/playback.h"
#include "shell/message_reporter.h"
#include "shell/message_service.h"
#include "shell/open_file_service.h"
#include "view/field_pictures.h"

class QAction;
class QComboBox;
class QDockWidget;
class QDragEnterEvent;
class QDropEvent;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QTimer;

namespace trelvin {
class ActionList;
class ActionLog;
class ClockFace;
class MapGrid;
class Timeline;
enum class EventKind;

// Where the bytes of the replay at a chosen path come from: the file in the program.
using ReplayOpener = std::function<std::unique_ptr<ReplaySource>(const QString& path)>;

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
    frmMain(trelvin::WorldState& world, trelvin::WindowServices services,
            QWidget* parent = nullptr);
    ~frmMain() override;

    // Outer width in twips of the window as designed, as the grid's formula reads it: the
    // panels added beside it are not counted.
    int outerWidthTwips() const;

    QMenu* mnuSoubor;
    QAction* mnuOtevritItem;
    QAction* mnuKonecItem;

    std::array<QRadioButton*, 2> ov;
    QPushButton* cmdBegin;
    QPushButton* cmdBack;
    QPushButton* cmdForw;
    QPushButton* cmdEnd;
    QPushButton* cmdSBegin;
    QPushButton* cmdRZ;
    QPushButton* cmdZ;
    QPushButton* cmdS;
    QPushButton* cmdD;
    QPushButton* cmdRD;
    QPushButton* cmdSEnd;
    QLabel* lblTah;
    trelvin::ClockFace* pHod;
    QLabel* lblCas;
    QLabel* lbl;

    QGroupBox* Frame2;
    std::array<QRadioButton*, 3> o;

    QGroupBox* f;
    QComboBox* cmbHraci;
    QLabel* lblPocetTahu;
    QLabel* lblMnozstviNektaru;
    QLabel* lblVeleni;
    QLabel* lblVelikostUzemi;

    QGroupBox* Frame1;
    QLineEdit* txtPolicko;
    QLabel* lblPTyp;
    QLabel* lblPVlastnik;
    QLabel* lblPTypArmady;
    QLabel* lblPPArmady;

    // The field pictures m(1..) and the grid labels l(1..).
    trelvin::MapGrid* grid;
    // The position in the event list and the slide show; tSlide is its timer.
    trelvin::Playback* playback;
    QTimer* tSlide;

    // Additions for finding one's way through a long replay: the menu "Prejit", the timeline
    // strip under the window's controls with the position and the time, and the action list.
    QMenu* mnuZobrazeni;
    QAction* zoomIn;
    QAction* zoomOut;
    QAction* zoomReset;
    QAction* zoomFit;
    QMenu* mnuPrejit;
    QAction* jumpToAction;
    QAction* previousAttack;
    QAction* nextAttack;
    QAction* previousCapture;
    QAction* nextCapture;
    QAction* previousFailure;
    QAction* nextFailure;
    trelvin::Timeline* timeline;
    QLabel* timelinePosition;
    QLabel* timelineTime;
    QDockWidget* actionDock;
    trelvin::ActionList* actionList;

public slots:
    void Form_Load();
    void mnuOtevritItem_Click();
    void mnuKonecItem_Click();
    void RefreshAr();

    void Zobraz();
    void o_Click(int index);
    void m_Click(int index);
    void txtPolicko_Change();

    void cmdBegin_Click();
    void cmdBack_Click();
    void cmdForw_Click();
    void cmdEnd_Click();
    void updateButtons();

    void useTimer(bool forward, std::int16_t interval);
    void tSlide_Timer();
    void cmdS_Click();
    void cmdD_Click();
    void cmdRD_Click();
    void cmdZ_Click();
    void cmdRZ_Click();
    void cmdSBegin_Click();
    void cmdSEnd_Click();
    void ov_Click(int index);

    void change_info();
    void cmbHraci_Click();
    void cmbHraci_Change();

    // Goes straight to an event; what re-applying the events reports goes to the status line.
    void jumpTo(int event);
    // Goes to the nearest event of a kind after (or before) the current one.
    void jumpToNearest(trelvin::EventKind kind, bool forward);
    // Asks for an action number and goes there.
    void askForJump();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildControls();
    void buildFindingAids(QWidget* client);
    void setTabOrderByLayout();
    void connectHandlers();
    void connectKeys();
    // The button a navigation key presses in the current control mode; none when it has none.
    QPushButton* buttonForKey(int key) const;
    // The open flow; a dropped file stands in for the dialog's choice.
    void runOpenFlow(const std::optional<QString>& dropped);
    // The window's size: the designed client area with the panels around it, grown to show
    // the map at 100 % where the screen has room, never past the screen.
    void showDesignedClient();
    void growToShowGrid();
    void resizeClient(QSize client);
    // Lays the window out now, shown or not, so that sizes read next are current.
    void settleLayout();
    // The map area fills the client area right of the panels and below the view options.
    void placeMapArea();
    void buildViewMenu();
    // The refresh after every move: texts, clock and players, then the map.
    void refreshAfterMove();
    void showButtonStates();
    // The label of the progress dialogs: what is worked on, with the file's name.
    QString taskLabel(const char* task) const;
    trelvin::ViewMode viewMode() const;
    // The finding aids follow the position, and a newly opened replay.
    void followPosition();
    void showReplayInFindingAids();
    // The timeline asks once per frame at most: the latest request wins.
    void requestJump(int event);

    trelvin::WorldState& world_;
    trelvin::WindowServices services_;
    trelvin::MessageReporter reporter_;
    QString fileName_;
    QWidget* client_ = nullptr;
    std::unique_ptr<trelvin::ActionLog> log_;
    int pendingJump_ = 0;
};

#pragma once
// The main window: every control of the viewer, the open flow, and the handlers of the map,
// the navigation, the slide show and the position display (each group in its own .cpp).
#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include <QMainWindow>
#include <QString>

#include "model/world_state.h"
#include "shell/message_reporter.h"
#include "shell/message_service.h"
#include "shell/open_file_service.h"
#include "view/field_pictures.h"

class QAction;
class QComboBox;
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
class ClockFace;
class MapGrid;

// Applies one event of the list; the executor in the program, a recording one in tests.
using ApplyEvent = std::function<void(WorldState&, std::int16_t, Reporter&)>;

struct WindowServices {
    MessageService& messages;
    OpenFileService& files;
    ApplyEvent applyEvent;
};
}  // namespace trelvin

class frmMain : public QMainWindow {
    Q_OBJECT

public:
    frmMain(trelvin::WorldState& world, trelvin::WindowServices services,
            QWidget* parent = nullptr);
    ~frmMain() override;

    // Outer width of the window in twips, as the grid's formula reads it.
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
    QTimer* tSlide;

    // Index of the event applied last; 0 before the first replay is opened.
    std::int16_t position = 0;
    bool atBegin = false;
    bool atEnd = false;
    bool slideForward = false;

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

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // Marks a handler that applies events or shows message boxes; a slide-show tick that
    // falls due meanwhile waits until the outermost one ends, and runs at most once.
    class StepGuard {
    public:
        explicit StepGuard(frmMain& window);
        ~StepGuard();
        StepGuard(const StepGuard&) = delete;
        StepGuard& operator=(const StepGuard&) = delete;

    private:
        frmMain& window_;
    };

    void buildControls();
    void setTabOrderByLayout();
    void connectHandlers();
    void connectKeys();
    // The button a navigation key presses in the current control mode; none when it has none.
    QPushButton* buttonForKey(int key) const;
    // The open flow; a dropped file stands in for the dialog's choice.
    void runOpenFlow(const std::optional<QString>& dropped);
    void onSlideTimerTick();
    void growToShowGrid();
    void applyEvent(std::int16_t index);
    void refreshAfterMove();
    trelvin::ViewMode viewMode() const;

    trelvin::WorldState& world_;
    trelvin::WindowServices services_;
    trelvin::MessageReporter reporter_;
    QString fileName_;
    int stepDepth_ = 0;
    bool tickPending_ = false;
};

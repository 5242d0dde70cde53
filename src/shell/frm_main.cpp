// The window's menus and panels, its tab order, and its start-up.
#include "shell/frm_main.h"

#include <vector>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QKeySequence>
#include <QLabel>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

#include "panels/action_list_panel.h"
#include "panels/charts_panel.h"
#include "panels/description_strip.h"
#include "panels/field_panel.h"
#include "panels/help_menu.h"
#include "panels/jump_menu.h"
#include "panels/map_panel.h"
#include "panels/playback_commands.h"
#include "panels/playback_controls.h"
#include "panels/player_panel.h"
#include "panels/timeline_strip.h"
#include "panels/view_mode_panel.h"
#include "shell/export_commands.h"
#include "render/designed_fonts.h"
#include "shell/slow_task_dialog.h"
#include "shell/window_fit.h"

// The pictures and the icon live in the library; make sure the linker keeps them.
static void loadAssets() { Q_INIT_RESOURCE(assets); }

frmMain::frmMain(trelvin::WindowServices services, QWidget* parent)
    : QMainWindow(parent), services_(std::move(services)), reporter_(services_.messages) {
    const trelvin::ProgressShower slowTasks = [this](const QString& label) {
        return std::make_unique<trelvin::SlowTaskDialog>(this, label);
    };
    session_ = new trelvin::ReplaySession({reporter_, services_.openReplay, slowTasks}, this);
    loadAssets();
    trelvin::RegisterDesignedFonts();
    setWindowTitle(QString::fromLatin1(trelvin::kApplicationTitle));
    setWindowIcon(QIcon(QStringLiteral(":/icon/trelvin.png")));

    mnuSoubor = menuBar()->addMenu(QStringLiteral("&Soubor"));
    mnuSoubor->setObjectName(QStringLiteral("mnuSoubor"));
    mnuOtevritItem = mnuSoubor->addAction(QStringLiteral("&Otevrit"));
    mnuOtevritItem->setObjectName(QStringLiteral("mnuOtevritItem"));
    mnuOtevritItem->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    mnuSoubor->addSeparator();
    mnuKonecItem = mnuSoubor->addAction(QStringLiteral("&Konec"));
    mnuKonecItem->setObjectName(QStringLiteral("mnuKonecItem"));
    mnuKonecItem->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(mnuOtevritItem, &QAction::triggered, this, &frmMain::mnuOtevritItem_Click);
    connect(mnuKonecItem, &QAction::triggered, this, &frmMain::mnuKonecItem_Click);

    // The designed client area, the map to the right of its panels.
    auto* central = new QWidget(this);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* client = new QWidget(central);
    client->setStyleSheet(trelvin::DesignedAreaStyle());
    column->addWidget(client, 1);
    setCentralWidget(central);
    buildPanels(client);

    exports = new trelvin::ExportCommands(*session_, *grid, services_.messages, slowTasks, this);
    exports->setObjectName(QStringLiteral("exports"));
    mnuSoubor->insertActions(mnuKonecItem, {exports->pictureAction, exports->animationAction, exports->pageAction});
    mnuSoubor->insertSeparator(mnuKonecItem);
    connect(exports, &trelvin::ExportCommands::written, this, &frmMain::showWritten);

    mnuZobrazeni = menuBar()->addMenu(QStringLiteral("&Zobrazeni"));
    mnuZobrazeni->setObjectName(QStringLiteral("mnuZobrazeni"));
    mnuZobrazeni->addActions({grid->zoomInAction, grid->zoomOutAction, grid->zoomResetAction, grid->zoomFitAction});
    mnuZobrazeni->addSeparator();
    mnuZobrazeni->addAction(grid->highlightAction);
    buildFindingAids();
    buildCharts();
    mnuNapoveda = new trelvin::HelpMenu(this);
    mnuNapoveda->setObjectName(QStringLiteral("mnuNapoveda"));
    menuBar()->addMenu(mnuNapoveda);
    mnuNapoveda->listKeysOf(*controls, *menuBar());
    setTabOrderByLayout();
    controls->installKeys(this);
    setAcceptDrops(true);
    fit_ = new trelvin::WindowFit(*this, *client, *grid, *actionDock, *actionList);
    fit_->startDesigned();
    Form_Load();
}

frmMain::~frmMain() = default;

void frmMain::buildPanels(QWidget* client) {
    // Beneath the other controls lie the map, then the labels: in slide-show mode the stop
    // button covers the position's label.
    grid = new trelvin::MapPanel(*session_, client);
    grid->setObjectName(QStringLiteral("grid"));
    strip = new trelvin::DescriptionStrip(*session_, client);
    strip->setObjectName(QStringLiteral("strip"));
    commands = new trelvin::PlaybackCommands(*session_, this);
    commands->setObjectName(QStringLiteral("commands"));
    controls = new trelvin::PlaybackControls(*session_, *commands, client);
    controls->setObjectName(QStringLiteral("controls"));
    Frame2 = new trelvin::ViewModePanel(*session_, client);
    Frame2->setObjectName(QStringLiteral("Frame2"));
    f = new trelvin::PlayerPanel(*session_, client);
    f->setObjectName(QStringLiteral("f"));
    Frame1 = new trelvin::FieldPanel(*session_, client);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    strip->lower();
    grid->lower();
    connect(grid, &trelvin::MapGrid::clicked, Frame1, &trelvin::FieldPanel::m_Click);
    // Every move redraws the fields the grid holds, those it loaded before a failure included.
    connect(grid, &trelvin::MapGrid::fieldsChanged, session_, &trelvin::ReplaySession::setMapFields);
}

void frmMain::setTabOrderByLayout() {
    const trelvin::PlaybackControls& c = *controls;
    const std::vector<QWidget*> order{c.ov[0],   c.ov[1],    c.cmdBegin,  c.cmdBack,  c.cmdForw, c.cmdEnd,
                                      c.cmdSBegin, c.cmdRZ,  c.cmdZ,      c.cmdS,     c.cmdD,    c.cmdRD,
                                      c.cmdSEnd, Frame2->o[0], Frame2->o[1], Frame2->o[2], f->cmbHraci, Frame1->txtPolicko};
    for (std::size_t index = 1; index < order.size(); ++index) setTabOrder(order[index - 1], order[index]);
}

// Start-up moves the slide-show row onto the step row and removes the strip it was designed in.
void frmMain::Form_Load() {
    controls->moveSlideRowOntoStepRow();
    resize(width(), height() - controls->cmdD->height());
}

void frmMain::mnuKonecItem_Click() { QApplication::quit(); }

int frmMain::outerWidthTwips() const { return fit_->outerWidthTwips(); }

// The menu "Prejit", the timeline across the bottom, the action list beside the window, and the
// status line that tells what a jump's events reported: they go there, never into one message
// box each.
void frmMain::buildFindingAids() {
    // The timeline as wide as the window: under the map and the panels and under the list.
    timelineStrip = new trelvin::TimelineStrip(*session_, this);
    timelineStrip->setObjectName(QStringLiteral("timelineStrip"));
    timelineDock = new QDockWidget(QStringLiteral("Casova osa"), this);
    timelineDock->setObjectName(QStringLiteral("timelineDock"));
    timelineDock->setWidget(timelineStrip);
    timelineDock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    timelineDock->setTitleBarWidget(new QWidget(timelineDock));
    setCorner(Qt::BottomLeftCorner, Qt::BottomDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::BottomDockWidgetArea);
    addDockWidget(Qt::BottomDockWidgetArea, timelineDock);

    mnuPrejit = new trelvin::JumpMenu(*session_, this);
    mnuPrejit->setObjectName(QStringLiteral("mnuPrejit"));
    menuBar()->addMenu(mnuPrejit);
    mnuPrejit->addSeparator();
    actionList = new trelvin::ActionListPanel(*session_, this);
    actionList->setObjectName(QStringLiteral("actionList"));
    actionDock = new QDockWidget(QStringLiteral("Seznam akci"), this);
    actionDock->setObjectName(QStringLiteral("actionDock"));
    actionDock->setWidget(actionList);
    actionDock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    addDockWidget(Qt::RightDockWidgetArea, actionDock);
    QAction* showList = actionDock->toggleViewAction();
    showList->setText(QStringLiteral("&Seznam akci"));
    showList->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    mnuPrejit->addAction(showList);
    statusBar()->setSizeGripEnabled(true);
    // The map's zoom, at the right end of the status line.
    zoomLabel = new QLabel(this);
    zoomLabel->setObjectName(QStringLiteral("zoomLabel"));
    const auto showZoom = [this](int pixels) {
        zoomLabel->setText(QStringLiteral("Mapa %1 %").arg(pixels * 100 / trelvin::MapGrid::kFieldPixels));
    };
    showZoom(grid->fieldPixels());
    connect(grid, &trelvin::MapGrid::zoomChanged, this, showZoom);
    statusBar()->addPermanentWidget(zoomLabel);
    // A jump moves first, then tells: the move clears the line, the jump writes it.
    connect(session_, &trelvin::ReplaySession::positionChanged, statusBar(), &QStatusBar::clearMessage);
    connect(session_, &trelvin::ReplaySession::opened, statusBar(), &QStatusBar::clearMessage);
    connect(session_, &trelvin::ReplaySession::jumped, this, &frmMain::showJumpStatus);
    connect(mnuPrejit, &trelvin::JumpMenu::nothingFound, this, [this](const QString& text) { statusBar()->showMessage(text); });
}

void frmMain::showJumpStatus(int position, const QStringList& messages) {
    QString status = QStringLiteral("Akce %1").arg(position);
    if (!messages.isEmpty())
        status += QStringLiteral(": %1 hlaseni, posledni: %2").arg(messages.size()).arg(messages.back());
    statusBar()->showMessage(status);
}

// Below the window and hidden at first: the designed window stays as it was until the user asks
// for the charts, which then get room of their own.
void frmMain::buildCharts() {
    constexpr int kChartsHeight = 260;
    charts = new trelvin::ChartsPanel(*session_, this);
    charts->setObjectName(QStringLiteral("charts"));
    chartsDock = new QDockWidget(QStringLiteral("Prubeh hry"), this);
    chartsDock->setObjectName(QStringLiteral("chartsDock"));
    chartsDock->setWidget(charts);
    chartsDock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable |
                            QDockWidget::DockWidgetFloatable);
    // Under the timeline and as wide as the window, like the timeline.
    addDockWidget(Qt::BottomDockWidgetArea, chartsDock, Qt::Vertical);
    chartsDock->hide();
    QAction* showCharts = chartsDock->toggleViewAction();
    showCharts->setText(QStringLiteral("&Prubeh hry"));
    showCharts->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    mnuZobrazeni->addSeparator();
    mnuZobrazeni->addAction(showCharts);
    connect(showCharts, &QAction::triggered, this, [this](bool shown) {
        // Once the dock has its place in the layout, which showing it asks for on the next pass.
        if (shown) QTimer::singleShot(0, this, [this] { fit_->makeRoomBelow(*chartsDock, kChartsHeight); });
    });
    connect(charts, &trelvin::ChartsPanel::csvWritten, this, &frmMain::showWritten);
    connect(charts, &trelvin::ChartsPanel::csvFailed, this, [this](const QString& text) {
        services_.messages.showMessage(QStringLiteral("Chyba pri ukladani CSV - ") + text);
    });
}

void frmMain::showWritten(const QString& path) { statusBar()->showMessage(QStringLiteral("Ulozeno: ") + path); }

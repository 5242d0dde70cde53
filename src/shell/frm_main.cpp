// The window's controls, their keys and tab order, and its start-up.
#include "shell/frm_main.h"

#include <initializer_list>
#include <utility>
#include <vector>

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QDockWidget>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

#include "bridge/twips.h"
#include "playback/action_list.h"
#include "playback/clock_face.h"
#include "playback/timeline.h"
#include "shell/designed_fonts.h"
#include "shell/designed_layout.h"
#include "shell/slow_task_dialog.h"
#include "history/replay_history.h"
#include "view/map_grid.h"

using trelvin::kDesignedClientHeight;
using trelvin::kDesignedClientWidth;
using trelvin::kSlideRowHeight;
using trelvin::PlaceByTwips;
using trelvin::TwipsToPixels;

namespace {

// What a window manager's borders may take of the screen's width.
constexpr int kFrameAllowance = 16;
// Room for the action list's number, time, keyword and a good part of the description; a
// screen without room for the smallest useful list starts with it hidden.
constexpr int kActionListWidth = 480;
constexpr int kSmallestActionList = 240;

QPushButton* makeButton(QWidget* parent, const char* caption, int left, int top, int width) {
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    PlaceByTwips(button, left, top, width, 375);
    button->setEnabled(false);
    button->setAutoDefault(false);
    return button;
}

QLabel* makeLabel(QWidget* parent, const char* caption, Qt::Alignment alignment, int left,
                  int top, int width, int height) {
    auto* label = new QLabel(QString::fromLatin1(caption), parent);
    label->setAlignment(alignment | Qt::AlignTop);
    PlaceByTwips(label, left, top, width, height);
    return label;
}

QRadioButton* makeOption(QWidget* parent, const char* caption, int left, int top, int width,
                         int height) {
    auto* option = new QRadioButton(QString::fromLatin1(caption), parent);
    PlaceByTwips(option, left, top, width, height);
    return option;
}

// Option buttons that exclude only each other: left to themselves, options on one window
// exclude those inside its frames too, and a selected option could be clicked off.
void groupOptions(QObject* owner, std::initializer_list<QRadioButton*> options) {
    auto* group = new QButtonGroup(owner);
    for (QRadioButton* option : options) group->addButton(option);
}

QGroupBox* makeFrame(QWidget* parent, const char* caption, int left, int top, int width,
                     int height) {
    auto* frame = new QGroupBox(QString::fromLatin1(caption), parent);
    PlaceByTwips(frame, left, top, width, height);
    return frame;
}

}  // namespace

// The pictures and the icon live in the library; make sure the linker keeps them.
static void loadAssets() { Q_INIT_RESOURCE(assets); }

frmMain::frmMain(trelvin::WorldState& world, trelvin::WindowServices services, QWidget* parent)
    : QMainWindow(parent), world_(world), services_(std::move(services)),
      reporter_(services_.messages) {
    playback = new trelvin::Playback(world_, reporter_, services_.applyEvent, this);
    playback->setRebuildProgress([this] {
        return std::make_unique<trelvin::SlowTaskDialog>(this, taskLabel("Prepocitavani tahu"));
    });
    tSlide = playback->timer();
    if (!services_.openReplay)
        services_.openReplay = [](const QString& path) {
            return std::make_unique<trelvin::ReplayFile>(QFile::encodeName(path).toStdString());
        };
    loadAssets();
    trelvin::RegisterDesignedFonts();
    setWindowTitle(QString::fromLatin1(trelvin::kApplicationTitle));
    setWindowIcon(QIcon(QStringLiteral(":/icon/trelvin.png")));
    buildControls();
    setTabOrderByLayout();
    connectHandlers();
    connectKeys();
    setAcceptDrops(true);
    Form_Load();
}

frmMain::~frmMain() = default;

void frmMain::buildControls() {
    mnuSoubor = menuBar()->addMenu(QStringLiteral("&Soubor"));
    mnuOtevritItem = mnuSoubor->addAction(QStringLiteral("&Otevrit"));
    mnuKonecItem = mnuSoubor->addAction(QStringLiteral("&Konec"));

    // The designed client area on top; the strip of the finding aids below it.
    auto* central = new QWidget(this);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* client = new QWidget(central);
    client_ = client;
    column->addWidget(client, 1);
    setCentralWidget(central);
    client->setStyleSheet(trelvin::DesignedAreaStyle());

    ov[0] = makeOption(client, "Ovladat po tazich", 240, 120, 2895, 255);
    ov[1] = makeOption(client, "Slide-show", 3240, 120, 2895, 255);
    ov[0]->setChecked(true);
    groupOptions(this, {ov[0], ov[1]});

    cmdBegin = makeButton(client, "|<--", 720, 480, 735);
    cmdBack = makeButton(client, "<----", 1440, 480, 1215);
    cmdForw = makeButton(client, "---->", 3840, 480, 1215);
    cmdEnd = makeButton(client, "-->|", 5040, 480, 735);

    cmdSBegin = makeButton(client, "|<--", 600, 6000, 495);
    cmdRZ = makeButton(client, "<----", 1200, 6000, 855);
    cmdZ = makeButton(client, "<--", 2040, 6000, 855);
    cmdS = makeButton(client, "II", 2880, 6000, 855);
    cmdD = makeButton(client, "-->", 3720, 6000, 855);
    cmdRD = makeButton(client, "---->", 4560, 6000, 855);
    cmdSEnd = makeButton(client, "-->|", 5520, 6000, 495);
    for (QPushButton* button : {cmdSBegin, cmdRZ, cmdZ, cmdS, cmdD, cmdRD, cmdSEnd})
        button->setVisible(false);

    lblTah = makeLabel(client, "0", Qt::AlignHCenter, 2760, 600, 975, 255);
    pHod = new trelvin::ClockFace(client);
    PlaceByTwips(pHod, 120, 960, trelvin::ClockFace::kSizeTwips, trelvin::ClockFace::kSizeTwips);
    lblCas = makeLabel(client, "", Qt::AlignHCenter, 1200, 840, 5295, 375);
    lblCas->setObjectName(QStringLiteral("lblCas"));
    lbl = makeLabel(client, "", Qt::AlignHCenter, 1200, 1200, 5295, 855);
    lbl->setWordWrap(true);
    // Labels lie beneath the other controls: in slide-show mode the stop button covers lblTah.
    for (QLabel* label : {lblTah, lblCas, lbl}) label->lower();

    Frame2 = makeFrame(client, "Zpusob videni", 120, 2040, 6375, 615);
    o[0] = makeOption(Frame2, "Jako louka", 120, 240, 1815, 255);
    o[1] = makeOption(Frame2, "Jako les", 2400, 240, 1815, 255);
    o[2] = makeOption(Frame2, "Videt vse", 4320, 240, 1815, 255);
    o[2]->setChecked(true);
    groupOptions(this, {o[0], o[1], o[2]});

    f = makeFrame(client, "Hraci", 120, 2640, 2895, 1575);
    makeLabel(f, "Hrac", Qt::AlignLeft, 120, 240, 975, 255);
    cmbHraci = new QComboBox(f);
    cmbHraci->setEditable(true);
    cmbHraci->setInsertPolicy(QComboBox::NoInsert);
    cmbHraci->setEditText(QStringLiteral("Zvolte hrace"));
    cmbHraci->setEnabled(false);
    // A file dropped anywhere opens it, the text fields included.
    cmbHraci->lineEdit()->setAcceptDrops(false);
    PlaceByTwips(cmbHraci, 1320, 120, 1455, 315);
    makeLabel(f, "Pocet tahu", Qt::AlignLeft, 120, 480, 1095, 255);
    lblPocetTahu = makeLabel(f, "", Qt::AlignRight, 1440, 480, 1335, 255);
    makeLabel(f, "Mnozstvi nektaru", Qt::AlignLeft, 120, 720, 1215, 255);
    lblMnozstviNektaru = makeLabel(f, "", Qt::AlignRight, 1440, 720, 1335, 255);
    makeLabel(f, "Veleni", Qt::AlignLeft, 120, 960, 1335, 255);
    lblVeleni = makeLabel(f, "", Qt::AlignRight, 1440, 960, 1335, 255);
    makeLabel(f, "Velikost uzemi", Qt::AlignLeft, 120, 1200, 1215, 255);
    lblVelikostUzemi = makeLabel(f, "", Qt::AlignRight, 1320, 1200, 1455, 255);

    Frame1 = makeFrame(client, "Info o policku", 120, 4320, 2895, 1575);
    makeLabel(Frame1, "Policko", Qt::AlignLeft, 120, 240, 1215, 255);
    txtPolicko = new QLineEdit(Frame1);
    txtPolicko->setAlignment(Qt::AlignHCenter);
    txtPolicko->setMaxLength(3);
    txtPolicko->setEnabled(false);
    txtPolicko->setAcceptDrops(false);
    PlaceByTwips(txtPolicko, 1920, 200, 855, 285);
    makeLabel(Frame1, "Typ", Qt::AlignLeft, 120, 480, 1215, 255);
    lblPTyp = makeLabel(Frame1, "", Qt::AlignRight, 1560, 480, 1215, 255);
    makeLabel(Frame1, "Vlastnik", Qt::AlignLeft, 120, 720, 1335, 255);
    lblPVlastnik = makeLabel(Frame1, "", Qt::AlignRight, 1440, 720, 1335, 255);
    makeLabel(Frame1, "Typ armady", Qt::AlignLeft, 120, 960, 1335, 255);
    lblPTypArmady = makeLabel(Frame1, "", Qt::AlignRight, 1440, 960, 1335, 255);
    makeLabel(Frame1, "Pocet armady", Qt::AlignLeft, 120, 1200, 1335, 255);
    lblPPArmady = makeLabel(Frame1, "", Qt::AlignRight, 1320, 1200, 1455, 255);

    // The map lies beneath the controls: the view options' frame keeps its lower edge.
    grid = new trelvin::MapGrid(world_, client);
    grid->lower();
    client->installEventFilter(this);

    buildViewMenu();
    buildFindingAids(central);
    column->addWidget(timeline->parentWidget());
    // The designed area keeps its size; the panels beside and below it add to the window.
    client->setMinimumSize(TwipsToPixels(kDesignedClientWidth),
                           TwipsToPixels(kDesignedClientHeight - kSlideRowHeight));
    // The action list stands beside the designed area where the screen has room for it; on a
    // narrow screen it starts hidden, and the menu shows it.
    const int room = (screen() ? screen()->availableGeometry().width() : 1024) -
                     TwipsToPixels(kDesignedClientWidth) - kFrameAllowance;
    if (room < kSmallestActionList)
        actionDock->hide();
    else {
        actionList->setPreferredWidth(std::min(kActionListWidth, room));
        resize(TwipsToPixels(kDesignedClientWidth) + actionDock->sizeHint().width(), height());
    }
    resizeClient(QSize(TwipsToPixels(kDesignedClientWidth), TwipsToPixels(kDesignedClientHeight)));
}

void frmMain::connectHandlers() {
    connect(mnuOtevritItem, &QAction::triggered, this, &frmMain::mnuOtevritItem_Click);
    connect(mnuKonecItem, &QAction::triggered, this, &frmMain::mnuKonecItem_Click);
    for (int index = 0; index < 2; ++index)
        connect(ov[index], &QRadioButton::clicked, this, [this, index] { ov_Click(index); });
    for (int index = 0; index < 3; ++index)
        connect(o[index], &QRadioButton::clicked, this, [this, index] { o_Click(index); });
    connect(grid, &trelvin::MapGrid::clicked, this, &frmMain::m_Click);
    connect(txtPolicko, &QLineEdit::textChanged, this, &frmMain::txtPolicko_Change);
    connect(cmbHraci, &QComboBox::activated, this, &frmMain::cmbHraci_Click);
    // The box is narrow for long names: its tooltip tells the whole entry.
    connect(cmbHraci, &QComboBox::currentTextChanged, cmbHraci, &QComboBox::setToolTip);
    connect(cmbHraci->lineEdit(), &QLineEdit::textEdited, this, &frmMain::cmbHraci_Change);

    connect(cmdBegin, &QPushButton::clicked, this, &frmMain::cmdBegin_Click);
    connect(cmdBack, &QPushButton::clicked, this, &frmMain::cmdBack_Click);
    connect(cmdForw, &QPushButton::clicked, this, &frmMain::cmdForw_Click);
    connect(cmdEnd, &QPushButton::clicked, this, &frmMain::cmdEnd_Click);
    connect(cmdSBegin, &QPushButton::clicked, this, &frmMain::cmdSBegin_Click);
    connect(cmdRZ, &QPushButton::clicked, this, &frmMain::cmdRZ_Click);
    connect(cmdZ, &QPushButton::clicked, this, &frmMain::cmdZ_Click);
    connect(cmdS, &QPushButton::clicked, this, &frmMain::cmdS_Click);
    connect(cmdD, &QPushButton::clicked, this, &frmMain::cmdD_Click);
    connect(cmdRD, &QPushButton::clicked, this, &frmMain::cmdRD_Click);
    connect(cmdSEnd, &QPushButton::clicked, this, &frmMain::cmdSEnd_Click);
    connect(playback, &trelvin::Playback::moved, this, &frmMain::refreshAfterMove);
    connect(playback, &trelvin::Playback::buttonsChanged, this, &frmMain::showButtonStates);
}

QPushButton* frmMain::buttonForKey(int key) const {
    const bool stepMode = ov[0]->isChecked();
    switch (key) {
    case Qt::Key_Left: return stepMode ? cmdBack : nullptr;
    case Qt::Key_Right: return stepMode ? cmdForw : nullptr;
    case Qt::Key_Home: return stepMode ? cmdBegin : cmdSBegin;
    case Qt::Key_End: return stepMode ? cmdEnd : cmdSEnd;
    case Qt::Key_Space:
        if (stepMode) return nullptr;
        return tSlide->isActive() ? cmdS : cmdD;
    default: return nullptr;
    }
}

void frmMain::connectKeys() {
    mnuOtevritItem->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    mnuKonecItem->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

    // Window shortcuts yield to a focused text field, which claims its editing keys first.
    std::vector<std::pair<int, QShortcut*>> keys;
    for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Space}) {
        auto* shortcut = new QShortcut(QKeySequence(key), this);
        // A click does nothing on a disabled button, as with the mouse.
        connect(shortcut, &QShortcut::activated, this, [this, key] {
            if (QPushButton* button = buttonForKey(key)) button->click();
        });
        keys.emplace_back(key, shortcut);
    }
    // A key without a button in the current mode stays with the focused control.
    const auto followMode = [this, keys] {
        for (const auto& [key, shortcut] : keys) shortcut->setEnabled(buttonForKey(key) != nullptr);
    };
    connect(ov[0], &QRadioButton::toggled, this, followMode);
    followMode();
}

void frmMain::setTabOrderByLayout() {
    const std::vector<QWidget*> order{ov[0],  ov[1],  cmdBegin, cmdBack, cmdForw,  cmdEnd,
                                      cmdSBegin, cmdRZ, cmdZ,   cmdS,    cmdD,     cmdRD,
                                      cmdSEnd, o[0],   o[1],     o[2],    cmbHraci, txtPolicko};
    for (std::size_t index = 1; index < order.size(); ++index)
        setTabOrder(order[index - 1], order[index]);
}

void frmMain::Form_Load() {
    const int rowTop = cmdForw->y();
    for (QPushButton* button : {cmdSBegin, cmdZ, cmdRZ, cmdS, cmdD, cmdRD, cmdSEnd})
        button->move(button->x(), rowTop);
    resize(width(), height() - cmdD->height());
}

QString frmMain::taskLabel(const char* task) const {
    return QStringLiteral("%1: %2").arg(QString::fromLatin1(task), QFileInfo(fileName_).fileName());
}

void frmMain::mnuKonecItem_Click() { QApplication::quit(); }

int frmMain::outerWidthTwips() const {
    return trelvin::PixelsToTwips(frameGeometry().width() - (width() - client_->width()));
}

#include "panels/playback_controls.h"

#include <algorithm>
#include <initializer_list>

#include <QAction>
#include <QButtonGroup>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

#include "bridge/twips.h"
#include "panels/playback_commands.h"
#include "session/replay_session.h"

namespace trelvin {

namespace {

// The designed top of the slide-show row, below the window's panels; start-up moves it up.
constexpr int kSlideRowTop = 6000;
constexpr int kButtonHeight = 375;

// Each button tells what it does, and the key that presses it where it has one.
QPushButton* makeButton(QWidget* parent, const char* name, const char* caption, int left, int top, int width,
                        const char* hint) {
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(QString::fromLatin1(hint));
    PlaceByTwips(button, left, top, width, kButtonHeight);
    button->setEnabled(false);
    button->setAutoDefault(false);
    return button;
}

QRadioButton* makeOption(QWidget* parent, const char* name, const char* caption, int left) {
    auto* option = new QRadioButton(QString::fromLatin1(caption), parent);
    option->setObjectName(QString::fromLatin1(name));
    PlaceByTwips(option, left, 120, 2895, 255);
    return option;
}

}  // namespace

PlaybackControls::PlaybackControls(ReplaySession& session, PlaybackCommands& commands, QWidget* parent)
    : QWidget(parent), session_(session), commands_(commands) {
    // From the window's corner to the end of the second option, down to the step row's lower edge.
    PlaceByTwips(this, 0, 0, 6135, 480 + kButtonHeight);
    ov[0] = makeOption(this, "ov0", "Ovladat po tazich", 240);
    ov[1] = makeOption(this, "ov1", "Slide-show", 3240);
    ov[0]->setChecked(true);
    // The two options exclude only each other, not the view options elsewhere in the window.
    auto* modes = new QButtonGroup(this);
    for (int index = 0; index < 2; ++index) {
        modes->addButton(ov[index]);
        connect(ov[index], &QRadioButton::clicked, this, [this, index] { ov_Click(index); });
    }

    cmdBegin = makeButton(this, "cmdBegin", "|<--", 720, 480, 735, "Prvni akce (Home)");
    cmdBack = makeButton(this, "cmdBack", "<----", 1440, 480, 1215, "O akci zpet (Sipka vlevo)");
    cmdForw = makeButton(this, "cmdForw", "---->", 3840, 480, 1215, "O akci vpred (Sipka vpravo)");
    cmdEnd = makeButton(this, "cmdEnd", "-->|", 5040, 480, 735, "Posledni akce (End)");

    cmdSBegin = makeButton(this, "cmdSBegin", "|<--", 600, kSlideRowTop, 495, "Prvni akce, prehravani bezi dal (Home)");
    cmdRZ = makeButton(this, "cmdRZ", "<----", 1200, kSlideRowTop, 855, "Prehravat pozpatku, akce kazdou sekundu (bez klavesy)");
    cmdZ = makeButton(this, "cmdZ", "<--", 2040, kSlideRowTop, 855, "Prehravat pozpatku, akce kazdych 5 sekund (bez klavesy)");
    cmdS = makeButton(this, "cmdS", "II", 2880, kSlideRowTop, 855, "Zastavit prehravani (Mezernik)");
    cmdD = makeButton(this, "cmdD", "-->", 3720, kSlideRowTop, 855, "Prehravat, akce kazdych 5 sekund (Mezernik)");
    cmdRD = makeButton(this, "cmdRD", "---->", 4560, kSlideRowTop, 855, "Prehravat, akce kazdou sekundu (bez klavesy)");
    cmdSEnd = makeButton(this, "cmdSEnd", "-->|", 5520, kSlideRowTop, 495, "Posledni akce, prehravani bezi dal (End)");
    for (QPushButton* button : {cmdSBegin, cmdRZ, cmdZ, cmdS, cmdD, cmdRD, cmdSEnd}) button->setVisible(false);

    bind(cmdBegin, commands_.first, &PlaybackControls::cmdBegin_Click);
    bind(cmdBack, commands_.back, &PlaybackControls::cmdBack_Click);
    bind(cmdForw, commands_.forward, &PlaybackControls::cmdForw_Click);
    bind(cmdEnd, commands_.last, &PlaybackControls::cmdEnd_Click);
    bind(cmdSBegin, commands_.first, &PlaybackControls::cmdSBegin_Click);
    bind(cmdRZ, commands_.playBackFast, &PlaybackControls::cmdRZ_Click);
    bind(cmdZ, commands_.playBackSlow, &PlaybackControls::cmdZ_Click);
    bind(cmdS, commands_.stop, &PlaybackControls::cmdS_Click);
    bind(cmdD, commands_.playForwardSlow, &PlaybackControls::cmdD_Click);
    bind(cmdRD, commands_.playForwardFast, &PlaybackControls::cmdRD_Click);
    bind(cmdSEnd, commands_.last, &PlaybackControls::cmdSEnd_Click);
}

void PlaybackControls::bind(QPushButton* button, QAction* command, void (PlaybackControls::*handler)()) {
    commandOf_[button] = command;
    connect(button, &QPushButton::clicked, this, handler);
    connect(command, &QAction::changed, button, [button, command] { button->setEnabled(command->isEnabled()); });
}

void PlaybackControls::cmdBegin_Click() { commands_.first->trigger(); }
void PlaybackControls::cmdBack_Click() { commands_.back->trigger(); }
void PlaybackControls::cmdForw_Click() { commands_.forward->trigger(); }
void PlaybackControls::cmdEnd_Click() { commands_.last->trigger(); }
void PlaybackControls::cmdSBegin_Click() { cmdBegin_Click(); }
void PlaybackControls::cmdRZ_Click() { commands_.playBackFast->trigger(); }
void PlaybackControls::cmdZ_Click() { commands_.playBackSlow->trigger(); }
void PlaybackControls::cmdS_Click() { commands_.stop->trigger(); }
void PlaybackControls::cmdD_Click() { commands_.playForwardSlow->trigger(); }
void PlaybackControls::cmdRD_Click() { commands_.playForwardFast->trigger(); }
void PlaybackControls::cmdSEnd_Click() { cmdEnd_Click(); }

bool PlaybackControls::stepMode() const { return ov[0]->isChecked(); }

void PlaybackControls::ov_Click(int) {
    session_.halt();
    const bool steps = stepMode();
    for (QPushButton* button : {cmdBack, cmdForw, cmdBegin, cmdEnd}) button->setVisible(steps);
    for (QPushButton* button : {cmdSBegin, cmdRD, cmdD, cmdS, cmdZ, cmdRZ, cmdSEnd}) button->setVisible(!steps);
}

void PlaybackControls::moveSlideRowOntoStepRow() {
    const int rowTop = cmdForw->y();
    for (QPushButton* button : {cmdSBegin, cmdZ, cmdRZ, cmdS, cmdD, cmdRD, cmdSEnd}) button->move(button->x(), rowTop);
}

namespace {

constexpr int kKeys[] = {Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End, Qt::Key_Space};

}  // namespace

QPushButton* PlaybackControls::buttonForKey(int key, bool steps, bool playing) const {
    switch (key) {
        case Qt::Key_Left: return steps ? cmdBack : nullptr;
        case Qt::Key_Right: return steps ? cmdForw : nullptr;
        case Qt::Key_Home: return steps ? cmdBegin : cmdSBegin;
        case Qt::Key_End: return steps ? cmdEnd : cmdSEnd;
        case Qt::Key_Space:
            if (steps) return nullptr;
            return playing ? cmdS : cmdD;
        default: return nullptr;
    }
}

QPushButton* PlaybackControls::buttonForKey(int key) const { return buttonForKey(key, stepMode(), session_.isPlaying()); }

std::vector<std::pair<QKeySequence, std::vector<const QAction*>>> PlaybackControls::keyCommands() const {
    std::vector<std::pair<QKeySequence, std::vector<const QAction*>>> result;
    for (const int key : kKeys) {
        std::vector<const QAction*> commands;
        for (const bool steps : {true, false})
            for (const bool playing : {false, true})
                if (const QPushButton* button = buttonForKey(key, steps, playing)) {
                    const QAction* command = commandOf_.at(button);
                    if (std::find(commands.begin(), commands.end(), command) == commands.end()) commands.push_back(command);
                }
        result.emplace_back(QKeySequence(key), commands);
    }
    return result;
}

void PlaybackControls::installKeys(QWidget* window) {
    // Window shortcuts yield to a focused text field, which claims its editing keys first.
    std::vector<std::pair<int, QShortcut*>> keys;
    for (const int key : kKeys) {
        auto* shortcut = new QShortcut(QKeySequence(key), window);
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

}  // namespace trelvin

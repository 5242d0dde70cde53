#pragma once
// The top of the window: the two control modes, the step row (|<--  <----  ---->  -->|) and
// the slide-show row that takes its place in the show's mode. Each button triggers its command
// and is enabled as the command is; the keys press the button of the mode shown.
#include <array>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include <QKeySequence>

#include <QWidget>

class QAction;
class QPushButton;
class QRadioButton;

namespace trelvin {

class PlaybackCommands;
class ReplaySession;

class PlaybackControls : public QWidget {
    Q_OBJECT

public:
    PlaybackControls(ReplaySession& session, PlaybackCommands& commands, QWidget* parent);

    // The slide-show row, designed below the window's panels, moves onto the step row at start.
    void moveSlideRowOntoStepRow();
    // Left, Right, Home, End and Space press the button of the mode shown, as long as no text
    // field claims them; a disabled button is not pressed.
    void installKeys(QWidget* window);
    // Whether the step row is shown (the control mode "Ovladat po tazich").
    bool stepMode() const;
    // The keys of the rows, each with the commands it can press in either mode.
    std::vector<std::pair<QKeySequence, std::vector<const QAction*>>> keyCommands() const;

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

public slots:
    void cmdBegin_Click();
    void cmdBack_Click();
    void cmdForw_Click();
    void cmdEnd_Click();
    void cmdSBegin_Click();
    void cmdRZ_Click();
    void cmdZ_Click();
    void cmdS_Click();
    void cmdD_Click();
    void cmdRD_Click();
    void cmdSEnd_Click();
    // A change of control mode stops the show and swaps the rows; the enabled states carry over.
    void ov_Click(int index);

private:
    void bind(QPushButton* button, QAction* command, void (PlaybackControls::*handler)());
    // The button a key presses in a mode, while the show plays or not; none when the mode has
    // none for it.
    QPushButton* buttonForKey(int key, bool steps, bool playing) const;
    QPushButton* buttonForKey(int key) const;

    ReplaySession& session_;
    PlaybackCommands& commands_;
    std::map<const QPushButton*, const QAction*> commandOf_;
};

}  // namespace trelvin

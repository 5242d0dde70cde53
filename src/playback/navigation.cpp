// Moving the current position through the event list. Going back or to the end applies the
// events again from the first, which rebuilds the world; the display is refreshed once per
// move, after all its events.
#include <exception>

#include <QPushButton>

#include "shell/frm_main.h"

void frmMain::refreshAfterMove() {
    try {
        change_info();
    } catch (const std::exception&) {
        // After a failed load the current event may not exist: its clock face stays empty.
    }
    Zobraz();
}

void frmMain::cmdBegin_Click() {
    StepGuard guard(*this);
    position = 1;
    updateButtons();
    applyEvent(position);
    refreshAfterMove();
}

void frmMain::cmdBack_Click() {
    StepGuard guard(*this);
    if (position > 0) --position;
    for (int index = 1; index <= position; ++index) applyEvent(static_cast<std::int16_t>(index));
    updateButtons();
    refreshAfterMove();
}

void frmMain::cmdForw_Click() {
    StepGuard guard(*this);
    if (position < world_.eventCount) ++position;
    updateButtons();
    applyEvent(position);
    refreshAfterMove();
}

void frmMain::cmdEnd_Click() {
    StepGuard guard(*this);
    const std::int16_t last = world_.eventCount;
    for (int index = 1; index <= last; ++index) {
        position = static_cast<std::int16_t>(index);
        applyEvent(position);
    }
    position = last;
    updateButtons();
    refreshAfterMove();
}

void frmMain::updateButtons() {
    const std::array<QPushButton*, 5> forwardGroup{cmdForw, cmdEnd, cmdSEnd, cmdD, cmdRD};
    const std::array<QPushButton*, 5> backwardGroup{cmdBack, cmdBegin, cmdSBegin, cmdZ, cmdRZ};
    const auto enable = [](const std::array<QPushButton*, 5>& group, bool enabled) {
        for (QPushButton* button : group) button->setEnabled(enabled);
    };
    if (position == world_.eventCount) {
        enable(forwardGroup, false);
        atEnd = true;
    }
    if (position > 1) {
        enable(backwardGroup, true);
        atBegin = false;
    }
    if (position < world_.eventCount) {
        enable(forwardGroup, true);
        atEnd = false;
    }
    if (position < 2) {
        enable(backwardGroup, false);
        atBegin = true;
    }
}

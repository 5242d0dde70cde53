// The slide show: a timer steps the replay forwards or backwards through the navigation
// handlers until the end it heads for was already reached at a tick.
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "shell/frm_main.h"

void frmMain::useTimer(bool forward, std::int16_t interval) {
    slideForward = forward;
    cmdS->setEnabled(true);
    tSlide->setInterval(interval);
    tSlide->start();
    tSlide_Timer();
}

void frmMain::tSlide_Timer() {
    StepGuard guard(*this);
    updateButtons();
    if (slideForward) {
        if (atEnd)
            cmdS_Click();
        else
            cmdForw_Click();
    } else {
        if (atBegin)
            cmdS_Click();
        else
            cmdBack_Click();
    }
}

void frmMain::cmdS_Click() {
    tSlide->stop();
    cmdS->setEnabled(false);
    updateButtons();
}

void frmMain::cmdD_Click() { useTimer(true, 5000); }
void frmMain::cmdRD_Click() { useTimer(true, 1000); }
void frmMain::cmdZ_Click() { useTimer(false, 5000); }
void frmMain::cmdRZ_Click() { useTimer(false, 1000); }
void frmMain::cmdSBegin_Click() { cmdBegin_Click(); }
void frmMain::cmdSEnd_Click() { cmdEnd_Click(); }

void frmMain::ov_Click(int) {
    tSlide->stop();
    const bool stepMode = ov[0]->isChecked();
    for (QPushButton* button : {cmdBack, cmdForw, cmdBegin, cmdEnd}) button->setVisible(stepMode);
    for (QPushButton* button : {cmdSBegin, cmdRD, cmdD, cmdS, cmdZ, cmdRZ, cmdSEnd})
        button->setVisible(!stepMode);
}

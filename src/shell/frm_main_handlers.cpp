// The window's handlers. Each hands its work to the object that does it: the playback moves
// through the replay, the map grid draws, the clock face shows the time; the window's own
// part is to put their results into its labels.
#include <algorithm>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QAbstractItemView>
#include <QStyle>

#include "bridge/core_text.h"
#include "model/checked_math.h"
#include "model/field_addressing.h"
#include "playback/clock_face.h"
#include "playback/player_panel.h"
#include "playback/position_texts.h"
#include "shell/frm_main.h"
#include "view/field_details.h"
#include "view/map_grid.h"

namespace {

// Time of day of the event at `index`; after a failed load that event may be missing.
QTime eventTime(const trelvin::WorldState& world, int index) {
    if (index < 1 || index > world.lastEventIndex())
        throw trelvin::RuleError(trelvin::RuleError::Kind::OutOfRange,
                                 "Index mimo rozsah: udalost " + std::to_string(index) +
                                     " neexistuje");
    const trelvin::DateTime& time = world.events[static_cast<std::size_t>(index)].time;
    return QTime(time.hour(), time.minute(), time.second());
}

// The drop-down as wide as its longest entry; the box itself keeps its designed size.
void widenDropDown(QComboBox* box) {
    int widest = 0;
    for (int i = 0; i < box->count(); ++i) widest = std::max(widest, box->fontMetrics().horizontalAdvance(box->itemText(i)));
    box->view()->setMinimumWidth(widest + 2 * box->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
}

// A label that cannot show its whole text shows it as a tooltip.
void showWholeTextWhenCut(QLabel* label) {
    const QRect room = label->contentsRect();
    const int flags = int(label->alignment()) | (label->wordWrap() ? int(Qt::TextWordWrap) : 0);
    const QRect needed = label->fontMetrics().boundingRect(room, flags, label->text());
    const bool cut = needed.height() > room.height() || needed.width() > room.width();
    label->setToolTip(cut ? label->text() : QString());
}

}  // namespace

void frmMain::cmdBegin_Click() { playback->first(); }
void frmMain::cmdBack_Click() { playback->back(); }
void frmMain::cmdForw_Click() { playback->forward(); }
void frmMain::cmdEnd_Click() { playback->last(); }
void frmMain::updateButtons() { playback->updateButtons(); }

void frmMain::useTimer(bool forward, std::int16_t interval) { playback->play(forward, interval); }
void frmMain::tSlide_Timer() { playback->tick(); }
void frmMain::cmdS_Click() { playback->stop(); }
void frmMain::cmdD_Click() { useTimer(true, 5000); }
void frmMain::cmdRD_Click() { useTimer(true, 1000); }
void frmMain::cmdZ_Click() { useTimer(false, 5000); }
void frmMain::cmdRZ_Click() { useTimer(false, 1000); }
void frmMain::cmdSBegin_Click() { cmdBegin_Click(); }
void frmMain::cmdSEnd_Click() { cmdEnd_Click(); }

// A change of control mode stops the show and swaps the rows; the enabled states carry over.
void frmMain::ov_Click(int) {
    playback->halt();
    const bool stepMode = ov[0]->isChecked();
    for (QPushButton* button : {cmdBack, cmdForw, cmdBegin, cmdEnd}) button->setVisible(stepMode);
    for (QPushButton* button : {cmdSBegin, cmdRD, cmdD, cmdS, cmdZ, cmdRZ, cmdSEnd})
        button->setVisible(!stepMode);
}

void frmMain::showButtonStates() {
    for (QPushButton* button : {cmdForw, cmdEnd, cmdSEnd, cmdD, cmdRD})
        button->setEnabled(playback->forwardEnabled());
    for (QPushButton* button : {cmdBack, cmdBegin, cmdSBegin, cmdZ, cmdRZ})
        button->setEnabled(playback->backwardEnabled());
    cmdS->setEnabled(playback->stopEnabled());
}

void frmMain::refreshAfterMove() {
    try {
        change_info();
    } catch (const std::exception&) {
        // After a failed load the current event may not exist: the clock shows no hands.
    }
    Zobraz();
}

void frmMain::change_info() {
    lbl->setText(trelvin::ActionDescription(world_));
    showWholeTextWhenCut(lbl);
    lblTah->setText(trelvin::PositionText(playback->position(), world_.eventCount));
    lblCas->setText(trelvin::GeneralDateText(world_.currentTime));
    {
        // The list is rebuilt by the program: no handler may run until it is complete.
        const QSignalBlocker quiet(cmbHraci);
        const int remembered = cmbHraci->currentIndex();
        cmbHraci->clear();
        cmbHraci->addItems(trelvin::PlayerListEntries(world_));
        // The selection survives by its index, not by the player's name.
        cmbHraci->setCurrentIndex(remembered < cmbHraci->count() ? remembered : -1);
        widenDropDown(cmbHraci);
    }
    cmbHraci_Change();
    pHod->setTime(std::nullopt);
    pHod->setTime(eventTime(world_, playback->position()));
}

void frmMain::cmbHraci_Click() {
    const int selected = cmbHraci->currentIndex();
    if (selected == -1) return;
    const trelvin::PlayerPanelTexts texts = trelvin::PlayerPanelFor(world_, selected + 1);
    lblMnozstviNektaru->setText(texts.nectar);
    lblPocetTahu->setText(texts.moves);
    lblVeleni->setText(texts.headquarters);
    lblVelikostUzemi->setText(texts.territory);
}

void frmMain::cmbHraci_Change() { cmbHraci_Click(); }

trelvin::ViewMode frmMain::viewMode() const {
    if (o[0]->isChecked()) return trelvin::ViewMode::AsLouka;
    if (o[1]->isChecked()) return trelvin::ViewMode::AsLes;
    return trelvin::ViewMode::All;
}

void frmMain::Zobraz() { grid->redraw(viewMode()); }

void frmMain::o_Click(int) { Zobraz(); }

void frmMain::m_Click(int index) {
    const QString name = trelvin::FromCore(trelvin::FieldName(world_, index));
    // A click on the field already named still refreshes the panel.
    if (txtPolicko->text() == name)
        txtPolicko_Change();
    else
        txtPolicko->setText(name);
}

void frmMain::txtPolicko_Change() {
    const auto labels = trelvin::InspectField(world_, trelvin::ToCore(txtPolicko->text()), viewMode());
    if (!labels) return;
    lblPVlastnik->setText(trelvin::FromCore(labels->owner));
    lblPTyp->setText(trelvin::FromCore(labels->terrain));
    lblPTypArmady->setText(trelvin::FromCore(labels->armyType));
    lblPPArmady->setText(trelvin::FromCore(labels->armyCount));
}

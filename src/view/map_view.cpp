// The map's handlers of the main window: the redraw in the chosen way of viewing and the
// field inspection panel.
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "model/field_addressing.h"
#include "shell/core_text.h"
#include "shell/frm_main.h"
#include "view/field_details.h"
#include "view/field_pictures.h"
#include "view/map_grid.h"

trelvin::ViewMode frmMain::viewMode() const {
    if (o[0]->isChecked()) return trelvin::ViewMode::AsLouka;
    if (o[1]->isChecked()) return trelvin::ViewMode::AsLes;
    return trelvin::ViewMode::All;
}

void frmMain::Zobraz() {
    grid->setPictures(trelvin::RedrawPictures(world_, viewMode(), grid->fieldCount()));
}

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
    const std::string name = trelvin::ToCore(txtPolicko->text());
    const auto labels = trelvin::InspectField(world_, name, viewMode());
    if (!labels) return;
    lblPVlastnik->setText(trelvin::FromCore(labels->owner));
    lblPTyp->setText(trelvin::FromCore(labels->terrain));
    lblPTypArmady->setText(trelvin::FromCore(labels->armyType));
    lblPPArmady->setText(trelvin::FromCore(labels->armyCount));
}

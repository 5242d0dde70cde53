#include "panels/field_panel.h"

#include <QLabel>
#include <QLineEdit>

#include "bridge/core_text.h"
#include "bridge/twips.h"
#include "display/world_texts.h"
#include "panels/designed_label.h"
#include "session/replay_session.h"

namespace trelvin {

FieldPanel::FieldPanel(const ReplaySession& session, QWidget* parent)
    : QGroupBox(QStringLiteral("Info o policku"), parent), session_(session) {
    PlaceByTwips(this, 120, 4320, 2895, 1575);
    DesignedLabel(this, "Policko", Qt::AlignLeft, 120, 240, 1215);
    txtPolicko = new QLineEdit(this);
    txtPolicko->setObjectName(QStringLiteral("txtPolicko"));
    txtPolicko->setAlignment(Qt::AlignHCenter);
    txtPolicko->setMaxLength(3);
    txtPolicko->setEnabled(false);
    txtPolicko->setAcceptDrops(false);
    PlaceByTwips(txtPolicko, 1920, 200, 855, 285);
    DesignedLabel(this, "Typ", Qt::AlignLeft, 120, 480, 1215);
    lblPTyp = DesignedValueLabel(this, "lblPTyp", Qt::AlignRight, 1560, 480, 1215);
    DesignedLabel(this, "Vlastnik", Qt::AlignLeft, 120, 720, 1335);
    lblPVlastnik = DesignedValueLabel(this, "lblPVlastnik", Qt::AlignRight, 1440, 720, 1335);
    DesignedLabel(this, "Typ armady", Qt::AlignLeft, 120, 960, 1335);
    lblPTypArmady = DesignedValueLabel(this, "lblPTypArmady", Qt::AlignRight, 1440, 960, 1335);
    DesignedLabel(this, "Pocet armady", Qt::AlignLeft, 120, 1200, 1335);
    lblPPArmady = DesignedValueLabel(this, "lblPPArmady", Qt::AlignRight, 1320, 1200, 1455);
    connect(txtPolicko, &QLineEdit::textChanged, this, &FieldPanel::txtPolicko_Change);
}

void FieldPanel::m_Click(int index) {
    const QString name = FromUtf8(FieldNameText(session_.world(), index));
    // A click on the field already named still refreshes the panel.
    if (txtPolicko->text() == name)
        txtPolicko_Change();
    else
        txtPolicko->setText(name);
}

void FieldPanel::txtPolicko_Change() {
    const std::optional<FieldTexts> details =
        FieldDetails(session_.world(), txtPolicko->text().toStdString(), session_.viewMode());
    if (!details) return;
    lblPVlastnik->setText(FromUtf8(details->owner));
    lblPTyp->setText(FromUtf8(details->terrain));
    lblPTypArmady->setText(FromUtf8(details->armyType));
    lblPPArmady->setText(FromUtf8(details->armyCount));
}

}  // namespace trelvin

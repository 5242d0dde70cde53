#pragma once
// The frame "Info o policku": what is known of one field, chosen by a click on the map or by
// typing its name. It changes only when the name changes, not as the replay moves.
#include <QGroupBox>

#include "panels/fitting_label.h"

class QLineEdit;

namespace trelvin {

class ReplaySession;

class FieldPanel : public QGroupBox {
    Q_OBJECT

public:
    FieldPanel(const ReplaySession& session, QWidget* parent);

    QLineEdit* txtPolicko;
    FittingLabel* lblPTyp;
    FittingLabel* lblPVlastnik;
    FittingLabel* lblPTypArmady;
    FittingLabel* lblPPArmady;

public slots:
    // A click on field `index` of the map names it in the text box.
    void m_Click(int index);
    // The labels for the name typed, as far as the way of viewing allows; a name that is no
    // field of the grid leaves them as they are.
    void txtPolicko_Change();

private:
    const ReplaySession& session_;
};

}  // namespace trelvin

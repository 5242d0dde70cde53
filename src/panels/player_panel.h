#pragma once
// The frame "Hraci": the list of players and the standing of the one chosen.
#include <QGroupBox>

#include "panels/fitting_label.h"

class QComboBox;

namespace trelvin {

class ReplaySession;

class PlayerPanel : public QGroupBox {
    Q_OBJECT

public:
    PlayerPanel(const ReplaySession& session, QWidget* parent);

    // Rebuilds the list from the players and refreshes the standing: the chosen entry keeps
    // its index, not its player, and is lost when the list became shorter.
    void refreshList();

    QComboBox* cmbHraci;
    FittingLabel* lblPocetTahu;
    FittingLabel* lblMnozstviNektaru;
    FittingLabel* lblVeleni;
    FittingLabel* lblVelikostUzemi;

public slots:
    // The standing of the player chosen; with none chosen the labels stay as they are.
    void cmbHraci_Click();
    void cmbHraci_Change();

private:
    const ReplaySession& session_;
};

}  // namespace trelvin

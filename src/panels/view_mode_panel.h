#pragma once
// The frame "Zpusob videni": the three ways of viewing the map, one of them chosen.
#include <array>

#include <QGroupBox>

#include "view/field_pictures.h"

class QRadioButton;

namespace trelvin {

class ReplaySession;

class ViewModePanel : public QGroupBox {
    Q_OBJECT

public:
    ViewModePanel(ReplaySession& session, QWidget* parent);

    // The way of viewing the options show: the first selected of o(0), o(1), o(2).
    ViewMode chosenMode() const;

    std::array<QRadioButton*, 3> o;

public slots:
    // Any option clicked redraws the map in the way of viewing chosen.
    void o_Click(int index);

private:
    ReplaySession& session_;
};

}  // namespace trelvin

#pragma once
// What the window tells of the current action: its description (lbl), the position with the
// event count (lblTah), its date and time (lblCas) and the 24-hour clock face (pHod).
#include <QWidget>

#include "panels/fitting_label.h"

class QLabel;

namespace trelvin {

class ClockFace;
class ReplaySession;

class DescriptionStrip : public QWidget {
    Q_OBJECT

public:
    // Where the strip stands in the designed area, in twips: from the position's label on the
    // step row down to the description's lower edge.
    static constexpr int kLeft = 120;
    static constexpr int kTop = 600;

    DescriptionStrip(const ReplaySession& session, QWidget* parent);

    // The description, the position and the date and time of the event applied last.
    void showTexts();
    // The clock at the time of the event at the position; throws, leaving the dial without
    // hands, when the list lacks that event (after a failed load).
    void showClock();

    FittingLabel* lbl;
    QLabel* lblTah;
    QLabel* lblCas;
    ClockFace* pHod;

private:
    const ReplaySession& session_;
};

}  // namespace trelvin

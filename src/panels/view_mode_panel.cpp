#include "panels/view_mode_panel.h"

#include <QButtonGroup>
#include <QRadioButton>

#include "bridge/twips.h"
#include "session/replay_session.h"

namespace trelvin {

ViewModePanel::ViewModePanel(ReplaySession& session, QWidget* parent)
    : QGroupBox(QStringLiteral("Zpusob videni"), parent), session_(session) {
    PlaceByTwips(this, 120, 2040, 6375, 615);
    const std::array<std::pair<const char*, int>, 3> options{{{"Jako louka", 120}, {"Jako les", 2400}, {"Videt vse", 4320}}};
    auto* group = new QButtonGroup(this);
    for (int index = 0; index < 3; ++index) {
        o[index] = new QRadioButton(QString::fromLatin1(options[index].first), this);
        o[index]->setObjectName(QStringLiteral("o%1").arg(index));
        PlaceByTwips(o[index], options[index].second, 240, 1815, 255);
        group->addButton(o[index]);
        connect(o[index], &QRadioButton::clicked, this, [this, index] { o_Click(index); });
    }
    o[2]->setChecked(true);
}

ViewMode ViewModePanel::chosenMode() const {
    if (o[0]->isChecked()) return ViewMode::AsLouka;
    if (o[1]->isChecked()) return ViewMode::AsLes;
    return ViewMode::All;
}

void ViewModePanel::o_Click(int) { session_.setViewMode(chosenMode()); }

}  // namespace trelvin

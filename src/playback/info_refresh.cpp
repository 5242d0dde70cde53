// The refresh of everything that follows the position apart from the map: the description,
// the position counter, the time with its clock face, and the player list and panel.
#include <string>

#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>

#include "model/checked_math.h"
#include "playback/clock_face.h"
#include "playback/player_panel.h"
#include "playback/time_text.h"
#include "shell/core_text.h"
#include "shell/frm_main.h"

namespace {

constexpr std::uint32_t Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red + 256 * green + 65536 * blue;
}

// Time of the event at the position; after a failed load that event may be missing.
const trelvin::DateTime& eventTime(const trelvin::WorldState& world, int index) {
    if (index < 1 || index > world.lastEventIndex())
        throw trelvin::RuleError(trelvin::RuleError::Kind::OutOfRange,
                                 "Index mimo rozsah: udalost " + std::to_string(index) +
                                     " neexistuje");
    return world.events[index].time;
}

}  // namespace

void frmMain::change_info() {
    lbl->setText(trelvin::FromCore(world_.actionText).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    lblTah->setText(QStringLiteral("%1 (%2)").arg(position).arg(world_.eventCount));
    lblCas->setText(trelvin::GeneralDateText(world_.currentTime));

    {
        // The list is rebuilt by the program: no handler may run until it is complete.
        const QSignalBlocker quiet(cmbHraci);
        const int remembered = cmbHraci->currentIndex();
        cmbHraci->clear();
        for (int i = 1; i <= world_.lastPlayerIndex(); ++i) {
            const trelvin::Player& player = world_.players[i];
            cmbHraci->addItem(trelvin::FromCore(player.name + " (" + player.side + ")"));
        }
        cmbHraci->setCurrentIndex(remembered < cmbHraci->count() ? remembered : -1);
    }
    cmbHraci_Change();

    pHod->clear();
    pHod->drawDial(24, 3, Rgb(100, 100, 100));
    const trelvin::DateTime& time = eventTime(world_, position);
    pHod->drawHand(static_cast<float>(time.hour()), 24, 4, Rgb(0, 0, 255));
    pHod->drawHand(static_cast<float>(time.minute()), 60, 2, Rgb(255, 0, 0));
    pHod->drawHand(static_cast<float>(time.second()), 60, 1, Rgb(200, 200, 200));
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

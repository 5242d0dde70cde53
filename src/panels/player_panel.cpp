#include "panels/player_panel.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyle>

#include "bridge/core_text.h"
#include "bridge/twips.h"
#include "display/world_texts.h"
#include "panels/designed_label.h"
#include "session/replay_session.h"
#include "widgets/player_colors.h"

namespace trelvin {

namespace {

// The drop-down as wide as its longest entry with its colour; the box itself keeps its designed size.
void widenDropDown(QComboBox* box) {
    int widest = 0;
    for (int i = 0; i < box->count(); ++i) widest = std::max(widest, box->fontMetrics().horizontalAdvance(box->itemText(i)));
    box->view()->setMinimumWidth(widest + box->iconSize().width() + 2 * box->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
}

}  // namespace

PlayerPanel::PlayerPanel(const ReplaySession& session, QWidget* parent)
    : QGroupBox(QStringLiteral("Hraci"), parent), session_(session) {
    PlaceByTwips(this, 120, 2640, 2895, 1575);
    DesignedLabel(this, "Hrac", Qt::AlignLeft, 120, 240, 975);
    cmbHraci = new QComboBox(this);
    cmbHraci->setObjectName(QStringLiteral("cmbHraci"));
    cmbHraci->setEditable(true);
    cmbHraci->setInsertPolicy(QComboBox::NoInsert);
    cmbHraci->setEditText(QStringLiteral("Zvolte hrace"));
    cmbHraci->setEnabled(false);
    cmbHraci->setIconSize(QSize(kColorMarkPixels, kColorMarkPixels));
    // A file dropped anywhere opens it, the text field included.
    cmbHraci->lineEdit()->setAcceptDrops(false);
    PlaceByTwips(cmbHraci, 1320, 120, 1455, 315);
    DesignedLabel(this, "Pocet tahu", Qt::AlignLeft, 120, 480, 1095);
    lblPocetTahu = DesignedValueLabel(this, "lblPocetTahu", Qt::AlignRight, 1440, 480, 1335);
    DesignedLabel(this, "Mnozstvi nektaru", Qt::AlignLeft, 120, 720, 1215);
    lblMnozstviNektaru = DesignedValueLabel(this, "lblMnozstviNektaru", Qt::AlignRight, 1440, 720, 1335);
    DesignedLabel(this, "Veleni", Qt::AlignLeft, 120, 960, 1335);
    lblVeleni = DesignedValueLabel(this, "lblVeleni", Qt::AlignRight, 1440, 960, 1335);
    DesignedLabel(this, "Velikost uzemi", Qt::AlignLeft, 120, 1200, 1215);
    lblVelikostUzemi = DesignedValueLabel(this, "lblVelikostUzemi", Qt::AlignRight, 1320, 1200, 1455);

    connect(cmbHraci, &QComboBox::activated, this, &PlayerPanel::cmbHraci_Click);
    // The box is narrow for long names: its tooltip tells the whole entry.
    connect(cmbHraci, &QComboBox::currentTextChanged, cmbHraci, &QComboBox::setToolTip);
    connect(cmbHraci->lineEdit(), &QLineEdit::textEdited, this, &PlayerPanel::cmbHraci_Change);
    connect(&session, &ReplaySession::positionChanged, this, &PlayerPanel::refreshList);
}

void PlayerPanel::refreshList() {
    {
        // The list is rebuilt by the program: no handler may run until it is complete.
        const QSignalBlocker quiet(cmbHraci);
        const int remembered = cmbHraci->currentIndex();
        cmbHraci->clear();
        // Each entry in its player's colour, as the charts draw the player.
        const std::vector<std::string> entries = PlayerEntries(session_.world());
        for (std::size_t i = 0; i < entries.size(); ++i)
            cmbHraci->addItem(PlayerColorMark(int(i) + 1), FromUtf8(entries[i]));
        cmbHraci->setCurrentIndex(remembered < cmbHraci->count() ? remembered : -1);
        widenDropDown(cmbHraci);
    }
    cmbHraci_Change();
}

void PlayerPanel::cmbHraci_Click() {
    const int selected = cmbHraci->currentIndex();
    if (selected == -1) return;
    const PlayerStanding standing = PlayerStandingOf(session_.world(), selected + 1);
    lblMnozstviNektaru->setText(FromUtf8(standing.nectar));
    lblPocetTahu->setText(FromUtf8(standing.moves));
    lblVeleni->setText(FromUtf8(standing.headquarters));
    lblVelikostUzemi->setText(FromUtf8(standing.territory));
}

void PlayerPanel::cmbHraci_Change() { cmbHraci_Click(); }

}  // namespace trelvin

#include "panels/help_menu.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "bridge/core_text.h"
#include "display/licence_text.h"
#include "panels/playback_controls.h"

namespace trelvin {

namespace {

// What an action does, in the words of its menu entry or button.
QString actionText(const QAction& action) {
    QString text = action.text();
    text.remove(u'&');
    if (text.endsWith(QStringLiteral("..."))) text.chop(3);
    return text;
}

QString joined(const std::vector<const QAction*>& actions) {
    QStringList texts;
    for (const QAction* action : actions) texts << actionText(*action);
    return texts.join(QStringLiteral(" / "));
}

// The menu's actions with a shortcut, submenus' included, in the menu's order.
void addMenuRows(const QList<QAction*>& actions, std::vector<KeyRow>& rows) {
    for (const QAction* action : actions) {
        if (action->menu()) addMenuRows(action->menu()->actions(), rows);
        if (action->shortcuts().isEmpty()) continue;
        QStringList keys;
        for (const QKeySequence& key : action->shortcuts()) keys << KeyText(key);
        rows.push_back({keys.join(QStringLiteral(" / ")), actionText(*action)});
    }
}

}  // namespace

QString KeyText(const QKeySequence& keys) {
    QStringList parts;
    for (int i = 0; i < keys.count(); ++i) {
        const QKeyCombination combination = keys[i];
        QString part;
        if (combination.keyboardModifiers() & Qt::ControlModifier) part += QStringLiteral("Ctrl+");
        if (combination.keyboardModifiers() & Qt::ShiftModifier) part += QStringLiteral("Shift+");
        if (combination.keyboardModifiers() & Qt::AltModifier) part += QStringLiteral("Alt+");
        switch (combination.key()) {
            case Qt::Key_Right: part += QStringLiteral("Sipka vpravo"); break;
            case Qt::Key_Left: part += QStringLiteral("Sipka vlevo"); break;
            case Qt::Key_Up: part += QStringLiteral("Sipka nahoru"); break;
            case Qt::Key_Down: part += QStringLiteral("Sipka dolu"); break;
            case Qt::Key_Space: part += QStringLiteral("Mezernik"); break;
            default: part += QKeySequence(combination.key()).toString(QKeySequence::PortableText);
        }
        parts << part;
    }
    return parts.join(QStringLiteral(", "));
}

QString AboutText() {
    QString text = QStringLiteral("<h3>Trelvin Replay %1</h3><p>%2</p>")
                       .arg(QStringLiteral(TRELVIN_VERSION), QString::fromLatin1(kProgramPurpose));
    for (const std::string& line : LicenceLines()) text += QStringLiteral("<p>") + FromUtf8(line).toHtmlEscaped() + "</p>";
    return text + QStringLiteral("<p>Qt %1</p>").arg(QString::fromLatin1(qVersion()));
}

HelpMenu::HelpMenu(QWidget* parent)
    : QMenu(QStringLiteral("&Napoveda"), parent),
      keysAction(addAction(QStringLiteral("&Klavesy"))),
      aboutAction(addAction(QStringLiteral("&O programu"))) {
    keysAction->setObjectName(QStringLiteral("keysAction"));
    aboutAction->setObjectName(QStringLiteral("aboutAction"));
    keysAction->setShortcut(QKeySequence(Qt::Key_F1));
    connect(keysAction, &QAction::triggered, this, &HelpMenu::showKeys);
    connect(aboutAction, &QAction::triggered, this, &HelpMenu::showAbout);
}

void HelpMenu::listKeysOf(const PlaybackControls& controls, const QMenuBar& menus) {
    controls_ = &controls;
    menus_ = &menus;
}

std::vector<KeyRow> HelpMenu::keyRows() const {
    std::vector<KeyRow> rows;
    if (controls_)
        for (const auto& [key, commands] : controls_->keyCommands()) rows.push_back({KeyText(key), joined(commands)});
    if (menus_) addMenuRows(menus_->actions(), rows);
    // What is no shortcut of an action.
    rows.push_back({QStringLiteral("Ctrl + kolecko mysi"),
                    QStringLiteral("Nad mapou ji priblizi nebo oddali kolem ukazatele, nad casovou osou jeji usek")});
    rows.push_back({QStringLiteral("Prostredni tlacitko mysi"), QStringLiteral("Posouva usek casove osy")});
    rows.push_back({QStringLiteral("Tab, Sipka nahoru / dolu"),
                    QStringLiteral("Na dalsi ovladaci prvek; nahoru a dolu vybiraji ve skupine voleb")});
    return rows;
}

void HelpMenu::showKeys() {
    // One table at a time; F1 again brings it to the front.
    if (auto* open = parentWidget()->findChild<QDialog*>(QStringLiteral("keyTable"))) {
        open->raise();
        return;
    }
    const std::vector<KeyRow> rows = keyRows();
    // A tool window beside the main one that leaves it the keyboard: the keys it lists keep
    // working while it is open.
    auto* dialog = new QDialog(parentWidget(), Qt::Tool);
    dialog->setAttribute(Qt::WA_ShowWithoutActivating);
    dialog->setObjectName(QStringLiteral("keyTable"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QStringLiteral("Klavesy"));
    auto* table = new QTableWidget(int(rows.size()), 2, dialog);
    table->setHorizontalHeaderLabels({QStringLiteral("Klavesa"), QStringLiteral("Co dela")});
    for (int row = 0; row < int(rows.size()); ++row) {
        table->setItem(row, 0, new QTableWidgetItem(rows[std::size_t(row)].keys));
        table->setItem(row, 1, new QTableWidgetItem(rows[std::size_t(row)].does));
    }
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setFocusPolicy(Qt::NoFocus);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->resizeColumnsToContents();
    table->resizeRowsToContents();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    buttons->button(QDialogButtonBox::Close)->setText(QStringLiteral("Zavrit"));
    buttons->button(QDialogButtonBox::Close)->setFocusPolicy(Qt::NoFocus);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(table);
    layout->addWidget(buttons);
    // Every row in view without scrolling.
    const int rowsHeight = table->verticalHeader()->length() + table->horizontalHeader()->height() + 4;
    const int width = table->horizontalHeader()->length() + 4 + table->fontMetrics().averageCharWidth() * 4;
    table->setMinimumSize(width, rowsHeight);
    dialog->show();
    // Where the platform gives a new window the keyboard all the same, the main window takes it back.
    parentWidget()->activateWindow();
}

void HelpMenu::showAbout() {
    QMessageBox::about(parentWidget(), QStringLiteral("O programu"), AboutText());
}

}  // namespace trelvin

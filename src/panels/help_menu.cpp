#include "panels/help_menu.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace trelvin {

namespace {

QKeySequence keys(QKeyCombination combination) { return QKeySequence(combination); }

}  // namespace

const std::vector<KeyRow>& KeyTable() {
    static const std::vector<KeyRow> table{
        {"Sipka vpravo / vlevo", "---->  /  <----: o akci vpred / zpet (ovladani po tazich)",
         {keys(Qt::Key_Right), keys(Qt::Key_Left)}},
        {"Home / End", "|<--  /  -->|: prvni / posledni akce (v obou rezimech)", {keys(Qt::Key_Home), keys(Qt::Key_End)}},
        {"Mezernik", "Slide-show: spusti prehravani vpred jako -->, bezici zastavi jako II", {keys(Qt::Key_Space)}},
        {"Ctrl+G", "Prejit na akci podle jejiho cisla", {keys(Qt::CTRL | Qt::Key_G)}},
        {"Ctrl+Sipka vpravo / vlevo", "Dalsi / predchozi utok",
         {keys(Qt::CTRL | Qt::Key_Right), keys(Qt::CTRL | Qt::Key_Left)}},
        {"Ctrl+Shift+Sipka vpravo / vlevo", "Dalsi / predchozi dobyti veleni",
         {keys(Qt::CTRL | Qt::SHIFT | Qt::Key_Right), keys(Qt::CTRL | Qt::SHIFT | Qt::Key_Left)}},
        {"F8 / Shift+F8", "Dalsi / predchozi akce, ktera hlasila chybu", {keys(Qt::Key_F8), keys(Qt::SHIFT | Qt::Key_F8)}},
        {"Ctrl+L", "Ukazat nebo skryt seznam akci", {keys(Qt::CTRL | Qt::Key_L)}},
        {"Ctrl+P", "Ukazat nebo skryt prubeh hry", {keys(Qt::CTRL | Qt::Key_P)}},
        {"Ctrl++ (Ctrl+=) / Ctrl+- / Ctrl+0 / F", "Mapu priblizit / oddalit / na 100 % / celou",
         {keys(Qt::CTRL | Qt::Key_Plus), keys(Qt::CTRL | Qt::Key_Equal), keys(Qt::CTRL | Qt::Key_Minus),
          keys(Qt::CTRL | Qt::Key_0), keys(Qt::Key_F)}},
        {"Ctrl+H", "Zvyraznit akci na mape: zapnout / vypnout", {keys(Qt::CTRL | Qt::Key_H)}},
        {"Ctrl + kolecko mysi", "Nad mapou ji priblizi nebo oddali kolem ukazatele, nad casovou osou jeji usek", {}},
        {"Ctrl+O", "Soubor -> Otevrit", {keys(Qt::CTRL | Qt::Key_O)}},
        {"Ctrl+E / Ctrl+Shift+E", "Soubor -> Exportovat obrazek / animaci",
         {keys(Qt::CTRL | Qt::Key_E), keys(Qt::CTRL | Qt::SHIFT | Qt::Key_E)}},
        {"Ctrl+Q", "Soubor -> Konec", {keys(Qt::CTRL | Qt::Key_Q)}},
        {"F1", "Tato tabulka klaves", {keys(Qt::Key_F1)}},
        {"Tab, Sipka nahoru / dolu", "Na dalsi ovladaci prvek; nahoru a dolu vybiraji ve skupine voleb", {}},
    };
    return table;
}

QString AboutText() {
    return QStringLiteral(
               "<h3>Trelvin Replay %1</h3>"
               "<p>Prohlizec zaznamu her (replayu) hry Trelvin: otevre jeden zaznam a ukaze svet akci po akci.</p>"
               "<p><b>Cte</b> replaye hry Trelvin (<i>*.trp</i>): textovy soubor, jeden zaznam na radek, pole oddelena "
               "strednikem, v kodovani Windows-1250 nebo UTF-8.<br>"
               "<b>Zapisuje</b> jen na vyzadani: obrazky PNG a animace GIF a WebP (Soubor -&gt; Exportovat). "
               "Zadna nastaveni neuklada.</p>"
               "<p><b>Licence:</b> vsechna prava vyhrazena; licence ke kopirovani, uprave ani sireni zatim nebyla "
               "udelena.<br>Pouziva Qt %2 (LGPL 3), giflib (MIT) a libwebp (BSD).</p>")
        .arg(QStringLiteral(TRELVIN_VERSION), QString::fromLatin1(qVersion()));
}

HelpMenu::HelpMenu(QWidget* parent)
    : QMenu(QStringLiteral("&Napoveda"), parent),
      keysAction(addAction(QStringLiteral("&Klavesy"))),
      aboutAction(addAction(QStringLiteral("&O programu"))) {
    keysAction->setShortcut(QKeySequence(Qt::Key_F1));
    connect(keysAction, &QAction::triggered, this, &HelpMenu::showKeys);
    connect(aboutAction, &QAction::triggered, this, &HelpMenu::showAbout);
}

void HelpMenu::showKeys() {
    // One table at a time; F1 again brings it to the front.
    if (auto* open = parentWidget()->findChild<QDialog*>(QStringLiteral("keyTable"))) {
        open->raise();
        open->activateWindow();
        return;
    }
    auto* dialog = new QDialog(parentWidget());
    dialog->setObjectName(QStringLiteral("keyTable"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QStringLiteral("Klavesy"));
    auto* table = new QTableWidget(int(KeyTable().size()), 2, dialog);
    table->setHorizontalHeaderLabels({QStringLiteral("Klavesa"), QStringLiteral("Co dela")});
    for (int row = 0; row < int(KeyTable().size()); ++row) {
        const KeyRow& key = KeyTable()[std::size_t(row)];
        table->setItem(row, 0, new QTableWidgetItem(QString::fromLatin1(key.keys)));
        table->setItem(row, 1, new QTableWidgetItem(QString::fromLatin1(key.does)));
    }
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->resizeColumnsToContents();
    table->resizeRowsToContents();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    buttons->button(QDialogButtonBox::Close)->setText(QStringLiteral("Zavrit"));
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(table);
    layout->addWidget(buttons);
    // Every row in view without scrolling.
    const int rowsHeight = table->verticalHeader()->length() + table->horizontalHeader()->height() + 4;
    const int width = table->horizontalHeader()->length() + 4 + table->fontMetrics().averageCharWidth() * 4;
    table->setMinimumSize(width, rowsHeight);
    dialog->show();
}

void HelpMenu::showAbout() {
    QMessageBox::about(parentWidget(), QStringLiteral("O programu"), AboutText());
}

}  // namespace trelvin

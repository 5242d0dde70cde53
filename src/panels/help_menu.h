#pragma once
// The menu "Napoveda": the table of the window's keys (F1), in a window of its own that can stay
// open beside the main one, and what the program is: its version, its licence and the files it
// reads and writes.
#include <vector>

#include <QKeySequence>
#include <QList>
#include <QMenu>

namespace trelvin {

// One row of the key table: the keys, as the table writes them and as sequences, and what they do.
struct KeyRow {
    const char* keys;
    const char* does;
    QList<QKeySequence> sequences;  // empty for keys that are no shortcut (a wheel, Tab)
};

const std::vector<KeyRow>& KeyTable();

// The text of "O programu".
QString AboutText();

class HelpMenu : public QMenu {
    Q_OBJECT

public:
    explicit HelpMenu(QWidget* parent);

    QAction* const keysAction;
    QAction* const aboutAction;

public slots:
    void showKeys();
    void showAbout();
};

}  // namespace trelvin

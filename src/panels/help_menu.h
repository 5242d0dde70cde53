#pragma once
// The menu "Napoveda": the table of the window's keys (F1), in a window of its own that can stay
// open beside the main one, and what the program is: its version, its licence and the files it
// reads and writes.
#include <vector>

#include <QKeySequence>
#include <QMenu>
#include <QString>

class QMenuBar;

namespace trelvin {

class PlaybackControls;

// One row of the key table: the keys as the table writes them, and what they do.
struct KeyRow {
    QString keys;
    QString does;
};

// A key sequence in the table's words: "Ctrl+Sipka vpravo".
QString KeyText(const QKeySequence& keys);

// The text of "O programu".
QString AboutText();

class HelpMenu : public QMenu {
    Q_OBJECT

public:
    explicit HelpMenu(QWidget* parent);

    // The table lists the keys of the control rows and the shortcut of every action in `menus`,
    // as they stand when it is shown: it cannot tell of a key the window does not have.
    void listKeysOf(const PlaybackControls& controls, const QMenuBar& menus);
    std::vector<KeyRow> keyRows() const;

    QAction* const keysAction;
    QAction* const aboutAction;

public slots:
    void showKeys();
    void showAbout();

private:
    const PlaybackControls* controls_ = nullptr;
    const QMenuBar* menus_ = nullptr;
};

}  // namespace trelvin

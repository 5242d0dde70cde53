#pragma once
// The options of an export from the window: the picture of the current action, or an
// animation of a stretch of actions, drawn in the session's way of viewing at the map's zoom,
// the action highlighted as in the window, unless chosen otherwise. It only asks; the export is run by whoever opened it.
#include <QDialog>

#include "export/export_options.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace trelvin {

class ReplaySession;

class ExportDialog : public QDialog {
    Q_OBJECT

public:
    enum class Kind { Picture, Animation };

    ExportDialog(const ReplaySession& session, int fieldPixels, bool highlight, Kind kind, QWidget* parent);

    // The export as chosen, its path with the format's extension; the palette is the caller's.
    ExportJob job() const;

    QLineEdit* const path;
    QPushButton* const choose;
    QSpinBox* const from;   // the animation's first action; the picture's only one, fixed
    QSpinBox* const to;     // the animation's last
    QSpinBox* const delay;  // milliseconds a frame
    QComboBox* const format;
    QComboBox* const view;
    QSpinBox* const field;
    QCheckBox* const labels;
    QCheckBox* const caption;
    QCheckBox* const highlight;
    QLabel* const summary;

private:
    ExportFormat chosenFormat() const;
    QString pathWithExtension() const;
    // The proposed name follows the actions and the format until the user types one.
    void proposeName();
    void chooseFile();
    void refresh();

    const ReplaySession& session_;
    Kind kind_;
    bool nameTyped_ = false;
    QPushButton* exportButton_;
};

}  // namespace trelvin

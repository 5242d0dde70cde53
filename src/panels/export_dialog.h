#pragma once
// The options of an export from the window: the picture of the current action, or an
// animation of a stretch of actions, drawn in the session's way of viewing at the map's zoom,
// the action highlighted as in the window, unless chosen otherwise. It only asks; the export is run by whoever opened it.
#include <optional>

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

// What the user chose in a dialog, kept for the next one of its kind for the rest of the run (in
// memory only): its folder and options. The way of viewing, the zoom and the marks follow the
// window unless the user chose others.
struct ExportChoices {
    QString folder;  // empty: beside the replay
    ExportFormat format = ExportFormat::Gif;
    int delay = kDefaultDelay;
    bool labels = true;
    bool caption = false;
    std::optional<ViewMode> view;
    std::optional<int> fieldPixels;
    std::optional<bool> highlight;
};

class ExportDialog : public QDialog {
    Q_OBJECT

public:
    enum class Kind { Picture, Animation };

    ExportDialog(const ReplaySession& session, int fieldPixels, bool highlight, Kind kind, QWidget* parent,
                 const ExportChoices& last = {});

    // The export as chosen, its path with the format's extension; the palette is the caller's.
    ExportJob job() const;
    // What to offer next time.
    ExportChoices choices() const;
    // Export: only with a stretch whose ends are in order.
    void accept() override;

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
    QLabel* const problem;  // what is wrong with the stretch, once the user left a field of it

private:
    ExportFormat chosenFormat() const;
    QString pathWithExtension() const;
    // The proposed name follows the actions and the format until the user types one.
    void proposeName();
    void chooseFile();
    void refresh();
    // Says what is wrong with the stretch, if anything; true when nothing is.
    bool checkRange();

    const ReplaySession& session_;
    Kind kind_;
    int windowFieldPixels_;
    bool windowHighlight_;
    QString folder_;
    bool nameTyped_ = false;
    QPushButton* exportButton_;
};

}  // namespace trelvin

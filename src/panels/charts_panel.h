#pragma once
// The panel "Prubeh hry": one quantity of every player over the whole replay, chosen in the
// panel, with the current position marked as it moves. A click in the chart jumps to that action
// as every jump does; the figures of every player after every action can be saved as CSV.
#include <QString>
#include <QWidget>

class QComboBox;
class QPushButton;
class QShowEvent;

namespace trelvin {

class CourseChart;
class ReplaySession;

class ChartsPanel : public QWidget {
    Q_OBJECT

public:
    ChartsPanel(ReplaySession& session, QWidget* parent);

    QComboBox* const quantity;
    QPushButton* const saveCsv;
    CourseChart* const chart;

    // Writes the CSV of the opened replay to `path`, whole or not at all; the failure's text, empty
    // when the file is written.
    QString writeCsv(const QString& path) const;

signals:
    void csvWritten(const QString& path);
    void csvFailed(const QString& text);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void followOpened();
    // The chart of the replay opened last; built only while the panel is shown.
    void showOpened();
    void askForCsv();

    ReplaySession& session_;
    bool chartStale_ = false;
    QString csvFolder_;  // where the last CSV went, offered again for the rest of the run
};

}  // namespace trelvin

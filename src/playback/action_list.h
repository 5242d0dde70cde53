#pragma once
// The action list: every event of the replay with its number, date and time, keyword and the
// first line of its description, failures marked; narrowed by a kind and a search text. The
// current event is selected and kept in view; a click or Return on a row asks to go there.
#include <vector>

#include <QWidget>

#include "history/action_log.h"

class QComboBox;
class QLineEdit;
class QTableView;

namespace trelvin {

class ActionListModel;

class ActionList : public QWidget {
    Q_OBJECT

public:
    explicit ActionList(QWidget* parent = nullptr);

    // The events of a newly opened replay; the log must outlive the list or the next call.
    void showReplay(const ActionLog* log);
    // Selects the event at the position when the list shows it.
    void setPosition(int position);

    // Narrows the list to one kind of event and to rows whose texts hold `search`.
    void setKind(EventKind kind);
    void setSearch(const QString& search);
    // The events the list shows, top to bottom.
    const std::vector<int>& shownEvents() const;

    QLineEdit* searchBox() const { return search_; }
    QTableView* table() const { return table_; }

    // The width the list asks for beside the window.
    void setPreferredWidth(int width) {
        preferredWidth_ = width;
        updateGeometry();
    }
    QSize sizeHint() const override { return {preferredWidth_, QWidget::sizeHint().height()}; }

signals:
    void eventChosen(int event);

private:
    void chooseRow(int row);
    void selectPosition();

    ActionListModel* model_;
    QComboBox* kinds_;
    QLineEdit* search_;
    QTableView* table_;
    int position_ = 0;
    int preferredWidth_ = 0;
};

}  // namespace trelvin

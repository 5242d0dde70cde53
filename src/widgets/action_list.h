#pragma once
// The action list: every event of the replay with its number, date and time, keyword and the
// first line of its description, failures marked; narrowed by a kind, a player and a search.
// The current event is selected and kept in view; where the filter hides it, the rows around it
// stay in view with a mark where it would stand. A click or Return on a row asks to go there.
// Under the list, the selected action's whole description and its messages.
#include <vector>

#include <QTableView>
#include <QWidget>

#include "history/action_log.h"
#include "history/action_players.h"

class QComboBox;
class QLineEdit;
class QTextBrowser;

namespace trelvin {

class ActionListModel;

// The list's rows, with the mark where the current action would stand and the word for an
// empty result painted over them.
class ActionTable : public QTableView {
    Q_OBJECT

public:
    using QTableView::QTableView;

    // The mark stands above row `row` (under the last one when `row` is the row count), for
    // action `event`; -1 for no mark.
    void setHere(int row, int event);
    int hereRow() const { return hereRow_; }
    // Painted in the middle of an empty list; empty for none.
    void setEmptyText(const QString& text);
    const QString& emptyText() const { return emptyText_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int hereRow_ = -1;
    int hereEvent_ = 0;
    QString emptyText_;
};

class ActionList : public QWidget {
    Q_OBJECT

public:
    explicit ActionList(QWidget* parent = nullptr);

    // The events of a newly opened replay and the players they concern; both must outlive the
    // list or the next call.
    void showReplay(const ActionLog* log, const ActionPlayers* players);
    // Selects the event at the position when the list shows it, else marks where it would stand.
    void setPosition(int position);

    // Narrows the list to one kind of event, to the events by or on the fields of one player
    // (an index into the players' names; ActionPlayers::kNobody for all), and to rows whose
    // texts the search finds.
    void setKind(EventKind kind);
    void setPlayer(int player);
    void setSearch(const QString& search);
    // The events the list shows, top to bottom.
    const std::vector<int>& shownEvents() const;

    // A line above the rows, such as what a failed load left.
    void addNote(QWidget* note);

    QComboBox* playerBox() const { return players_; }
    QLineEdit* searchBox() const { return search_; }
    ActionTable* table() const { return table_; }
    QTextBrowser* detail() const { return detail_; }

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
    void refilter();
    void selectPosition();
    // The detail of the row selected, or of the position where no row is.
    void showDetail();

    ActionListModel* model_;
    QComboBox* kinds_;
    QComboBox* players_;
    QLineEdit* search_;
    ActionTable* table_;
    QTextBrowser* detail_;
    const ActionPlayers* actionPlayers_ = nullptr;
    int position_ = 0;
    int preferredWidth_ = 0;
};

}  // namespace trelvin

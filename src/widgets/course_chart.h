#pragma once
// A chart of one quantity over the whole replay: a line per player in the player's colour, ended
// with a mark where the player left the game, the action number along the bottom and a vertical
// line at the current position. A click on a legend entry hides or shows that player; a click in
// the plot asks for the action under the mouse; resting the mouse there tells the action's date
// and time and every shown player's value at it.
#include <optional>
#include <utility>
#include <vector>

#include <QChartView>

#include "history/replay_history.h"

class QAbstractSeries;
class QXYSeries;
class QGraphicsLineItem;
class QLegendMarker;
class QValueAxis;

namespace trelvin {

class HoverNote;

class CourseChart : public QChartView {
    Q_OBJECT

public:
    explicit CourseChart(QWidget* parent = nullptr);

    // The players of `history` over actions 1 .. `eventCount`; nothing is charted when that is 0
    // or the history kept no series. The history must outlive the chart or the next call.
    void showReplay(const ReplayHistory& history, int eventCount);
    void setQuantity(Quantity quantity);
    Quantity quantity() const { return quantity_; }
    void setPosition(int position);
    int position() const { return position_; }

    int playerCount() const { return static_cast<int>(seriesOf_.size()); }
    bool playerShown(int place) const;
    void setPlayerShown(int place, bool shown);
    // The lines and the end mark of player `place` in the chart.
    const std::vector<QAbstractSeries*>& seriesOf(int place) const;

    // The action at x in the viewport, clamped to the replay; and the x of an action.
    int eventAt(int x) const;
    int xOf(int event) const;
    // Where the position's line is drawn in the viewport; empty while it is not.
    std::optional<int> markerX() const;
    // What resting the mouse over an action tells.
    QString hoverText(int event) const;

signals:
    // The user clicked in the plot over this action.
    void positionRequested(int event);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Range {
        qint64 low;
        qint64 high;
    };

    void rebuild();
    // The series of player `place`, each line with no more points than `columns` pixel columns
    // need; their points are added to `filling`, for the series to take once the axes are set.
    void addPlayer(int place, int columns, std::vector<std::pair<QXYSeries*, QList<QPointF>>>& filling);
    void showShown(int place);
    void fitValues();
    void placeMarker();
    bool overPlot(QPoint viewportPoint) const;

    const ReplayHistory* history_ = nullptr;
    int eventCount_ = 0;
    Quantity quantity_ = Quantity::Territory;
    int position_ = 0;
    std::vector<bool> hidden_;                          // by place - 1; kept across quantities
    std::vector<std::vector<QAbstractSeries*>> seriesOf_;  // by place - 1
    std::vector<QLegendMarker*> legendOf_;              // by place - 1
    std::vector<Range> ranges_;                         // by place - 1; empty range when uncharted
    qreal widestLabels_ = 0;                            // of the value axis, over every quantity
    QValueAxis* axisX_;
    QValueAxis* axisY_;
    QGraphicsLineItem* marker_;
    HoverNote* hover_;  // what resting the pointer over the plot tells
};

}  // namespace trelvin

#include "widgets/course_chart.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <QGraphicsLineItem>
#include <QLegend>
#include <QFontMetricsF>
#include <QLegendMarker>
#include <QLineSeries>
#include <QMouseEvent>
#include <QScreen>
#include <QScatterSeries>
#include <QValueAxis>

#include "bridge/core_text.h"
#include "bridge/date_text.h"
#include "display/course_texts.h"
#include "display/round_step.h"
#include "history/course_lines.h"
#include "widgets/hover_note.h"
#include "widgets/player_colors.h"

namespace trelvin {

namespace {

constexpr qreal kLineWidth = 1.5;
constexpr qreal kEndMarkSize = 10;
constexpr qreal kHiddenAlpha = 0.3;
constexpr int kLabelledTicks = 8;
constexpr int kMargin = 2;

// Round action numbers, about eight of them over the replay.
double tickInterval(int eventCount) {
    return double(RoundStepAtLeast(double(eventCount) / kLabelledTicks));
}

QColor withAlpha(QColor color, qreal alpha) {
    color.setAlphaF(float(alpha));
    return color;
}

// How wide the value axis's widest label is drawn, its ticks as round numbers give them.
qreal labelsWidth(const QValueAxis& axis) {
    const QFontMetricsF metrics(axis.labelsFont());
    const int ticks = std::max(axis.tickCount(), 2);
    qreal widest = 0;
    for (int i = 0; i < ticks; ++i) {
        const double value = axis.min() + i * (axis.max() - axis.min()) / (ticks - 1);
        widest = std::max(widest, metrics.boundingRect(QString::number(std::llround(value))).width());
    }
    return widest;
}

// The widest value label any quantity's axis needs for the whole replay.
qreal widestLabels(const PlayerSeries& series, const QFont& font) {
    qreal widest = 0;
    for (const Quantity quantity : kQuantities) {
        qint64 low = 0, high = 1;
        for (int place = 1; place <= series.placeCount(); ++place)
            for (const PlayerSeries::Change& change : series.changesOf(place)) {
                if (change.who < 0 || !change.standing.playing) continue;
                low = std::min<qint64>(low, change.standing.value(quantity));
                high = std::max<qint64>(high, change.standing.value(quantity));
            }
        QValueAxis axis;
        axis.setLabelsFont(font);
        axis.setRange(double(low), double(high));
        axis.applyNiceNumbers();
        widest = std::max(widest, labelsWidth(axis));
    }
    return widest;
}

}  // namespace

// Given its chart from the start: a chart set later would leave the view's first one behind.
CourseChart::CourseChart(QWidget* parent)
    : QChartView(new QChart, parent), axisX_(new QValueAxis), axisY_(new QValueAxis), hover_(new HoverNote(this)) {
    QChart* chart = this->chart();
    chart->setMargins(QMargins(kMargin, kMargin, kMargin, kMargin));
    chart->setBackgroundRoundness(0);
    chart->legend()->setAlignment(Qt::AlignTop);
    chart->addAxis(axisX_, Qt::AlignBottom);
    chart->addAxis(axisY_, Qt::AlignLeft);
    axisX_->setLabelFormat(QStringLiteral("%i"));
    axisX_->setTickType(QValueAxis::TicksDynamic);
    axisX_->setTickAnchor(0);
    axisY_->setLabelFormat(QStringLiteral("%i"));
    // Small print: the chart shares the window's height with the designed area, and the legend
    // names up to twelve players beside it.
    QFont small = font();
    small.setPointSizeF(std::max(6.0, small.pointSizeF() - 2));
    chart->legend()->setFont(small);
    // A name the legend has to cut is whole in the entry's tooltip.
    chart->legend()->setShowToolTips(true);
    axisX_->setLabelsFont(small);
    axisY_->setLabelsFont(small);
    setRenderHint(QPainter::Antialiasing);
    // The hover text follows the pointer with no button held.
    viewport()->setMouseTracking(true);
    marker_ = new QGraphicsLineItem(chart);
    marker_->setPen(QPen(QColor(0xc0, 0x10, 0x10), 2));
    marker_->setZValue(100);  // above every series
    connect(chart, &QChart::plotAreaChanged, this, &CourseChart::placeMarker);
    rebuild();
}

void CourseChart::showReplay(const ReplayHistory& history, int eventCount) {
    history_ = &history;
    eventCount_ = std::min({eventCount, history.log.size(), history.series.eventCount()});
    hidden_.assign(std::size_t(history.series.placeCount()), false);
    chart()->setTitle(history.series.complete() ? QString() : FromUtf8(ChartsMissingText()));
    widestLabels_ = history.series.complete() ? widestLabels(history.series, axisY_->labelsFont()) : 0;
    rebuild();
}

void CourseChart::setQuantity(Quantity quantity) {
    quantity_ = quantity;
    rebuild();
}

void CourseChart::setPosition(int position) {
    position_ = position;
    placeMarker();
}

bool CourseChart::playerShown(int place) const {
    return place >= 1 && place <= int(hidden_.size()) && !hidden_[std::size_t(place - 1)];
}

void CourseChart::setPlayerShown(int place, bool shown) {
    if (place < 1 || place > playerCount()) return;
    hidden_[std::size_t(place - 1)] = !shown;
    showShown(place);
    fitValues();
}

const std::vector<QAbstractSeries*>& CourseChart::seriesOf(int place) const {
    return seriesOf_.at(std::size_t(place - 1));
}

void CourseChart::rebuild() {
    hover_->hide();
    chart()->removeAllSeries();
    const bool charted = history_ && eventCount_ >= 1 && history_->series.complete();
    const int players = charted ? history_->series.placeCount() : 0;
    seriesOf_.assign(std::size_t(players), {});
    legendOf_.assign(std::size_t(players), nullptr);
    ranges_.assign(std::size_t(players), {std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()});
    // The axis lays out its labels at each change: a long replay's range with a short one's
    // interval would make tens of thousands of them for a moment. The interval grows and shrinks
    // with the range, so the one that makes fewer ticks goes first.
    const double interval = tickInterval(eventCount_);
    if (interval >= axisX_->tickInterval()) axisX_->setTickInterval(interval);
    axisX_->setRange(1, std::max(eventCount_, 2));
    axisX_->setTickInterval(interval);
    // No line needs more points than the screen has pixel columns, however wide the chart grows.
    const int columns = std::max(1, int(std::ceil(screen()->size().width() * devicePixelRatioF())));
    // The series are filled last, on their final axes: each drawn once, not at every axis change.
    std::vector<std::pair<QXYSeries*, QList<QPointF>>> filling;
    for (int place = 1; place <= players; ++place) addPlayer(place, columns, filling);
    fitValues();
    for (auto& [series, points] : filling) series->replace(points);
    placeMarker();
}

void CourseChart::addPlayer(int place, int columns, std::vector<std::pair<QXYSeries*, QList<QPointF>>>& filling) {
    const QColor color = PlayerColor(place);
    std::vector<QAbstractSeries*>& series = seriesOf_[std::size_t(place - 1)];
    Range& range = ranges_[std::size_t(place - 1)];
    const auto add = [&](QXYSeries* added, QList<QPointF> points) {
        filling.emplace_back(added, std::move(points));
        chart()->addSeries(added);
        added->attachAxis(axisX_);
        added->attachAxis(axisY_);
        series.push_back(added);
    };
    QList<QPointF> ends;
    const std::vector<CourseLine> lines = CourseLinesOf(history_->series, place, quantity_, eventCount_);
    for (const CourseLine& line : lines) {
        const std::vector<CoursePoint> fitted = FitToColumns(line.points, eventCount_, columns);
        QList<QPointF> points;
        points.reserve(qsizetype(fitted.size()));
        for (const CoursePoint& point : fitted) {
            points.append(QPointF(point.event, point.value));
            range = {std::min<qint64>(range.low, point.value), std::max<qint64>(range.high, point.value)};
        }
        if (line.endsOut) ends.append(points.back());
        auto* drawn = new QLineSeries;
        drawn->setPen(QPen(color, kLineWidth));
        add(drawn, points);
    }
    // The legend names every player, charted or not.
    if (lines.empty()) add(new QLineSeries, {});
    if (!ends.isEmpty()) {
        auto* mark = new QScatterSeries;
        mark->setMarkerShape(QScatterSeries::MarkerShapeRotatedRectangle);
        mark->setMarkerSize(kEndMarkSize);
        mark->setColor(color);
        mark->setBorderColor(color.darker(170));
        add(mark, ends);
    }
    series.front()->setName(FromUtf8(PlayerEntryText(history_->series.lastHolder(place))));
    legendOf_[std::size_t(place - 1)] = chart()->legend()->markers(series.front()).value(0);
    if (QLegendMarker* entry = legendOf_[std::size_t(place - 1)])
        connect(entry, &QLegendMarker::clicked, this, [this, place] { setPlayerShown(place, !playerShown(place)); });
    showShown(place);
}

// Hiding a series hides its legend entry too: a player's entry stays, faded, and only the first
// of the player's series has one.
void CourseChart::showShown(int place) {
    const bool shown = playerShown(place);
    const std::vector<QAbstractSeries*>& series = seriesOf(place);
    for (QAbstractSeries* each : series) {
        each->setVisible(shown);
        if (each != series.front())
            for (QLegendMarker* entry : chart()->legend()->markers(each)) entry->setVisible(false);
    }
    QLegendMarker* entry = legendOf_[std::size_t(place - 1)];
    if (!entry) return;
    const qreal alpha = shown ? 1.0 : kHiddenAlpha;
    entry->setVisible(true);
    entry->setBrush(withAlpha(PlayerColor(place), alpha));
    entry->setPen(QPen(withAlpha(PlayerColor(place).darker(150), alpha)));
    entry->setLabelBrush(withAlpha(palette().color(QPalette::Text), alpha));
}

// The values of the players shown, from 0 or the lowest below it, on round numbers.
void CourseChart::fitValues() {
    qint64 low = 0, high = 1;
    for (int place = 1; place <= playerCount(); ++place) {
        const Range& range = ranges_[std::size_t(place - 1)];
        if (!playerShown(place) || range.low > range.high) continue;
        low = std::min(low, range.low);
        high = std::max(high, range.high);
    }
    axisY_->setRange(double(low), double(high));
    axisY_->applyNiceNumbers();
    // The plot keeps its place across the quantities: narrower labels leave their room as margin.
    const qreal spare = std::max<qreal>(0, widestLabels_ - labelsWidth(*axisY_));
    chart()->setMargins(QMargins(kMargin + int(std::lround(spare)), kMargin, kMargin, kMargin));
}

void CourseChart::placeMarker() {
    const QRectF plot = chart()->plotArea();
    const bool shown = position_ >= 1 && position_ <= eventCount_ && plot.width() > 0;
    marker_->setVisible(shown);
    if (!shown) return;
    const qreal x = plot.left() + (position_ - axisX_->min()) / (axisX_->max() - axisX_->min()) * plot.width();
    marker_->setLine(x, plot.top(), x, plot.bottom());
}

int CourseChart::eventAt(int x) const {
    if (eventCount_ < 1) return 0;
    const QRectF plot = chart()->plotArea();
    const qreal inChart = chart()->mapFromScene(mapToScene(QPoint(x, 0))).x();
    const double event = axisX_->min() + (inChart - plot.left()) / plot.width() * (axisX_->max() - axisX_->min());
    return std::clamp(int(std::lround(event)), 1, eventCount_);
}

int CourseChart::xOf(int event) const {
    const QRectF plot = chart()->plotArea();
    const qreal inChart = plot.left() + (event - axisX_->min()) / (axisX_->max() - axisX_->min()) * plot.width();
    return mapFromScene(chart()->mapToScene(QPointF(inChart, plot.center().y()))).x();
}

std::optional<int> CourseChart::markerX() const {
    if (!marker_->isVisible()) return std::nullopt;
    return mapFromScene(marker_->mapToScene(marker_->line().p1())).x();
}

bool CourseChart::overPlot(QPoint viewportPoint) const {
    return chart()->plotArea().contains(chart()->mapFromScene(mapToScene(viewportPoint)));
}

QString CourseChart::hoverText(int event) const {
    if (eventCount_ < 1 || event < 1 || event > eventCount_) return {};
    QString text = QStringLiteral("<p style=\"white-space:pre\"><b>Akce %1</b>&nbsp;&nbsp;%2")
                       .arg(event)
                       .arg(GeneralDateText(history_->log.event(event).time).toHtmlEscaped());
    for (int place = 1; place <= playerCount(); ++place) {
        const std::optional<PlayerSeries::Entry> entry = history_->series.at(event, place);
        if (!playerShown(place) || !entry) continue;
        text += QStringLiteral("<br><span style=\"color:%1\">&#9632;</span> %2: %3")
                    .arg(PlayerColor(place).name(), FromUtf8(PlayerEntryText(*entry->who)).toHtmlEscaped(),
                         FromUtf8(StandingText(entry->standing, quantity_)));
    }
    return text + QStringLiteral("</p>");
}

void CourseChart::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (event->button() == Qt::LeftButton && eventCount_ >= 1 && overPlot(at)) {
        emit positionRequested(eventAt(at.x()));
        event->accept();
        return;
    }
    QChartView::mousePressEvent(event);
}

void CourseChart::mouseMoveEvent(QMouseEvent* event) {
    QChartView::mouseMoveEvent(event);
    const QPoint at = event->position().toPoint();
    if (eventCount_ >= 1 && overPlot(at))
        hover_->showAt(event->globalPosition().toPoint(), hoverText(eventAt(at.x())));
    else
        hover_->hide();
}

bool CourseChart::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) hover_->hide();
    return QChartView::viewportEvent(event);
}

void CourseChart::hideEvent(QHideEvent* event) {
    hover_->hide();
    QChartView::hideEvent(event);
}

}  // namespace trelvin

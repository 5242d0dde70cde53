#include "window_bench.h"

#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstdio>
#include <random>
#include <vector>

#include <QApplication>
#include <QDockWidget>
#include <QHelpEvent>
#include <QImage>
#include <QPainter>
#include <QMouseEvent>

#include "bridge/core_text.h"
#include "model/field_addressing.h"
#include "panels/action_list_panel.h"
#include "panels/charts_panel.h"
#include "panels/map_panel.h"
#include "panels/playback_controls.h"
#include "panels/timeline_strip.h"
#include "widgets/action_list.h"
#include "widgets/course_chart.h"
#include "widgets/timeline.h"
#include "shell/frm_main.h"
#include "view/action_marks.h"

namespace {

// Moves timed one by one: a median and the slowest of them.
constexpr int kRandomMoves = 100;

// What one pass of the window's event loop does. processEvents() alone leaves the deferred
// deletions, which a replaced chart leaves: its items would pile up over the opens timed here.
void runEventLoopOnce() {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// The processor time of the whole program (all its threads), in milliseconds.
double processorMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

// A move's wall time and the processor time the program took for it.
struct Timed {
    double wall;
    double processor;
};

class Moves {
public:
    void add(Timed move) {
        wall_.push_back(move.wall);
        processor_.push_back(move.processor);
    }
    void printMedian(const char* name, const char* target) { print(name, target, wall_.size() / 2); }
    void printSlowest(const char* name, const char* target) { print(name, target, wall_.size() - 1); }

private:
    // The figure at `rank` among the wall times, with the processor time of the same rank.
    void print(const char* name, const char* target, std::size_t rank) {
        std::sort(wall_.begin(), wall_.end());
        std::sort(processor_.begin(), processor_.end());
        std::printf("%-28s %10.3f %s (processor %.3f ms)\n", name, wall_[rank], target, processor_[rank]);
    }
    std::vector<double> wall_, processor_;
};

class SilentMessages : public trelvin::MessageService {
public:
    void showMessage(const QString&) override { ++count; }
    int count = 0;
};

class FixedFile : public trelvin::OpenFileService {
public:
    explicit FixedFile(QString path) : path_(std::move(path)) {}
    std::optional<QString> chooseFile(const QString&) override { return path_; }

private:
    QString path_;
};

template <typename Body>
double medianMilliseconds(int runs, Body&& body) {
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        const auto start = std::chrono::steady_clock::now();
        body();
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace

void RunWindowBenchmarks(const std::string& path, int runs, int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication application(argc, argv);
    SilentMessages messages;
    FixedFile file(QString::fromStdString(path));
    frmMain window({messages, file, {}});
    const trelvin::WorldState& world = window.session().world();
    window.resize(1280, 800);
    window.show();

    const double openMs = medianMilliseconds(runs, [&] {
        window.mnuOtevritItem_Click();
        runEventLoopOnce();
    });
    std::printf("%-28s %10.3f %s\n", "full_open_ms", openMs, "ms (target < 120)");

    window.controls->cmdEnd_Click();
    const double redrawMs = medianMilliseconds(runs, [&] {
        window.grid->Zobraz();
        window.grid->viewport()->repaint();
    });
    std::printf("%-28s %10.3f %s\n", "redraw_ms", redrawMs, "ms (target < 16)");
    // The whole map painted at 100 % (what the window shows of it) and at "fit" (all of it).
    window.grid->setFieldPixels(trelvin::MapGrid::kFieldPixels);
    const double paint100 = medianMilliseconds(runs, [&] { window.grid->viewport()->repaint(); });
    std::printf("%-28s %10.3f %s\n", "map_paint_100_ms", paint100, "ms (target < 16)");
    window.grid->zoomToFit();
    const double paintFit = medianMilliseconds(runs, [&] { window.grid->viewport()->repaint(); });
    std::printf("%-28s %10.3f %s (%d px a field)\n", "map_paint_fit_ms", paintFit, "ms (target < 16)",
                window.grid->fieldPixels());
    window.grid->setFieldPixels(trelvin::MapGrid::kFieldPixels);

    // A move as the user waits for it: its events, then the paint of whatever it changed (the
    // map, the texts, the list, the timeline), as the event loop runs them. On a shared machine
    // the wall time also holds the time other programs had the processor, so the processor time
    // the program took is given beside it.
    const auto timedMove = [&](const auto& move) {
        const double cpuBefore = processorMilliseconds();
        const double wall = medianMilliseconds(1, [&] {
            move();
            // A jump the mouse asks for runs from the event loop, the paint it asks for on the
            // loop's next pass.
            runEventLoopOnce();
            runEventLoopOnce();
        });
        return Timed{wall, processorMilliseconds() - cpuBefore};
    };
    // Jumps from the timeline, the list or the keys to random actions.
    std::mt19937 random(7);
    std::uniform_int_distribution<int> anywhere(1, world.eventCount);
    Moves jumps;
    for (int i = 0; i < kRandomMoves; ++i) jumps.add(timedMove([&, event = anywhere(random)] { window.session().jumpTo(event); }));
    jumps.printMedian("jump_any_ms", "ms (target < 4)");
    jumps.printSlowest("jump_worst_ms", "ms (target < 8)");

    // One step back by the button from random actions, as the slide show backwards makes them.
    Moves stepsBack;
    for (int i = 0; i < kRandomMoves; ++i) {
        window.session().jumpTo(anywhere(random));
        runEventLoopOnce();
        stepsBack.add(timedMove([&] { window.controls->cmdBack_Click(); }));
    }
    stepsBack.printMedian("step_back_ms", "ms (target < 4)");

    // A drag across the timeline from end to end in one second at 60 moves a second: each move's
    // mouse event, the jump it asks for and the paint. The slowest must fit in one frame, or the
    // position lags behind the mouse.
    window.session().jumpTo(1);
    runEventLoopOnce();
    QWidget* bar = window.timelineStrip->timeline;
    const auto mouse = [&](QEvent::Type type, int x) {
        const QPointF at(x, bar->height() / 2);
        QMouseEvent event(type, at, bar->mapToGlobal(at), Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(bar, &event);
    };
    Moves drag;
    drag.add(timedMove([&] { mouse(QEvent::MouseButtonPress, 0); }));
    for (int move = 1; move <= 60; ++move)
        drag.add(timedMove([&] { mouse(QEvent::MouseMove, (bar->width() - 1) * move / 60); }));
    mouse(QEvent::MouseButtonRelease, bar->width() - 1);
    drag.printSlowest("drag_slowest_ms", "ms (target < 8)");

    // The current action marked: what the marks add to a redraw (choosing them and painting them
    // over the map in view), and the whole redraw with them, at an attack.
    const trelvin::ActionLog& log = window.session().history().log;
    window.session().jumpTo(std::max(1, log.nearest(world.eventCount / 2, trelvin::EventKind::Attacks, true)));
    window.grid->setFieldPixels(trelvin::MapGrid::kFieldPixels);
    // Painted onto an image around the marks, so that they are drawn wherever the attack is.
    trelvin::MapPainter painter;
    trelvin::MapScene scene = window.grid->scene();
    const auto markAction = [&] {
        const int position = window.session().position();
        scene.marks = trelvin::MarkAction(world, position, log.event(position).headquartersTaken,
                                          window.session().viewMode(), int(scene.pictures.size()));
    };
    markAction();
    const QRect marked = painter.marksRect(scene, QPoint(0, 0));
    QImage around(marked.size().grownBy({10, 10, 10, 10}), QImage::Format_RGB32);
    const double marksMs = medianMilliseconds(runs, [&] {
        markAction();
        QPainter onto(&around);
        painter.paintMarks(onto, scene, QPoint(10, 10) - marked.topLeft(), around.rect());
    });
    std::printf("%-28s %10.3f %s (%zu fields marked)\n", "highlight_added_ms", marksMs, "ms (target < 1)",
                scene.marks.outlined.size());
    // What a move adds after its events: the redraw's writes, the frame and its paint.
    const double markedRedrawMs = medianMilliseconds(runs, [&] {
        window.session().setViewMode(window.session().viewMode());
        window.grid->viewport()->repaint();
    });
    std::printf("%-28s %10.3f %s\n", "redraw_marked_ms", markedRedrawMs, "ms (target < 16)");

    // Resting the pointer on the timeline: the text of the event under it, shown.
    trelvin::Timeline& timeline = *window.timelineStrip->timeline;
    std::uniform_int_distribution<int> along(0, std::max(0, timeline.width() - 1));
    const double hoverMs = medianMilliseconds(runs, [&] {
        const QPoint at(along(random), 10);
        QHelpEvent help(QEvent::ToolTip, at, timeline.mapToGlobal(at));
        QApplication::sendEvent(&timeline, &help);
    });
    std::printf("%-28s %10.3f %s\n", "timeline_hover_ms", hoverMs, "ms (target < 16)");

    // The action list narrowed by a player or a search, with the paint that follows, as the
    // user waits for it.
    trelvin::ActionList& list = *window.actionList;
    const auto narrowings = [&](int times, auto&& narrow) {
        Moves moves;
        for (int i = 0; i < times; ++i) moves.add(timedMove(narrow));
        return moves;
    };
    narrowings(1, [&] { list.setSearch(QStringLiteral("Utok")); }).printMedian("list_first_search_ms", "ms (target < 16)");
    list.setSearch({});
    const int players = int(window.session().history().players.names().size());
    int player = 0;
    narrowings(kRandomMoves, [&] { list.setPlayer(player++ % std::max(players, 1)); })
        .printMedian("list_filter_player_ms", "ms (target < 16)");
    list.setPlayer(trelvin::ActionPlayers::kNobody);
    std::uniform_int_distribution<int> field(1, world.mapWidth * world.mapHeight);
    narrowings(kRandomMoves, [&] { list.setSearch(trelvin::FromCore(trelvin::FieldName(world, field(random)))); })
        .printMedian("list_search_field_ms", "ms (target < 16)");
    bool other = false;
    narrowings(kRandomMoves, [&] {
        other = !other;
        list.setSearch(other ? QStringLiteral("jednotek") : QStringLiteral("nakup"));
    }).printMedian("list_search_text_ms", "ms (target < 16)");
    list.setSearch({});

    // With the charts shown below the window: the open that builds them, a full paint, and what a
    // move costs them: the marker moved and the two strips it leaves and reaches repainted, with
    // the hover text of the action under the pointer.
    window.chartsDock->show();
    runEventLoopOnce();
    const double openChartsMs = medianMilliseconds(runs, [&] {
        window.mnuOtevritItem_Click();
        runEventLoopOnce();
    });
    std::printf("%-28s %10.3f %s\n", "full_open_with_charts_ms", openChartsMs, "ms (both panels, target < 120)");
    trelvin::CourseChart& chart = *window.charts->chart;
    const double chartPaintMs = medianMilliseconds(runs, [&] { chart.viewport()->repaint(); });
    std::printf("%-28s %10.3f %s\n", "chart_paint_ms", chartPaintMs, "ms (the whole chart)");
    int hoverLength = 0;
    const double markerMs = medianMilliseconds(std::max(runs, 60), [&] {
        const int event = anywhere(random);
        const int before = chart.xOf(chart.position());
        chart.setPosition(event);
        hoverLength += int(chart.hoverText(event).size());
        const int after = chart.xOf(event);
        chart.viewport()->repaint(QRect(std::min(before, after) - 2, 0, 5, chart.viewport()->height()));
        if (std::abs(after - before) > 5) chart.viewport()->repaint(QRect(std::max(before, after) - 2, 0, 5, chart.viewport()->height()));
    });
    std::printf("%-28s %10.3f %s\n", "chart_marker_move_ms", markerMs, "ms (with the hover text, target < 2)");
    if (hoverLength == 0) std::printf("the chart's hover text is empty\n");

    std::printf("%-28s %10d\n", "window_messages", messages.count);
}

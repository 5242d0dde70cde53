#include "window_bench.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstdio>
#include <vector>

#include <random>

#include <QApplication>
#include <QDockWidget>

#include "history/replay_history.h"
#include "panels/action_list_panel.h"
#include "panels/charts_panel.h"
#include "panels/map_panel.h"
#include "panels/playback_controls.h"
#include "panels/timeline_strip.h"
#include "playback/course_chart.h"
#include "playback/timeline.h"
#include "shell/frm_main.h"

namespace {

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
    frmMain window({messages, file, {}, {}});
    const trelvin::WorldState& world = window.session().world();
    window.resize(1280, 800);
    window.show();

    const double openMs = medianMilliseconds(runs, [&] {
        window.mnuOtevritItem_Click();
        QApplication::processEvents();
    });
    std::printf("%-28s %10.3f %s\n", "full_open_ms", openMs, "ms (target < 100)");

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

    // Jumps from the timeline, the list or the keys: the rebuild, the redraw and every panel.
    const auto jumpAndPaint = [&](int event) {
        window.session().jumpTo(event);
        window.grid->viewport()->repaint();
        window.actionList->repaint();
        window.timelineStrip->timeline->repaint();
    };
    std::mt19937 random(7);
    std::uniform_int_distribution<int> anywhere(1, world.eventCount);
    const double jumpMs = medianMilliseconds(runs, [&] { jumpAndPaint(anywhere(random)); });
    std::printf("%-28s %10.3f %s\n", "jump_anywhere_ms", jumpMs, "ms (target < 16)");

    const double historyMs = medianMilliseconds(runs, [&] { trelvin::ReplayHistory::Build(world); });
    std::printf("%-28s %10.3f %s\n", "list_and_series_build_ms", historyMs, "ms (the action list and every series, target < 60)");
    std::printf("%-28s %10.3f %s\n", "series_memory_mb", double(window.session().history().series.bytes()) / (1 << 20),
                "MB (target < 20)");

    // A drag from end to end in one second at 60 moves a second: the slowest move must fit in
    // one frame, or the position lags behind the mouse.
    double slowestMove = 0;
    window.session().jumpTo(1);
    for (int move = 1; move <= 60; ++move) {
        const int event = 1 + (world.eventCount - 1) * move / 60;
        slowestMove = std::max(slowestMove, medianMilliseconds(1, [&] { jumpAndPaint(event); }));
    }
    std::printf("%-28s %10.3f %s\n", "drag_slowest_move_ms", slowestMove, "ms (target < 16.7)");

    // With the charts shown below the window: the open that builds them, a full paint, and what a
    // move costs them: the marker moved and the two strips it leaves and reaches repainted, with
    // the hover text of the action under the pointer.
    window.chartsDock->show();
    QApplication::processEvents();
    const double openChartsMs = medianMilliseconds(runs, [&] {
        window.mnuOtevritItem_Click();
        QApplication::processEvents();
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

#include "window_bench.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include <random>

#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QPainter>

#include "history/replay_history.h"
#include "panels/action_list_panel.h"
#include "panels/map_panel.h"
#include "panels/playback_controls.h"
#include "panels/timeline_strip.h"
#include "playback/action_list.h"
#include "playback/timeline.h"
#include "shell/frm_main.h"
#include "view/action_marks.h"

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

    const double logMs = medianMilliseconds(runs, [&] { trelvin::ReplayHistory::Build(world); });
    std::printf("%-28s %10.3f %s\n", "action_list_build_ms", logMs, "ms (target < 50)");

    // A drag from end to end in one second at 60 moves a second: the slowest move must fit in
    // one frame, or the position lags behind the mouse.
    double slowestMove = 0;
    window.session().jumpTo(1);
    for (int move = 1; move <= 60; ++move) {
        const int event = 1 + (world.eventCount - 1) * move / 60;
        slowestMove = std::max(slowestMove, medianMilliseconds(1, [&] { jumpAndPaint(event); }));
    }
    std::printf("%-28s %10.3f %s\n", "drag_slowest_move_ms", slowestMove, "ms (target < 16.7)");

    // The current action marked: what the marks add to a redraw (choosing them and painting them
    // over the map in view), and the whole redraw with them, at an attack.
    const trelvin::ActionLog& log = window.session().history().log;
    window.session().jumpTo(std::max(1, log.nearest(world.eventCount / 2, trelvin::EventKind::Attacks, true)));
    window.grid->setFieldPixels(trelvin::MapGrid::kFieldPixels);
    QImage view(window.grid->viewport()->size(), QImage::Format_RGB32);
    trelvin::MapPainter painter;
    trelvin::MapScene scene = window.grid->scene();
    const double marksMs = medianMilliseconds(runs, [&] {
        scene.marks = trelvin::MarkAction(world, window.session().position(), window.session().viewMode(),
                                          int(scene.pictures.size()));
        QPainter onto(&view);
        painter.paintMarks(onto, scene, QPoint(20, 20), view.rect());
    });
    std::printf("%-28s %10.3f %s (%zu fields marked)\n", "highlight_added_ms", marksMs, "ms (target < 1)",
                scene.marks.outlined.size());
    const double markedRedrawMs = medianMilliseconds(runs, [&] {
        window.grid->Zobraz();
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

    // The action list narrowed by a player or a search, and repainted.
    trelvin::ActionList& list = *window.actionList;
    const auto narrowed = [&](int times, auto&& narrow) {
        return medianMilliseconds(times, [&] {
            narrow();
            list.repaint();
        });
    };
    // The first search also makes the texts every later one reads.
    const double firstSearchMs = narrowed(1, [&] { list.setSearch(QStringLiteral("Utok")); });
    list.setSearch({});
    const int players = int(window.session().history().players.names().size());
    int player = 0;
    const double playerMs = narrowed(runs, [&] { list.setPlayer(player++ % std::max(players, 1)); });
    list.setPlayer(trelvin::ActionPlayers::kNobody);
    std::uniform_int_distribution<int> field(0, world.mapWidth * world.mapHeight - 1);
    const double fieldSearchMs = narrowed(runs, [&] {
        const int k = field(random);
        list.setSearch(QStringLiteral("%1%2").arg(QChar(u'A' + k % world.mapWidth)).arg(k / world.mapWidth));
    });
    bool other = false;
    const double textSearchMs = narrowed(runs, [&] {
        other = !other;
        list.setSearch(other ? QStringLiteral("jednotek") : QStringLiteral("nakup"));
    });
    list.setSearch({});
    std::printf("%-28s %10.3f %s\n", "list_first_search_ms", firstSearchMs, "ms (target < 16)");
    std::printf("%-28s %10.3f %s\n", "list_filter_player_ms", playerMs, "ms (target < 16)");
    std::printf("%-28s %10.3f %s\n", "list_search_field_ms", fieldSearchMs, "ms (target < 16)");
    std::printf("%-28s %10.3f %s\n", "list_search_text_ms", textSearchMs, "ms (target < 16)");
    std::printf("%-28s %10d\n", "window_messages", messages.count);
}

#pragma once
// The main window driven without a person: the Open dialog answers from a queue, message
// boxes are recorded, and every applied event index is recorded before it is applied.
#include <QtTest>
#include <QtWidgets>

#include "engine/event_executor.h"
#include "shell/frm_main.h"
#include "view/map_grid.h"

namespace trelvin::testing {

struct RecordingMessages : MessageService {
    void showMessage(const QString& text) override {
        texts.push_back(text);
        if (whileShown) whileShown();
    }
    QStringList texts;
    std::function<void()> whileShown;
};

struct QueuedFiles : OpenFileService {
    std::optional<QString> chooseFile(const QString&) override {
        if (answers.empty()) return std::nullopt;
        return answers.takeFirst();
    }
    QList<std::optional<QString>> answers;
};

struct Window {
    Window()
        : window(std::make_unique<frmMain>(
              world, WindowServices{messages, files,
                                    [this](WorldState& w, std::int16_t i, Reporter& r) {
                                        applied.push_back(i);
                                        ExecuteEvent(w, i, r);
                                    },
                                    [this](const QString& path) -> std::unique_ptr<ReplaySource> {
                                        if (openReplay) return openReplay(path);
                                        return std::make_unique<ReplayFile>(path.toStdString());
                                    }})) {}

    // Writes a replay (lines joined by CR LF, bytes as given: Windows-1250) and opens it
    // through the menu command.
    void open(const std::string& name, const std::vector<std::string>& lines) {
        files.answers.push_back(write(name, lines));
        window->mnuOtevritItem_Click();
    }
    QString write(const std::string& name, const std::vector<std::string>& lines) {
        QByteArray bytes;
        for (const std::string& line : lines) bytes += line + "\r\n";
        return write(name, bytes);
    }
    QString write(const std::string& name, const QByteArray& bytes) {
        QFile file(directory.filePath(QString::fromStdString(name)));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return file.fileName();
    }
    // The events `action` applies.
    template <typename Action>
    std::vector<int> applies(Action action) {
        applied.clear();
        action();
        return applied;
    }
    // Shown and active: window shortcuts reach only the active window.
    void activate() {
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    WorldState world;
    ReplayOpener openReplay;  // empty: the file at the path
    RecordingMessages messages;
    QueuedFiles files;
    std::vector<int> applied;
    QTemporaryDir directory;
    std::unique_ptr<frmMain> window;
};

// '1' for each enabled button: the five forward ones, then the five backward ones.
inline QString EnabledButtons(const frmMain& w) {
    QString result;
    for (QPushButton* b : {w.cmdForw, w.cmdEnd, w.cmdSEnd, w.cmdD, w.cmdRD, w.cmdBack, w.cmdBegin, w.cmdSBegin, w.cmdZ, w.cmdRZ})
        result += b->isEnabled() ? '1' : '0';
    return result;
}

inline std::vector<int> Range(int first, int last) {
    std::vector<int> result;
    for (int i = first; i <= last; ++i) result.push_back(i);
    return result;
}

// The world Alfa: 3 columns, 2 rows, two players; 7 events with the inserted start and end.
inline const std::vector<std::string> kAlfa{
    "0;Alfa;2;3;2;3",
    "2004-06-19-08-00-00;create_world;NNBSXN",
    "2004-06-19-08-10-00;create_hq;Karel;les;A0",
    "2004-06-19-08-20-30;create_hq;Jana;louka;C1",
    "2004-06-19-09-05-00;buy;A0;Vosi\xe8ka;4",
    "2004-06-19-09-40-00;attack;A0;B0;4;1;3",
};

// `count` events: the world, then lines without a rule, all within one hour.
inline std::vector<std::string> PlainReplay(int count) {
    std::vector<std::string> lines{"0;Rada;9;3;2;3", "2004-06-19-08-00-00;create_world;NNNNNN"};
    for (int i = 2; i <= count; ++i)
        lines.push_back("2004-06-19-08-" + std::string(i < 10 ? "0" : "") + std::to_string(i) +
                        "-00;fly");
    return lines;
}

}  // namespace trelvin::testing

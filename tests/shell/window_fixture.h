#pragma once
// The main window driven without a person: the Open dialog answers from a queue, message
// boxes are recorded, and every applied event index is recorded before it is applied.
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include "engine/event_executor.h"
#include "shell/frm_main.h"

namespace trelvin::testing {

class RecordingMessages : public MessageService {
public:
    void showMessage(const QString& text) override {
        texts.push_back(text);
        if (whileShown) whileShown();
    }
    QStringList texts;
    std::function<void()> whileShown;
};

class QueuedFiles : public OpenFileService {
public:
    std::optional<QString> chooseFile(const QString&) override {
        if (answers.empty()) return std::nullopt;
        const std::optional<QString> answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::deque<std::optional<QString>> answers;
};

struct Window {
    Window()
        : window(std::make_unique<frmMain>(
              world, WindowServices{messages, files, [this](WorldState& w, std::int16_t i, Reporter& r) {
                                        applied.push_back(i);
                                        ExecuteEvent(w, i, r);
                                    }})) {}

    // Writes a replay (lines joined by CR LF, bytes as given: Windows-1250) and opens it
    // through the menu command.
    void open(const std::string& name, const std::vector<std::string>& lines) {
        files.answers.push_back(write(name, lines));
        window->mnuOtevritItem_Click();
    }
    QString write(const std::string& name, const std::vector<std::string>& lines) {
        const QString path = directory.filePath(QString::fromStdString(name));
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        for (const std::string& line : lines) file.write((line + "\r\n").c_str());
        return path;
    }

    WorldState world;
    RecordingMessages messages;
    QueuedFiles files;
    std::vector<int> applied;
    QTemporaryDir directory;
    std::unique_ptr<frmMain> window;
};

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

#pragma once
// The main window driven without a person: the Open dialog answers from a queue, message
// boxes are recorded, and so are the events every move applies. Its widgets are found by their
// object names, as the window names them.
#include <source_location>
#include <stdexcept>

#include <QtTest>
#include <QtWidgets>

#include "panels/field_panel.h"
#include "panels/map_panel.h"
#include "panels/playback_controls.h"
#include "panels/player_panel.h"
#include "panels/view_mode_panel.h"
#include "shell/frm_main.h"
#include "support/replays.h"

namespace trelvin::testing {

// The one object of type W named `name` under `root`. A name that finds none, or more than one,
// fails the test where it was asked for, and ends it.
template <typename W>
W& Find(QObject& root, const QString& name, std::source_location at = std::source_location::current()) {
    const QList<W*> found = root.findChildren<W*>(name);
    if (found.size() == 1) return *found.front();
    const QString problem = QStringLiteral("%1 %2 named \"%3\" under %4, not one")
                                .arg(found.size())
                                .arg(QString::fromLatin1(W::staticMetaObject.className()), name,
                                     QString::fromLatin1(root.metaObject()->className()));
    QTest::qFail(qPrintable(problem), at.file_name(), int(at.line()));
    throw std::logic_error(problem.toStdString());
}

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
              WindowServices{messages, files,
                             [this](const QString& path) -> std::unique_ptr<ReplaySource> {
                                 if (openReplay) return openReplay(path);
                                 return std::make_unique<ReplayFile>(path.toStdString());
                             }})),
          controls(Find<PlaybackControls>(*window, "controls")) {
        ReplaySession& session = window->session();
        const auto note = [this, &session] {
            const std::vector<int>& events = session.lastMove().applied;
            applied.insert(applied.end(), events.begin(), events.end());
        };
        QObject::connect(&session, &ReplaySession::opened, note);
        QObject::connect(&session, &ReplaySession::positionChanged, note);
    }

    // Writes a replay (bytes as given: Windows-1250) and opens it through the menu command.
    void open(const std::string& name, const std::string& bytes) { open(write(name, QByteArray::fromStdString(bytes))); }
    // Opens through the menu command, the Open dialog answering `chosen` (nullopt: cancelled).
    void open(const std::optional<QString>& chosen) {
        files.answers.push_back(chosen);
        window->mnuOtevritItem_Click();
    }
    QString write(const std::string& name, const QByteArray& bytes) {
        QFile file(directory.filePath(QString::fromStdString(name)));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return file.fileName();
    }
    const WorldState& world() const { return window->session().world(); }
    // The window's object named `name`.
    template <typename W>
    W& find(const QString& name, std::source_location at = std::source_location::current()) {
        return Find<W>(*window, name, at);
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

    ReplayOpener openReplay;  // empty: the file at the path
    RecordingMessages messages;
    QueuedFiles files;
    std::vector<int> applied;
    QTemporaryDir directory;
    std::unique_ptr<frmMain> window;
    PlaybackControls& controls;
};

// '1' for each enabled button: the five forward ones, then the five backward ones.
inline QString EnabledButtons(Window& t) {
    QString result;
    for (const char* button : {"cmdForw", "cmdEnd", "cmdSEnd", "cmdD", "cmdRD", "cmdBack", "cmdBegin", "cmdSBegin", "cmdZ", "cmdRZ"})
        result += t.find<QPushButton>(button).isEnabled() ? '1' : '0';
    return result;
}

// The tooltip `widget` shows for the point `at`; empty when it shows none.
inline QString ToolTipAt(QWidget& widget, QPoint at) {
    QHelpEvent help(QEvent::ToolTip, at, widget.mapToGlobal(at));
    QApplication::sendEvent(&widget, &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

}  // namespace trelvin::testing

#pragma once
// A replay session driven without a window: message boxes are recorded, so are the events every
// move applies, and replays are written to a temporary folder.
#include <QFile>
#include <QTemporaryDir>

#include "session/replay_session.h"
#include "support/recording_reporter.h"
#include "support/replays.h"

namespace trelvin::testing {

struct Session {
    Session() : session({reporter, {}, {}}) {
        const auto note = [this] {
            const std::vector<int>& events = session.lastMove().applied;
            applied.insert(applied.end(), events.begin(), events.end());
        };
        QObject::connect(&session, &ReplaySession::opened, note);
        QObject::connect(&session, &ReplaySession::positionChanged, note);
    }

    // Writes the bytes of a replay as a file of that name.
    QString write(const std::string& name, const std::string& bytes) {
        QFile file(directory.filePath(QString::fromStdString(name)));
        file.open(QIODevice::WriteOnly);
        file.write(bytes.data(), qint64(bytes.size()));
        return file.fileName();
    }
    LoadResult open(const std::string& bytes, const std::string& name = "replay.trp") {
        return session.open(write(name, bytes));
    }
    // The events `action` applies.
    template <typename Action>
    std::vector<int> applies(Action action) {
        applied.clear();
        action();
        return applied;
    }

    RecordingReporter reporter;
    std::vector<int> applied;
    QTemporaryDir directory;
    ReplaySession session;
};

// Every value of the world, a line each, to compare two worlds at once.
inline QStringList WorldLines(const WorldState& w) {
    QStringList lines{QString::fromStdString(w.actionText), QString::fromStdString(w.currentTime.iso())};
    for (const Tile& t : w.tiles)
        lines << QString::fromStdString(t.terrain + "|" + t.owner + "|" + t.armyType + "|" + std::to_string(t.armyCount) +
                                        "|" + std::to_string(t.visible));
    for (const Player& p : w.players)
        lines << QString::fromStdString(p.name + "|" + p.side + "|" + p.hqField + "|" + std::to_string(p.moves) + "|" +
                                        std::to_string(p.nectar) + "|" + std::to_string(p.nectarPerHour) + "|" +
                                        std::to_string(p.territory) + "|" + std::to_string(p.playing));
    lines << QString::fromStdString(w.storedWinner.value_or("(none)"));
    return lines;
}

}  // namespace trelvin::testing

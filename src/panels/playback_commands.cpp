#include "panels/playback_commands.h"

#include <initializer_list>

#include <QAction>

#include "playback/playback.h"
#include "session/replay_session.h"

namespace trelvin {

namespace {

QAction* command(QObject* parent, const char* name, const char* text) {
    auto* action = new QAction(QString::fromLatin1(text), parent);
    action->setObjectName(QString::fromLatin1(name));
    action->setEnabled(false);
    return action;
}

}  // namespace

PlaybackCommands::PlaybackCommands(ReplaySession& session, QObject* parent)
    : QObject(parent),
      first(command(this, "first", "Na prvni akci")),
      back(command(this, "back", "O akci zpet")),
      playBackFast(command(this, "playBackFast", "Prehravat zpet rychle")),
      playBackSlow(command(this, "playBackSlow", "Prehravat zpet")),
      forward(command(this, "forward", "O akci vpred")),
      last(command(this, "last", "Na posledni akci")),
      playForwardSlow(command(this, "playForwardSlow", "Prehravat")),
      playForwardFast(command(this, "playForwardFast", "Prehravat rychle")),
      stop(command(this, "stop", "Zastavit")) {
    connect(first, &QAction::triggered, &session, &ReplaySession::first);
    connect(back, &QAction::triggered, &session, &ReplaySession::back);
    connect(forward, &QAction::triggered, &session, &ReplaySession::forward);
    connect(last, &QAction::triggered, &session, &ReplaySession::last);
    connect(stop, &QAction::triggered, &session, &ReplaySession::stop);
    const auto play = [&session](bool forwards, std::int16_t interval) {
        return [&session, forwards, interval] { session.play(forwards, interval); };
    };
    connect(playBackFast, &QAction::triggered, &session, play(false, Playback::kFastInterval));
    connect(playBackSlow, &QAction::triggered, &session, play(false, Playback::kSlowInterval));
    connect(playForwardSlow, &QAction::triggered, &session, play(true, Playback::kSlowInterval));
    connect(playForwardFast, &QAction::triggered, &session, play(true, Playback::kFastInterval));
    connect(&session, &ReplaySession::stepsEnabledChanged, this, [this](bool backward, bool forwards, bool stopping) {
        for (QAction* action : {first, back, playBackFast, playBackSlow}) action->setEnabled(backward);
        for (QAction* action : {forward, last, playForwardSlow, playForwardFast}) action->setEnabled(forwards);
        stop->setEnabled(stopping);
    });
}

}  // namespace trelvin

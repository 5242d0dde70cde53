#pragma once
// The one line the action list, the timeline and the charts show after a load that failed: that
// it failed, and how many actions it read before; the loader's message in its tooltip. Hidden
// after a load that succeeded.
#include <QLabel>

namespace trelvin {

class ReplaySession;

class FailedLoadNote : public QLabel {
    Q_OBJECT

public:
    FailedLoadNote(const ReplaySession& session, QWidget* parent);
};

}  // namespace trelvin

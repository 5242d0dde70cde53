#pragma once
// The action list of the opened replay: it follows the position, and a row chosen is jumped to.
#include "widgets/action_list.h"

namespace trelvin {

class ReplaySession;

class ActionListPanel : public ActionList {
    Q_OBJECT

public:
    ActionListPanel(ReplaySession& session, QWidget* parent);
};

}  // namespace trelvin

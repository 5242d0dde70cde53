#pragma once
// The texts that follow the position: the description of the action, the position with the
// event count, and the action's date and time as the user's locale writes them.
#include <cstdint>

#include <QLocale>
#include <QString>

#include "model/date_time.h"
#include "model/world_state.h"

namespace trelvin {

// The description of the event applied last, its line breaks as new lines.
QString ActionDescription(const WorldState& world);

// "5 (120)": the position, then the event count in brackets.
QString PositionText(std::int16_t position, std::int16_t eventCount);

// The locale's short date, a blank and its long time without any time-zone part; at exactly
// midnight only the date.
QString GeneralDateText(const DateTime& t, const QLocale& locale = QLocale::system());

}  // namespace trelvin

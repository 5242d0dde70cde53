#pragma once
// An action's date and time as the user's desktop writes them.
#include <QLocale>
#include <QString>

#include "model/date_time.h"

namespace trelvin {

// The locale's short date, a blank and its long time without any time-zone part; at exactly
// midnight only the date.
QString GeneralDateText(const DateTime& t, const QLocale& locale = QLocale::system());

}  // namespace trelvin

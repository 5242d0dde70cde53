#pragma once
// A date-time as the user's locale writes it in its general date format.
#include <QLocale>
#include <QString>

#include "model/date_time.h"

namespace trelvin {

// The locale's short date, a blank and its long time without any time-zone part; at exactly
// midnight only the date.
QString GeneralDateText(const trelvin::DateTime& t, const QLocale& locale = QLocale::system());

}  // namespace trelvin

#include "bridge/date_text.h"

#include <QDate>
#include <QTime>

namespace trelvin {

namespace {

// Drops the time-zone letters ("t" runs outside quoted text) from a time format, together
// with the blanks they leave behind: a DateTime carries no zone.
QString WithoutTimeZone(const QString& format) {
    QString kept;
    bool quoted = false;
    for (const QChar ch : format) {
        if (ch == u'\'') quoted = !quoted;
        if (!quoted && ch == u't') continue;
        kept += ch;
    }
    return kept.simplified();
}

}  // namespace

QString GeneralDateText(const DateTime& t, const QLocale& locale) {
    const QString date =
        locale.toString(QDate(t.year(), t.month(), t.day()), locale.dateFormat(QLocale::ShortFormat));
    if (t.hour() == 0 && t.minute() == 0 && t.second() == 0) return date;
    const QString timeFormat = WithoutTimeZone(locale.timeFormat(QLocale::LongFormat));
    return date + u' ' + locale.toString(QTime(t.hour(), t.minute(), t.second()), timeFormat);
}

}  // namespace trelvin

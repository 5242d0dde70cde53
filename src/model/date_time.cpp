#include "model/date_time.h"

#include <cstdio>

#include "model/checked_math.h"

namespace trelvin {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;

bool isLeap(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int daysInMonth(int year, int month) {
    static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeap(year) ? 29 : kDays[month - 1];
}

// Days since 0001-01-01 of a civil date (algorithm of H. Hinnant, shifted epoch).
std::int64_t daysFromCivil(int year, int month, int day) {
    year -= month <= 2;
    const std::int64_t era = year / 400;
    const std::int64_t yoe = year - era * 400;
    const std::int64_t doy = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 306;  // 0001-01-01 is day 0
}

struct Civil {
    int year, month, day;
};

Civil civilFromDays(std::int64_t days) {
    days += 306;
    const std::int64_t era = days / 146097;
    const std::int64_t doe = days - era * 146097;
    const std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const std::int64_t mp = (5 * doy + 2) / 153;
    const int day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    const int month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    const int year = static_cast<int>(yoe + era * 400 + (month <= 2));
    return {year, month, day};
}

const std::int64_t kMinSeconds = daysFromCivil(100, 1, 1) * kSecondsPerDay;
const std::int64_t kMaxSeconds = daysFromCivil(9999, 12, 31) * kSecondsPerDay + kSecondsPerDay - 1;

}  // namespace

DateTime::DateTime() : seconds_(daysFromCivil(1899, 12, 30) * kSecondsPerDay) {}

std::optional<DateTime> DateTime::fromParts(int year, int month, int day, int hour, int minute,
                                            int second) {
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 ||
        day > daysInMonth(year, month) || hour < 0 || hour > 23 || minute < 0 || minute > 59 ||
        second < 0 || second > 59)
        return std::nullopt;
    return DateTime(daysFromCivil(year, month, day) * kSecondsPerDay + hour * 3600 + minute * 60 +
                    second);
}

int DateTime::year() const { return civilFromDays(seconds_ / kSecondsPerDay).year; }
int DateTime::month() const { return civilFromDays(seconds_ / kSecondsPerDay).month; }
int DateTime::day() const { return civilFromDays(seconds_ / kSecondsPerDay).day; }
int DateTime::hour() const { return static_cast<int>(seconds_ % kSecondsPerDay / 3600); }
int DateTime::minute() const { return static_cast<int>(seconds_ % 3600 / 60); }
int DateTime::second() const { return static_cast<int>(seconds_ % 60); }

DateTime DateTime::plusSeconds(std::int64_t seconds) const {
    const std::int64_t result = seconds_ + seconds;
    if (result < kMinSeconds || result > kMaxSeconds) throwOverflow();
    return DateTime(result);
}

DateTime DateTime::fullHour() const { return DateTime(seconds_ - seconds_ % 3600); }
DateTime DateTime::midnight() const { return DateTime(seconds_ - seconds_ % kSecondsPerDay); }

std::int64_t DateTime::hoursSince(const DateTime& earlier) const {
    return (seconds_ - earlier.seconds_) / 3600;
}

std::string DateTime::iso() const {
    const Civil date = civilFromDays(seconds_ / kSecondsPerDay);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", date.year, date.month,
                  date.day, hour(), minute(), second());
    return text;
}

}  // namespace trelvin

#pragma once
// Calendar date-time of second resolution, years 100 to 9999 (the range a replay may use).
#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace trelvin {

class DateTime {
public:
    // The zero date-time of an empty world: 30 December 1899, midnight.
    DateTime();

    // Empty when the parts name no valid date-time in years 100 to 9999.
    static std::optional<DateTime> fromParts(int year, int month, int day, int hour, int minute,
                                             int second);

    int year() const;
    int month() const;
    int day() const;
    int hour() const;
    int minute() const;
    int second() const;

    // Fail with an overflow when the result leaves years 100 to 9999.
    DateTime plusSeconds(std::int64_t seconds) const;
    DateTime plusHours(std::int64_t hours) const { return plusSeconds(hours * 3600); }
    DateTime plusDays(std::int64_t days) const { return plusSeconds(days * 86400); }

    // Same time of day cut to the full hour.
    DateTime fullHour() const;
    // The same day at midnight.
    DateTime midnight() const;
    // Whole hours from `earlier` to this, both on full hours.
    std::int64_t hoursSince(const DateTime& earlier) const;

    // "YYYY-MM-DDTHH:MM:SS"
    std::string iso() const;

    auto operator<=>(const DateTime&) const = default;

private:
    explicit DateTime(std::int64_t seconds) : seconds_(seconds) {}
    std::int64_t seconds_;  // seconds since 0001-01-01 00:00:00, proleptic Gregorian
};

}  // namespace trelvin

#pragma once

#include "basic/Convert.h"

#include <optional>
#include <string_view>

// The calendar: what conversions and formats share. Not meant for the layers above.
namespace kvx::basic {

/// Two-digit years: 0 to 29 are 20xx, 30 to 99 are 19xx; others stay.
std::int32_t FullYear(std::int32_t year);

/// True for the years 100 to 9999.
bool IsInDateRange(double days);

/// Reads a text that is written as a date, a time or both by the current locale; a mere number is none.
std::optional<Date> ReadDateText(std::string_view text);

/// False for a text whose thousands signs are those of dates: "31.4.24" is a mistyped date and not day 31424.
bool MayBeSerial(std::string_view text);

/// 1 = Sunday .. 7 = Saturday.
std::int16_t WeekdayOf(const DateParts& parts);
/// 1 = the first of January.
std::int32_t DayOfYear(const DateParts& parts);

/// Writes a date by a mask of days, months, hours ... (one section).
std::string FormatDate(Date date, std::string_view mask);

} // namespace kvx::basic

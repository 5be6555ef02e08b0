#include "adapters/sqlite/Dates.h"

#include <cstdio>

namespace kvx::adapters::sqlite {
namespace {

constexpr std::int32_t kMillisecondsADay = 86'400'000;

class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    bool AtEnd() const { return text_.empty(); }

    bool Skip(char c)
    {
        if (text_.empty() || text_.front() != c) return false;
        text_.remove_prefix(1);
        return true;
    }

    // Between min and max digits; -1 when there are fewer.
    std::int32_t Digits(int min, int max)
    {
        std::int32_t value = 0;
        int count = 0;
        while (count < max && !text_.empty() && text_.front() >= '0' && text_.front() <= '9') {
            value = value * 10 + (text_.front() - '0');
            text_.remove_prefix(1);
            ++count;
        }
        return count < min ? -1 : value;
    }

private:
    std::string_view text_;
};

bool IsLeap(std::int32_t year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

bool Exists(const CalendarDay& d)
{
    constexpr std::int32_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (d.year < 1 || d.year > 9999 || d.month < 1 || d.month > 12 || d.day < 1) return false;
    return d.day <= kDays[d.month - 1] + (d.month == 2 && IsLeap(d.year) ? 1 : 0);
}

std::string_view Trim(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

// What stands behind the day: nothing, or a time. -1 = neither.
std::int32_t ReadTime(Reader& reader)
{
    if (reader.AtEnd()) return 0;
    if (!reader.Skip(' ') && !reader.Skip('T')) return -1;
    const std::int32_t hour = reader.Digits(1, 2);
    if (hour < 0 || hour > 23 || !reader.Skip(':')) return -1;
    const std::int32_t minute = reader.Digits(1, 2);
    if (minute < 0 || minute > 59) return -1;
    std::int32_t milliseconds = (hour * 60 + minute) * 60'000;
    if (reader.Skip(':')) {
        const std::int32_t second = reader.Digits(1, 2);
        if (second < 0 || second > 59) return -1;
        milliseconds += second * 1000;
        if (reader.Skip('.')) {
            const std::int32_t fraction = reader.Digits(3, 3);
            if (fraction < 0) return -1;
            milliseconds += fraction;
        }
    }
    return reader.AtEnd() ? milliseconds : -1;
}

std::optional<DateTime> Combine(const CalendarDay& day, Reader& reader)
{
    if (!Exists(day)) return std::nullopt;
    const std::int32_t time = ReadTime(reader);
    if (time < 0) return std::nullopt;
    return DateTime{DaysOf(day), time};
}

// Day and month in the given order, then the year, parted by one character.
std::optional<DateTime> ParseParted(std::string_view text, char separator, bool dayFirst)
{
    Reader reader(text);
    CalendarDay day;
    std::int32_t& first = dayFirst ? day.day : day.month;
    std::int32_t& second = dayFirst ? day.month : day.day;
    first = reader.Digits(1, 2);
    if (!reader.Skip(separator)) return std::nullopt;
    second = reader.Digits(1, 2);
    if (!reader.Skip(separator)) return std::nullopt;
    day.year = reader.Digits(4, 4);
    return Combine(day, reader);
}

}  // namespace

// Days by the civil calendar, counted in eras of 400 years that begin in March.
std::int32_t DaysOf(const CalendarDay& d)
{
    const std::int32_t year = d.month <= 2 ? d.year - 1 : d.year;
    const std::int32_t era = (year >= 0 ? year : year - 399) / 400;
    const std::int32_t yearOfEra = year - era * 400;
    const std::int32_t dayOfYear = (153 * (d.month + (d.month > 2 ? -3 : 9)) + 2) / 5 + d.day - 1;
    const std::int32_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146'097 + dayOfEra - 719'468;
}

CalendarDay CalendarDayOf(std::int32_t days)
{
    days += 719'468;
    const std::int32_t era = (days >= 0 ? days : days - 146'096) / 146'097;
    const std::int32_t dayOfEra = days - era * 146'097;
    const std::int32_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
    const std::int32_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int32_t shifted = (5 * dayOfYear + 2) / 153;
    CalendarDay result;
    result.day = dayOfYear - (153 * shifted + 2) / 5 + 1;
    result.month = shifted < 10 ? shifted + 3 : shifted - 9;
    result.year = yearOfEra + era * 400 + (result.month <= 2 ? 1 : 0);
    return result;
}

std::optional<DateTime> ParseDate(std::string_view text)
{
    text = Trim(text);
    if (text.empty()) return DateTime{DaysOf({1900, 1, 1}), 0};
    const std::size_t digits = text.find_first_not_of("0123456789");
    Reader reader(text);
    CalendarDay day;
    if (digits == 4 && text[4] == '-') {
        day.year = reader.Digits(4, 4);
        reader.Skip('-');
        day.month = reader.Digits(1, 2);
        if (!reader.Skip('-')) return std::nullopt;
        day.day = reader.Digits(1, 2);
        return Combine(day, reader);
    }
    if (digits == 8 || (digits == std::string_view::npos && text.size() == 8)) {
        day.year = reader.Digits(4, 4);
        day.month = reader.Digits(2, 2);
        day.day = reader.Digits(2, 2);
        return Combine(day, reader);
    }
    return ParseParted(text, '.', /*dayFirst=*/true);
}

std::optional<DateTime> ParseDate(std::string_view text, std::int32_t style)
{
    switch (style) {
    case 101: return ParseParted(Trim(text), '/', /*dayFirst=*/false);
    case 103: return ParseParted(Trim(text), '/', /*dayFirst=*/true);
    case 104: return ParseParted(Trim(text), '.', /*dayFirst=*/true);
    case 105: return ParseParted(Trim(text), '-', /*dayFirst=*/true);
    default: return ParseDate(text);
    }
}

std::string IsoText(const DateTime& value)
{
    const CalendarDay day = CalendarDayOf(value.days);
    char buffer[64];
    int length = std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", day.year, day.month, day.day);
    if (value.milliseconds % kMillisecondsADay != 0) {
        const std::int32_t seconds = value.milliseconds / 1000;
        length += std::snprintf(buffer + length, sizeof buffer - static_cast<std::size_t>(length), " %02d:%02d:%02d",
                                seconds / 3600, seconds / 60 % 60, seconds % 60);
    }
    return {buffer, static_cast<std::size_t>(length)};
}

}  // namespace kvx::adapters::sqlite

#include "basic/Dates.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Locale.h"
#include "basic/Text.h"

#include <array>
#include <chrono>
#include <cmath>
#include <ctime>

namespace kvx::basic {
namespace {

constexpr std::int32_t kSecondsOfDay = 86400;
constexpr std::int32_t kFirstDay = -657434; // 1 January 100
constexpr std::int32_t kLastDay = 2958465;  // 31 December 9999

constexpr std::chrono::sys_days kDayZero = std::chrono::year{1899} / 12 / 30;

/// Days since day zero; months out of their range roll over into the years, days into the months.
std::int64_t DayNumber(std::int64_t year, std::int64_t month, std::int64_t day)
{
    std::int64_t years = (month - 1) / 12;
    std::int64_t monthOfYear = (month - 1) % 12;
    if (monthOfYear < 0) {
        monthOfYear += 12;
        --years;
    }
    const std::chrono::year_month_day first{std::chrono::year{static_cast<int>(year + years)},
                                            std::chrono::month{static_cast<unsigned>(monthOfYear + 1)},
                                            std::chrono::day{1}};
    return (std::chrono::sys_days(first) - kDayZero).count() + day - 1;
}

Date DateFrom(std::int64_t dayNumber, std::int64_t seconds)
{
    dayNumber += seconds / kSecondsOfDay;
    seconds %= kSecondsOfDay;
    if (seconds < 0) {
        seconds += kSecondsOfDay;
        --dayNumber;
    }
    const double fraction = static_cast<double>(seconds) / kSecondsOfDay;
    // Before day zero the days count down, but the time of day counts up all the same.
    const auto days = static_cast<double>(dayNumber);
    return Date{days < 0 ? days - fraction : days + fraction};
}

bool IsRealDay(std::int32_t year, std::int32_t month, std::int32_t day)
{
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return false;
    return std::chrono::year_month_day{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                                       std::chrono::day{static_cast<unsigned>(day)}}
        .ok();
}

std::int32_t CurrentYear()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    return localtime_r(&now, &local) == nullptr ? 1970 : local.tm_year + 1900;
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A number of a date as it was written.
struct DateNumber {
    std::int32_t value = 0;
    std::int32_t length = 0; ///< digits
    bool MustBeYear() const { return length > 2 || value > 31; }
    std::int32_t AsYear() const { return length > 2 ? value : FullYear(value); }
};

/// Reads a text as date, time or both.
class DateReader {
public:
    explicit DateReader(std::string_view text) : rest_(text), locale_(CurrentLocale()) {}

    std::optional<Date> Read()
    {
        bool separated = true; // nothing stands before, or a separator does
        for (;;) {
            const bool blank = SkipBlanks();
            if (rest_.empty()) break;
            if (IsDigit(rest_.front())) {
                if (!separated && !blank) return std::nullopt;
                const bool hadTime = hasTime_;
                if (!TakeNumberOrTime()) return std::nullopt;
                const bool wasTime = hasTime_ != hadTime;
                separated = !wasTime && TakeSeparator();
            } else {
                if (!TakeWord()) return std::nullopt;
                separated = TakeSeparator();
            }
        }
        if (danglingSeparator_) return std::nullopt;
        return Result();
    }

private:
    bool SkipBlanks()
    {
        const std::size_t before = rest_.size();
        while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t'))
            rest_.remove_prefix(1);
        return rest_.size() != before;
    }

    bool TakeNumber(DateNumber& number)
    {
        number = {};
        while (!rest_.empty() && IsDigit(rest_.front())) {
            if (++number.length > 4) return false;
            number.value = number.value * 10 + (rest_.front() - '0');
            rest_.remove_prefix(1);
        }
        return number.length > 0;
    }

    bool StandsTimeSign() const
    {
        return rest_.size() > 1 && (rest_[0] == ':' || (rest_[0] == '.' && locale_.pointSeparatesTime)) &&
               IsDigit(rest_[1]);
    }

    /// "AM", "PM", "A", "P" in any case: 0 or 12; -1 = none.
    std::int32_t TakeHalfDay()
    {
        const std::string_view before = rest_;
        SkipBlanks();
        const std::string word = LCase(Word());
        if (word == "am" || word == "a" || word == "pm" || word == "p") {
            rest_.remove_prefix(word.size());
            return word.front() == 'a' ? 0 : 12;
        }
        rest_ = before;
        return -1;
    }

    bool TakeNumberOrTime()
    {
        danglingSeparator_ = false;
        DateNumber first;
        if (!TakeNumber(first)) return false;
        if (StandsTimeSign()) return TakeTime(first);
        if (const std::int32_t half = TakeHalfDay(); half >= 0) return SetTime(first.value, 0, 0, half);
        if (count_ == numbers_.size()) return false;
        numbers_[count_++] = first;
        return true;
    }

    bool TakeTime(const DateNumber& hour)
    {
        DateNumber minute, second;
        rest_.remove_prefix(1);
        if (!TakeNumber(minute) || hour.length > 2 || minute.length > 2) return false;
        if (StandsTimeSign()) {
            rest_.remove_prefix(1);
            if (!TakeNumber(second) || second.length > 2) return false;
        }
        return SetTime(hour.value, minute.value, second.value, TakeHalfDay());
    }

    bool SetTime(std::int32_t hour, std::int32_t minute, std::int32_t second, std::int32_t half)
    {
        if (hasTime_ || hour > 23 || minute > 59 || second > 59) return false;
        if (half >= 0) {
            if (hour > 12) return false;
            hour = hour % 12 + half;
        }
        hasTime_ = true;
        seconds_ = (hour * 60 + minute) * 60 + second;
        return true;
    }

    bool TakeSeparator()
    {
        const std::string_view before = rest_;
        SkipBlanks();
        if (rest_.empty()) return true;
        const char c = rest_.front();
        // The comma stands behind names only: between digits it belongs to numbers.
        const bool allowed = c == '/' || c == '-' || (c == '.' && !locale_.pointSeparatesTime) ||
                             (c == ',' && (month_ != 0 || weekday_)) || (c == '.' && month_ != 0);
        if (!allowed) {
            rest_ = before;
            return false;
        }
        // "1. Februar", "1.2.", but not "1.2-"
        danglingSeparator_ = c == '/' || c == '-';
        rest_.remove_prefix(1);
        return true;
    }

    std::string_view Word() const
    {
        std::size_t size = 0;
        const auto isLetter = [](char c) {
            return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
        };
        while (size < rest_.size() && isLetter(rest_[size]))
            ++size;
        return rest_.substr(0, size);
    }

    bool TakeWord()
    {
        danglingSeparator_ = false;
        const std::string_view word = Word();
        if (word.empty()) return false;
        rest_.remove_prefix(word.size());
        for (const Locale* locale : {&locale_, &EnglishLocale()}) {
            for (std::size_t i = 0; i < locale->monthNames.size(); ++i) {
                if (!SameTextIgnoringCase(word, locale->monthNames[i]) &&
                    !SameTextIgnoringCase(word, locale->monthShortNames[i]))
                    continue;
                if (month_ != 0) return false;
                month_ = static_cast<std::int32_t>(i) + 1;
                return true;
            }
            for (std::size_t i = 0; i < locale->dayNames.size(); ++i) {
                if (!SameTextIgnoringCase(word, locale->dayNames[i]) &&
                    !SameTextIgnoringCase(word, locale->dayShortNames[i]))
                    continue;
                if (weekday_) return false;
                weekday_ = true;
                return true;
            }
        }
        return false;
    }

    std::optional<Date> Result() const
    {
        if (count_ == 0 && month_ == 0) {
            if (!hasTime_ || weekday_) return std::nullopt;
            return DateFrom(0, seconds_);
        }
        std::int32_t year = CurrentYear(), month = month_, day = 1;
        const bool real = month_ != 0 ? WithMonthName(year, day) : Ordered(year, month, day);
        if (!real || !IsRealDay(year, month, day)) return std::nullopt;
        return DateFrom(DayNumber(year, month, day), seconds_);
    }

    bool WithMonthName(std::int32_t& year, std::int32_t& day) const
    {
        const DateNumber& a = numbers_[0];
        const DateNumber& b = numbers_[1];
        if (count_ == 1) {
            if (a.MustBeYear())
                year = a.AsYear();
            else
                day = a.value;
            return true;
        }
        if (count_ != 2) return false;
        year = a.MustBeYear() ? a.AsYear() : b.AsYear();
        day = a.MustBeYear() ? b.value : a.value;
        return true;
    }

    /// Which number is what. The locale's order holds; day and month change places only when the month is impossible,
    /// because a mistyped day must be refused and not become another date.
    bool Ordered(std::int32_t& year, std::int32_t& month, std::int32_t& day) const
    {
        const DateNumber& a = numbers_[0];
        const DateNumber& b = numbers_[1];
        const DateNumber& c = numbers_[2];
        if (count_ == 1) return false;
        if (count_ == 2) {
            if (a.MustBeYear() || b.MustBeYear()) {
                year = a.MustBeYear() ? a.AsYear() : b.AsYear();
                month = a.MustBeYear() ? b.value : a.value;
                return true;
            }
            const bool dayFirst = locale_.dateOrder == DateOrder::DayMonthYear;
            day = dayFirst ? a.value : b.value;
            month = dayFirst ? b.value : a.value;
        } else if (a.MustBeYear() || locale_.dateOrder == DateOrder::YearMonthDay) {
            year = a.AsYear();
            month = b.value;
            day = c.value;
        } else {
            const bool dayFirst = locale_.dateOrder == DateOrder::DayMonthYear;
            year = c.AsYear();
            day = dayFirst ? a.value : b.value;
            month = dayFirst ? b.value : a.value;
        }
        if (month > 12) std::swap(month, day);
        return true;
    }

    std::string_view rest_;
    const Locale& locale_;
    std::array<DateNumber, 3> numbers_{};
    std::size_t count_ = 0;
    std::int32_t month_ = 0; ///< written as a name
    std::int32_t seconds_ = 0;
    bool hasTime_ = false;
    bool weekday_ = false;
    bool danglingSeparator_ = false;
};

std::int16_t ShortArgument(const Variant& value)
{
    return CInt(value);
}

} // namespace

std::int32_t FullYear(std::int32_t year)
{
    if (year < 0 || year > 99) return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

bool IsInDateRange(double days)
{
    return days > kFirstDay - 1 && days < kLastDay + 1;
}

std::optional<Date> ReadDateText(std::string_view text)
{
    return DateReader(text).Read();
}

bool MayBeSerial(std::string_view text)
{
    const Locale& locale = CurrentLocale();
    return locale.dateSeparator != locale.thousandsSeparator ||
           text.find(locale.dateSeparator) == std::string_view::npos;
}

DateParts PartsOf(Date date)
{
    if (!IsInDateRange(date.days)) Raise(kErrOverflow);
    double whole = std::trunc(date.days);
    auto seconds = static_cast<std::int32_t>(std::lround(std::fabs(date.days - whole) * kSecondsOfDay));
    if (seconds == kSecondsOfDay) {
        seconds = 0;
        whole += 1;
    }
    const std::chrono::year_month_day day(kDayZero + std::chrono::days(static_cast<std::int32_t>(whole)));
    DateParts parts;
    parts.year = static_cast<int>(day.year());
    parts.month = static_cast<std::int32_t>(static_cast<unsigned>(day.month()));
    parts.day = static_cast<std::int32_t>(static_cast<unsigned>(day.day()));
    parts.hour = seconds / 3600;
    parts.minute = seconds / 60 % 60;
    parts.second = seconds % 60;
    return parts;
}

Date DateOf(const DateParts& parts)
{
    const std::int64_t seconds =
        (static_cast<std::int64_t>(parts.hour) * 60 + parts.minute) * 60 + static_cast<std::int64_t>(parts.second);
    // std::chrono holds years of 16 bits only.
    if (parts.year < -9999 || parts.year > 19999 || parts.month < -99999 || parts.month > 99999) Raise(kErrOverflow);
    const Date date = DateFrom(DayNumber(parts.year, parts.month, parts.day), seconds);
    if (!IsInDateRange(date.days)) Raise(kErrOverflow);
    return date;
}

Date DateSerial(const Variant& year, const Variant& month, const Variant& day)
{
    const std::int32_t y = ShortArgument(year);
    const std::int32_t m = ShortArgument(month);
    const std::int32_t d = ShortArgument(day);
    if (y < 0 || y > 9999) Raise(kErrInvalidCall);
    const std::int64_t number = DayNumber(FullYear(y), m, d);
    if (number < kFirstDay || number > kLastDay) Raise(kErrInvalidCall);
    return DateFrom(number, 0);
}

Date TimeSerial(const Variant& hour, const Variant& minute, const Variant& second)
{
    const std::int64_t h = ShortArgument(hour);
    const std::int64_t n = ShortArgument(minute);
    const std::int64_t s = ShortArgument(second);
    return DateFrom(0, (h * 60 + n) * 60 + s);
}

std::int16_t Year(const Variant& date)
{
    return static_cast<std::int16_t>(PartsOf(CDate(date)).year);
}

std::int16_t Month(const Variant& date)
{
    return static_cast<std::int16_t>(PartsOf(CDate(date)).month);
}

std::int16_t Day(const Variant& date)
{
    return static_cast<std::int16_t>(PartsOf(CDate(date)).day);
}

std::int16_t Hour(const Variant& date)
{
    return static_cast<std::int16_t>(PartsOf(CDate(date)).hour);
}

std::int16_t Minute(const Variant& date)
{
    return static_cast<std::int16_t>(PartsOf(CDate(date)).minute);
}

std::int16_t Second(const Variant& date)
{
    return static_cast<std::int16_t>(PartsOf(CDate(date)).second);
}

std::int16_t Weekday(const Variant& date)
{
    return WeekdayOf(PartsOf(CDate(date)));
}

std::int16_t WeekdayOf(const DateParts& parts)
{
    // Day zero was a Saturday.
    const std::int64_t number = DayNumber(parts.year, parts.month, parts.day);
    return static_cast<std::int16_t>(((number - 1) % 7 + 7) % 7 + 1);
}

std::int32_t DayOfYear(const DateParts& parts)
{
    return static_cast<std::int32_t>(DayNumber(parts.year, parts.month, parts.day) - DayNumber(parts.year, 1, 0));
}

} // namespace kvx::basic

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kvx::basic {

enum class DateOrder : std::uint8_t { DayMonthYear, MonthDayYear, YearMonthDay };

/// Regional settings of the user: how numbers, dates and truth values are written and read.
struct Locale {
    std::string name;               ///< "de-DE", "en-US"
    std::string decimalSeparator;   ///< "," in German
    std::string thousandsSeparator; ///< "." in German
    std::string dateSeparator;      ///< what "/" of a date mask becomes
    std::string timeSeparator;      ///< what ":" of a date mask becomes
    DateOrder dateOrder = DateOrder::DayMonthYear;
    std::string shortDateMask; ///< as Format takes it, e.g. "dd.mm.yyyy"
    std::string longDateMask;  ///< e.g. "dddd, d. mmmm yyyy"
    std::string longTimeMask;  ///< e.g. "hh:nn:ss", "h:nn:ss AM/PM"
    std::string trueWord;      ///< "Wahr" in German
    std::string falseWord;     ///< "Falsch" in German
    std::string yesWord, noWord, onWord, offWord;
    std::string currencySign;       ///< "€" in German
    std::string currencyMask;       ///< positive and negative amounts, as Format takes them
    bool pointSeparatesTime = true; ///< "3.5" reads as a time; false where the point stands in dates
    std::array<std::string, 12> monthNames, monthShortNames;
    std::array<std::string, 7> dayNames, dayShortNames; ///< from Sunday on
};

const Locale& GermanLocale();
const Locale& EnglishLocale();

/// German when LC_ALL, LC_NUMERIC, LC_TIME or LANG (the first that is set) names a German locale, else English (US).
const Locale& LocaleFromEnvironment();

/// The settings that every conversion uses; from the environment until somebody sets others.
const Locale& CurrentLocale();

/// Other settings from now on, for the whole process. Meant for the start of a host and for tests: nobody may convert
/// on another thread meanwhile.
void SetLocale(const Locale& locale);

} // namespace kvx::basic

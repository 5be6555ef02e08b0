#include "basic/Locale.h"

#include <cstdlib>

namespace kvx::basic {
namespace {

Locale& Current()
{
    static Locale current = LocaleFromEnvironment();
    return current;
}

} // namespace

const Locale& GermanLocale()
{
    static const Locale german{
        .name = "de-DE",
        .decimalSeparator = ",",
        .thousandsSeparator = ".",
        .dateSeparator = ".",
        .timeSeparator = ":",
        .dateOrder = DateOrder::DayMonthYear,
        .shortDateMask = "dd.mm.yyyy",
        .longDateMask = "dddd, d. mmmm yyyy",
        .longTimeMask = "hh:nn:ss",
        .trueWord = "Wahr",
        .falseWord = "Falsch",
        .yesWord = "Ja",
        .noWord = "Nein",
        .onWord = "Ein",
        .offWord = "Aus",
        .currencySign = "€",
        .currencyMask = "#,##0.00 €;-#,##0.00 €",
        .pointSeparatesTime = false,
        .monthNames = {"Januar", "Februar", "März", "April", "Mai", "Juni", "Juli", "August", "September", "Oktober",
                       "November", "Dezember"},
        .monthShortNames = {"Jan", "Feb", "Mrz", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"},
        .dayNames = {"Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"},
        .dayShortNames = {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"},
    };
    return german;
}

const Locale& EnglishLocale()
{
    static const Locale english{
        .name = "en-US",
        .decimalSeparator = ".",
        .thousandsSeparator = ",",
        .dateSeparator = "/",
        .timeSeparator = ":",
        .dateOrder = DateOrder::MonthDayYear,
        .shortDateMask = "m/d/yyyy",
        .longDateMask = "dddd, mmmm d, yyyy",
        .longTimeMask = "h:nn:ss AM/PM",
        .trueWord = "True",
        .falseWord = "False",
        .yesWord = "Yes",
        .noWord = "No",
        .onWord = "On",
        .offWord = "Off",
        .currencySign = "$",
        .currencyMask = "$#,##0.00;($#,##0.00)",
        .pointSeparatesTime = true,
        .monthNames = {"January", "February", "March", "April", "May", "June", "July", "August", "September", "October",
                       "November", "December"},
        .monthShortNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
        .dayNames = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
        .dayShortNames = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"},
    };
    return english;
}

const Locale& LocaleFromEnvironment()
{
    for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value == nullptr || *value == '\0') continue;
        return std::string_view(value).starts_with("de") ? GermanLocale() : EnglishLocale();
    }
    return EnglishLocale();
}

const Locale& CurrentLocale()
{
    return Current();
}

void SetLocale(const Locale& locale)
{
    Current() = locale;
}

} // namespace kvx::basic

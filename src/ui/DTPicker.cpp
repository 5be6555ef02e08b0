#include "ui/DTPicker.h"

#include "basic/Convert.h"
#include "basic/Format.h"
#include "basic/Locale.h"
#include "ui/Desktop.h"
#include "ui/MemberRows.h"

#include <algorithm>
#include <cmath>

namespace kvx::ui {
namespace {

bool SameDay(const basic::DateParts& a, const basic::DateParts& b)
{
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

// The picker writes months as "M" and hours as "H"; "m" are minutes.
std::string MaskOf(std::string_view customFormat)
{
    std::string mask;
    bool literal = false;
    for (const char c : customFormat) {
        if (c == '\'') {
            literal = !literal;
            mask += '"';
        } else if (literal) {
            mask += c;
        } else {
            mask += c == 'M' ? 'm' : c == 'm' ? 'n' : c == 'H' ? 'h' : c;
        }
    }
    return mask;
}

}  // namespace

DTPicker::DTPicker(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<DTPicker>& DTPicker::Members()
{
    using namespace rows;
    using T = DTPicker;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Value, &T::SetValue>("Value"),
        ReadWrite<T, &T::Value, &T::SetValue>(""),
        ReadWrite<T, &T::Day, &T::SetDay>("Day"),
        ReadWrite<T, &T::Month, &T::SetMonth>("Month"),
        ReadWrite<T, &T::Year, &T::SetYear>("Year"),
        ReadWrite<T, &T::MinDate, &T::SetMinDate>("MinDate"),
        ReadWrite<T, &T::MaxDate, &T::SetMaxDate>("MaxDate"),
        ReadWrite<T, &T::Format, &T::SetFormat>("Format"),
        ReadWrite<T, &T::CustomFormat, &T::SetCustomFormat>("CustomFormat"),
    };
    static constexpr basic::MemberTable<T> kTable{"DTPicker", kRows};
    return kTable;
}

void DTPicker::Reset()
{
    Control::Reset();
    minDate_ = basic::DateOf({.year = 1601, .month = 1, .day = 1});
    maxDate_ = basic::DateOf({.year = 9999, .month = 12, .day = 31});
    if (const Desktop* desktop = FindCurrentDesktop(); desktop != nullptr) value_ = CurrentDesktop().Now();
    format_ = dtpLongDate;
    customFormat_.clear();
}

void DTPicker::Assign(basic::Date value)
{
    if (std::floor(value.days) < std::floor(minDate_.days) || std::floor(value.days) > std::floor(maxDate_.days))
        basic::Raise(kErrDateOutOfRange, "The date is outside MinDate to MaxDate");
    const bool changed = value.days != value_.days;
    value_ = value;
    Notify(ui::Change::Value);
    if (!changed || telling_) return;
    // A handler that corrects the date must not be called for its own correction.
    telling_ = true;
    try {
        Change.Raise();
    } catch (...) {
        telling_ = false;
        throw;
    }
    telling_ = false;
}

void DTPicker::SetValue(basic::Date value)
{
    Assign(value);
}

std::int16_t DTPicker::Day() const
{
    return static_cast<std::int16_t>(basic::PartsOf(value_).day);
}
std::int16_t DTPicker::Month() const
{
    return static_cast<std::int16_t>(basic::PartsOf(value_).month);
}
std::int16_t DTPicker::Year() const
{
    return static_cast<std::int16_t>(basic::PartsOf(value_).year);
}

void DTPicker::SetParts(std::int32_t year, std::int32_t month, std::int32_t day)
{
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31)
        basic::Raise(basic::kErrInvalidProperty);
    basic::DateParts wanted = basic::PartsOf(value_);
    wanted.year = year;
    wanted.month = month;
    wanted.day = day;
    const basic::Date date = basic::DateOf(wanted);
    // A day that the month lacks has rolled over into the next one.
    if (!SameDay(basic::PartsOf(date), wanted)) basic::Raise(basic::kErrInvalidProperty);
    Assign(date);
}

void DTPicker::SetDay(std::int16_t day)
{
    SetParts(Year(), Month(), day);
}
void DTPicker::SetMonth(std::int16_t month)
{
    SetParts(Year(), month, Day());
}
void DTPicker::SetYear(std::int16_t year)
{
    SetParts(year, Month(), Day());
}

void DTPicker::SetMinDate(basic::Date date)
{
    if (date.days > maxDate_.days) basic::Raise(kErrMinAboveMax, "MinDate is later than MaxDate");
    minDate_ = date;
    if (value_.days < std::floor(date.days)) value_ = date;
    Notify(ui::Change::Value);
}

void DTPicker::SetMaxDate(basic::Date date)
{
    if (date.days < minDate_.days) basic::Raise(kErrMaxBelowMin, "MaxDate is earlier than MinDate");
    maxDate_ = date;
    if (std::floor(value_.days) > date.days) value_ = date;
    Notify(ui::Change::Value);
}

void DTPicker::SetFormat(std::int16_t format)
{
    if (format < dtpLongDate || format > dtpCustom) basic::Raise(basic::kErrInvalidProperty);
    format_ = format;
    Notify(ui::Change::Look);
}

void DTPicker::SetCustomFormat(std::string_view format)
{
    customFormat_ = format;
    Notify(ui::Change::Look);
}

std::string DTPicker::Text() const
{
    const basic::Locale& locale = basic::CurrentLocale();
    switch (format_) {
    case dtpLongDate: return basic::Format(value_, locale.longDateMask);
    case dtpShortDate: return basic::Format(value_, locale.shortDateMask);
    case dtpTime: return basic::Format(value_, locale.longTimeMask);
    default: return basic::Format(value_, customFormat_.empty() ? locale.shortDateMask : MaskOf(customFormat_));
    }
}

void DTPicker::UserSetValue(basic::Date value)
{
    if (std::floor(value.days) < std::floor(minDate_.days)) value = minDate_;
    if (std::floor(value.days) > std::floor(maxDate_.days)) value = maxDate_;
    Assign(value);
}

bool DTPicker::DefaultKeyDown(std::int16_t keyCode, std::int16_t)
{
    if (keyCode != vbKeyUp && keyCode != vbKeyDown) return false;
    UserSetValue(basic::Date{value_.days + (keyCode == vbKeyUp ? 1 : -1)});
    return true;
}

}  // namespace kvx::ui

#pragma once

#include "basic/Variant.h"
#include "ui/ControlOf.h"

namespace kvx::ui {

constexpr std::int16_t dtpLongDate = 0;
constexpr std::int16_t dtpShortDate = 1;
constexpr std::int16_t dtpTime = 2;
constexpr std::int16_t dtpCustom = 3;

constexpr std::int32_t kErrDateOutOfRange = 35773;
constexpr std::int32_t kErrMaxBelowMin = 35774;
constexpr std::int32_t kErrMinAboveMax = 35775;

/// A box to pick a date. Change is raised when the value really changes, by the user and by code.
class DTPicker final : public ControlOf<DTPicker> {
public:
    DTPicker(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "DTPicker"; }
    static const basic::MemberTable<DTPicker>& Members();

    basic::Date Value() const { return value_; }  ///< carries a time of day
    void SetValue(basic::Date value);             ///< @throws basic::Error 35773: outside MinDate to MaxDate
    std::int16_t Day() const;
    std::int16_t Month() const;
    std::int16_t Year() const;
    // @throws basic::Error 380: no such day in that month and year, 35773
    void SetDay(std::int16_t day);
    void SetMonth(std::int16_t month);
    void SetYear(std::int16_t year);
    basic::Date MinDate() const { return minDate_; }
    /// Pulls an earlier value up to it. @throws basic::Error 35775: above MaxDate
    void SetMinDate(basic::Date date);
    basic::Date MaxDate() const { return maxDate_; }
    /// Pulls a later value down to it. @throws basic::Error 35774: below MinDate
    void SetMaxDate(basic::Date date);
    std::int16_t Format() const { return format_; }
    void SetFormat(std::int16_t format);
    const std::string& CustomFormat() const { return customFormat_; }
    void SetCustomFormat(std::string_view format);  ///< "MM/yyyy", "dd.MM.yyyy"
    std::string Text() const;                       ///< the value as it is shown

    void Reset() override;

    // --- what the user did ---
    void UserSetValue(basic::Date value);                                    ///< pulled into the range
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;  ///< up and down: a day

    ui::Event<> Change;

protected:
    Color DrawnBackColor() const override { return kColorWindow; }
    Color DrawnForeColor() const override { return kColorWindowText; }

private:
    void Assign(basic::Date value);
    void SetParts(std::int32_t year, std::int32_t month, std::int32_t day);
    basic::Date value_, minDate_, maxDate_;
    std::int16_t format_ = dtpLongDate;
    std::string customFormat_;
    bool telling_ = false;  // Change is being raised
};

}  // namespace kvx::ui

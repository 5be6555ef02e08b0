#pragma once

#include "ui/ControlOf.h"

namespace kvx::ui {

constexpr std::int16_t vbUnchecked = 0;
constexpr std::int16_t vbChecked = 1;
constexpr std::int16_t vbGrayed = 2;

/// A box to tick. Click is raised whenever the value changes, by the user or by code.
class CheckBox final : public ControlOf<CheckBox> {
public:
    CheckBox(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "CheckBox"; }
    static const basic::MemberTable<CheckBox>& Members();

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    std::int16_t Value() const { return value_; }  ///< vbUnchecked, vbChecked, vbGrayed
    void SetValue(std::int16_t value);             ///< @throws basic::Error 380: another value (also -1)

    std::string_view MnemonicText() const override { return caption_; }
    void UserClick() override;  ///< toggles; grey becomes off
    bool DefaultKeyPress(std::int32_t key) override;
    void Reset() override;

private:
    std::string caption_;
    std::int16_t value_ = vbUnchecked;
};

}  // namespace kvx::ui

#pragma once

#include "ui/ControlOf.h"

namespace kvx::ui {

/// A push button; "CommandButton" for late binding.
class Button final : public ControlOf<Button> {
public:
    Button(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "CommandButton"; }
    static const basic::MemberTable<Button>& Members();

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    bool Default() const { return default_; }
    void SetDefault(bool isDefault);  ///< Enter anywhere on the form presses it; one a form
    bool Cancel() const { return cancel_; }
    void SetCancel(bool isCancel);  ///< Esc anywhere on the form presses it; one a form
    bool Value() const { return false; }
    void SetValue(bool value);  ///< true presses it: raises Click

    std::string_view MnemonicText() const override { return caption_; }
    bool DefaultKeyPress(std::int32_t key) override;
    void Reset() override;

private:
    std::string caption_;
    bool default_ = false, cancel_ = false;
};

}  // namespace kvx::ui

#pragma once

#include "ui/ControlOf.h"

#include <vector>

namespace kvx::ui {

/// One choice of several: those in the same container switch each other off. Click is raised when it becomes true, by
/// the user or by code; switching off raises nothing.
class OptionButton final : public ControlOf<OptionButton> {
public:
    OptionButton(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "OptionButton"; }
    static const basic::MemberTable<OptionButton>& Members();

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    bool Value() const { return value_; }
    void SetValue(bool value);

    std::string_view MnemonicText() const override { return caption_; }
    bool StopsTab() const override;  ///< the chosen one of the group, else its first
    void UserClick() override;
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;  ///< arrows choose the neighbour
    bool DefaultKeyPress(std::int32_t key) override;
    void Reset() override;

private:
    std::vector<OptionButton*> Group() const;
    std::string caption_;
    bool value_ = false;
};

}  // namespace kvx::ui

#pragma once

#include "ui/ControlOf.h"

namespace kvx::ui {

/// A titled frame around other controls. Disabled, it blocks them for the user without greying them.
class Frame final : public ControlOf<Frame> {
public:
    Frame(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "Frame"; }
    static const basic::MemberTable<Frame>& Members();

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);

    bool TakesFocus() const override { return false; }
    std::string_view MnemonicText() const override { return caption_; }
    void Reset() override;

private:
    std::string caption_;
};

}  // namespace kvx::ui

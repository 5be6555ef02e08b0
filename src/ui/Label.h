#pragma once

#include "ui/ControlOf.h"

namespace kvx::ui {

/// A text on the form. Its letter for Alt leads to the next control in tab order.
class Label final : public ControlOf<Label> {
public:
    Label(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "Label"; }
    static const basic::MemberTable<Label>& Members();

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);  ///< raises Change, if it differs
    bool AutoSize() const { return autoSize_; }
    void SetAutoSize(bool autoSize);
    std::int16_t Alignment() const { return alignment_; }  ///< 0 left, 1 right, 2 centre
    void SetAlignment(std::int16_t alignment);
    bool WordWrap() const { return wordWrap_; }
    void SetWordWrap(bool wrap);

    bool TakesFocus() const override { return false; }
    std::string_view MnemonicText() const override { return caption_; }
    void Reset() override;

    ui::Event<> Change;

private:
    std::string caption_;
    bool autoSize_ = false, wordWrap_ = false;
    std::int16_t alignment_ = 0;
};

}  // namespace kvx::ui

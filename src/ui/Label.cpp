#include "ui/Label.h"

#include "ui/Desktop.h"
#include "ui/Form.h"
#include "ui/MemberRows.h"

namespace kvx::ui {

Label::Label(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<Label>& Label::Members()
{
    using namespace rows;
    using T = Label;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Caption, &T::SetCaption>("Caption"),
        ReadWrite<T, &T::Caption, &T::SetCaption>(""),
        ReadWrite<T, &T::AutoSize, &T::SetAutoSize>("AutoSize"),
        ReadWrite<T, &T::Alignment, &T::SetAlignment>("Alignment"),
        ReadWrite<T, &T::WordWrap, &T::SetWordWrap>("WordWrap"),
    };
    static constexpr basic::MemberTable<T> kTable{"Label", kRows};
    return kTable;
}

void Label::Reset()
{
    Control::Reset();
    caption_.clear();
    autoSize_ = wordWrap_ = false;
    alignment_ = 0;
}

void Label::SetCaption(std::string_view caption)
{
    const bool changed = caption_ != caption;
    caption_ = caption;
    if (autoSize_ && !wordWrap_) SetWidth(CurrentDesktop().TextWidth(PlainCaption(caption_)));
    Notify(ui::Change::Text);
    if (changed) Change.Raise();
}

void Label::SetAutoSize(bool autoSize)
{
    autoSize_ = autoSize;
    if (autoSize_ && !wordWrap_ && !caption_.empty()) SetWidth(CurrentDesktop().TextWidth(PlainCaption(caption_)));
    Notify(ui::Change::Look);
}

void Label::SetAlignment(std::int16_t alignment)
{
    if (alignment < 0 || alignment > 2) basic::Raise(basic::kErrInvalidProperty);
    alignment_ = alignment;
    Notify(ui::Change::Look);
}

void Label::SetWordWrap(bool wrap)
{
    wordWrap_ = wrap;
    Notify(ui::Change::Look);
}

}  // namespace kvx::ui

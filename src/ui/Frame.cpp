#include "ui/Frame.h"

#include "ui/MemberRows.h"

namespace kvx::ui {

Frame::Frame(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<Frame>& Frame::Members()
{
    using namespace rows;
    static constexpr basic::Member<Frame> kRows[] = {
        ReadWrite<Frame, &Frame::Caption, &Frame::SetCaption>("Caption"),
        ReadWrite<Frame, &Frame::Caption, &Frame::SetCaption>(""),
    };
    static constexpr basic::MemberTable<Frame> kTable{"Frame", kRows};
    return kTable;
}

void Frame::Reset()
{
    Control::Reset();
    caption_.clear();
}

void Frame::SetCaption(std::string_view caption)
{
    caption_ = caption;
    Notify(Change::Text);
}

}  // namespace kvx::ui

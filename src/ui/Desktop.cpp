#include "ui/Desktop.h"

#include "basic/Error.h"
#include "basic/Text.h"
#include "ui/Control.h"
#include "ui/Form.h"

namespace kvx::ui {
namespace {

thread_local Desktop* current = nullptr;

}  // namespace

std::int32_t Desktop::TextWidth(std::string_view text)
{
    return basic::Len(text) * 6 * kTwipsPerPixel;
}

std::int32_t Desktop::TextHeight(std::string_view)
{
    return 13 * kTwipsPerPixel;
}

Form* Desktop::ActiveForm() const
{
    for (auto form = modalForms_.rbegin(); form != modalForms_.rend(); ++form)
        if ((*form)->Visible()) return *form;
    return nullptr;
}

Control& Desktop::ActiveControl() const
{
    const Form* form = ActiveForm();
    Control* control = form != nullptr && form->Enabled() ? form->ActiveControl() : nullptr;
    if (control == nullptr) basic::Raise(basic::kErrObjectNotSet);
    return *control;
}

Desktop& CurrentDesktop()
{
    if (current == nullptr) basic::Raise(basic::kErrObjectNotSet);
    return *current;
}

Desktop* FindCurrentDesktop()
{
    return current;
}

void SetCurrentDesktop(Desktop* desktop)
{
    current = desktop;
}

}  // namespace kvx::ui

#include "basic/Object.h"
#include "ui/Control.h"
#include "ui/ControlArray.h"
#include "ui/Form.h"
#include "ui/MemberRows.h"

#include <algorithm>

// A form and a control array as late binding sees them.
namespace kvx::ui {
namespace {

using namespace rows;

constexpr basic::Member<Form> kFormRows[] = {
    {.name = "Name", .get = [](Form& form, Args) { return Variant(form.Name()); }},
    ReadWrite<Form, &Form::Caption, &Form::SetCaption>("Caption"),
    ReadWrite<Form, &Form::Width, &Form::SetWidth>("Width"),
    ReadWrite<Form, &Form::Height, &Form::SetHeight>("Height"),
    ReadOnly<Form, &Form::ScaleWidth>("ScaleWidth"),
    ReadOnly<Form, &Form::ScaleHeight>("ScaleHeight"),
    ReadOnly<Form, &Form::Visible>("Visible"),
    ReadWrite<Form, &Form::Enabled, &Form::SetEnabled>("Enabled"),
    ReadWrite<Form, &Form::MousePointer, &Form::SetMousePointer>("MousePointer"),
    ReadWrite<Form, &Form::Tag, &Form::SetTag>("Tag"),
    Method<Form, &Form::Hide>("Hide"),
    {.name = "ActiveControl",
     .get =
         [](Form& form, Args) {
             return form.ActiveControl() != nullptr ? Variant(form.ActiveControl()->Object())
                                                    : Variant(basic::ObjectRef{});
         }},
    {.name = "TextWidth",
     .call = [](Form& form,
                std::span<Variant> args) { return Variant(form.TextWidth(basic::CStr(Required(args, 0)))); }},
    {.name = "TextHeight",
     .call = [](Form& form,
                std::span<Variant> args) { return Variant(form.TextHeight(basic::CStr(Required(args, 0)))); }},
};
constexpr basic::MemberTable<Form> kFormMembers{"Form", kFormRows};

class ArrayObject final : public basic::Object {
public:
    ArrayObject(std::string_view name, const std::vector<Control*>& elements) : name_(name)
    {
        for (Control* element : elements)
            elements_.emplace_back(element->Index(), element->Object());
        std::sort(elements_.begin(), elements_.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    }
    std::string TypeName() const override { return "Object"; }
    Variant Get(std::string_view member, Args args) override
    {
        if (basic::SameName(member, "Count")) return static_cast<std::int16_t>(elements_.size());
        if (basic::SameName(member, "LBound")) return elements_.front().first;
        if (basic::SameName(member, "UBound")) return elements_.back().first;
        if (!member.empty() && !basic::SameName(member, "Item")) basic::RaiseNoMember(TypeName(), member);
        const std::int32_t index = basic::CLng(Required(args, 0));
        for (const auto& [number, element] : elements_)
            if (number == index) return element;
        RaiseNoElement(name_, index);
    }
    void Put(std::string_view, const Variant&, Args) override { basic::Raise(basic::kErrReadOnlyProperty); }
    Variant Call(std::string_view member, std::span<Variant> args) override { return Get(member, args); }

private:
    std::string name_;
    std::vector<std::pair<std::int16_t, basic::ObjectRef>> elements_;  // never empty
};

}  // namespace

/// What late binding holds of a form. The form may go first.
class FormObject final : public basic::Object {
public:
    explicit FormObject(Form& form) : form_(&form) {}
    void FormGone() { form_ = nullptr; }

    std::string TypeName() const override { return form_ != nullptr ? form_->Name() : "Form"; }
    Variant Get(std::string_view member, Args args) override
    {
        Form& form = Touch();
        if (kFormMembers.Has(member)) return kFormMembers.Get(form, member, args);
        return FindMember(form, member, args);
    }
    void Put(std::string_view member, const Variant& value, Args args) override
    {
        Form& form = Touch();
        if (kFormMembers.Has(member)) return kFormMembers.Put(form, member, value, args);
        // Assigning to a control assigns its default property.
        FindMember(form, member, args).ToObject()->Put("", value);
    }
    Variant Call(std::string_view member, std::span<Variant> args) override
    {
        Form& form = Touch();
        if (kFormMembers.Has(member)) return kFormMembers.Call(form, member, args);
        return FindMember(form, member, args);
    }

private:
    Form& Touch()
    {
        if (form_ == nullptr) basic::Raise(basic::kErrObjectNotSet);
        form_->Load();
        return *form_;
    }
    Variant FindMember(Form& form, std::string_view member, Args args)
    {
        if (Control* control = form.FindControl(member); control != nullptr) return control->Object();
        std::vector<Control*> elements;
        for (Control* control : form.Controls())
            if (control->Index() >= 0 && basic::SameName(control->Name(), member)) elements.push_back(control);
        if (elements.empty()) basic::RaiseNoMember(form.Name(), member);
        const basic::ObjectRef array = MakeArrayObject(elements.front()->Name(), elements);
        return args.empty() ? Variant(array) : array->Get("Item", args);
    }
    Form* form_;
};

basic::ObjectRef Form::Object()
{
    if (object_ == nullptr) object_ = std::make_shared<FormObject>(*this);
    return object_;
}

void Form::ForgetObject()
{
    static_cast<FormObject&>(*object_).FormGone();
}

void RaiseNoElement(std::string_view arrayName, std::int32_t index)
{
    basic::Raise(basic::kErrControlArrayElement, "Control array element '" + std::to_string(index) + "' of '" +
                                                     std::string{arrayName} + "' doesn't exist");
}

std::string ElementName(std::string_view arrayName, std::int32_t index)
{
    return std::string{arrayName} + "(" + std::to_string(index) + ")";
}

basic::ObjectRef MakeArrayObject(std::string_view arrayName, const std::vector<Control*>& elements)
{
    return std::make_shared<ArrayObject>(arrayName, elements);
}

}  // namespace kvx::ui

#include "host/drive/HostObjects.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/ControlArray.h"
#include "ui/DTPicker.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListBox.h"
#include "ui/ListView.h"
#include "ui/OptionButton.h"
#include "ui/TextBox.h"
#include "ui/TreeView.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <optional>
#include <utility>

namespace kvx::host::drive {

namespace {

// Where the boxes of a call stand; it is never shown.
class HostForm final : public ui::Form {
public:
    HostForm() : Form("Host") { Load(); }

protected:
    void Design() override {}
};

struct Kind {
    std::string_view name;
    std::unique_ptr<ui::Control> (*make)(ui::Form&, std::string_view);
    std::vector<const char*> state;  // properties that always come back
};

template <class T>
std::unique_ptr<ui::Control> MakeControl(ui::Form& form, std::string_view name)
{
    auto control = std::make_unique<T>(form, name);
    control->Reset();
    return control;
}

const std::vector<Kind>& Kinds()
{
    static const std::vector<Kind> kinds = {
        {"TextBox", MakeControl<ui::TextBox>, {"Text", "Tag"}},
        {"Label", MakeControl<ui::Label>, {"Caption", "Tag"}},
        {"CheckBox", MakeControl<ui::CheckBox>, {"Caption", "Value", "Tag"}},
        {"OptionButton", MakeControl<ui::OptionButton>, {"Caption", "Value", "Tag"}},
        {"CommandButton", MakeControl<ui::Button>, {"Caption", "Tag"}},
        {"DTPicker", MakeControl<ui::DTPicker>, {"Value", "Tag"}},
        {"ComboBox", MakeControl<ui::ComboBox>, {"Text", "ListIndex", "Tag"}},
        {"ListBox", MakeControl<ui::ListBox>, {"ListIndex", "Tag"}},
        {"ListView", MakeControl<ui::ListView>, {"Tag"}},
        {"TreeView", MakeControl<ui::TreeView>, {"Tag"}},
    };
    return kinds;
}

[[noreturn]] void BadObject(const std::string& what)
{
    throw Fault("bad-object", what);
}

const Json& ArrayOf(const Json& description, const char* name)
{
    const Json& list = description[name];
    if (!list.is_array()) BadObject("\"" + std::string(name) + "\" must be a list");
    return list;
}

std::string TextOf(const Json& record, const char* name)
{
    const auto found = record.find(name);
    return found == record.end() ? std::string() : basic::ToText(ToVariant(*found));
}

// --- what a kind has besides plain properties

template <class L>
void PutList(L& list, const Json& description)
{
    if (description.contains("List"))
        for (const Json& text : ArrayOf(description, "List"))
            list.AddItem(basic::ToText(ToVariant(text)));
    if (description.contains("ItemData")) {
        std::int32_t index = 0;
        for (const Json& data : ArrayOf(description, "ItemData"))
            list.SetItemData(index++, basic::CLng(ToVariant(data)));
    }
}

template <class L>
void GetList(const L& list, Json& state)
{
    Json texts = Json::array(), data = Json::array();
    for (std::int32_t i = 0; i < list.ListCount(); ++i) {
        texts.push_back(list.List(i));
        data.push_back(list.ItemData(i));
    }
    state["List"] = std::move(texts);
    state["ItemData"] = std::move(data);
}

template <class Part>
void PutParts(Part& part, const Json& record)
{
    for (const auto& [name, value] : record.items())
        if (name != "Key" && name != "Text" && name != "SubItems" && name != "Nodes")
            part.Object()->Put(name, ToVariant(value));
}

void PutListView(ui::ListView& list, const Json& description)
{
    if (description.contains("ColumnHeaders"))
        for (const Json& record : ArrayOf(description, "ColumnHeaders"))
            PutParts(list.ColumnHeaders().Add(TextOf(record, "Key"), TextOf(record, "Text")), record);
    if (!description.contains("ListItems")) return;
    for (const Json& record : ArrayOf(description, "ListItems")) {
        ui::ListItem& item = list.ListItems().Add(TextOf(record, "Key"), TextOf(record, "Text"));
        PutParts(item, record);
        if (!record.contains("SubItems")) continue;
        std::int32_t column = 0;
        for (const Json& text : ArrayOf(record, "SubItems"))
            item.SetSubItems(++column, basic::ToText(ToVariant(text)));
    }
}

void GetListView(ui::ListView& list, Json& state)
{
    Json columns = Json::array(), items = Json::array();
    for (std::int32_t i = 1; i <= list.ColumnHeaders().Count(); ++i) {
        const ui::ColumnHeader& column = list.ColumnHeaders()[i];
        columns.push_back(
            {{"Key", column.Key()}, {"Text", column.Text()}, {"Width", column.Width()}, {"Tag", column.Tag()}});
    }
    for (std::int32_t i = 1; i <= list.ListItems().Count(); ++i) {
        const ui::ListItem& item = list.ListItems()[i];
        Json subItems = Json::array();
        for (std::int32_t column = 1; column < list.ColumnHeaders().Count(); ++column)
            subItems.push_back(item.SubItems(column));
        items.push_back({{"Key", item.Key()},
                         {"Text", item.Text()},
                         {"SubItems", std::move(subItems)},
                         {"Checked", item.Checked()},
                         {"Selected", item.Selected()},
                         {"Tag", item.Tag()}});
    }
    state["ColumnHeaders"] = std::move(columns);
    state["ListItems"] = std::move(items);
}

void PutNodes(ui::TreeView& tree, const ui::Node& parent, const Json& records)
{
    if (!records.is_array()) BadObject("\"Nodes\" must be a list");
    for (const Json& record : records) {
        ui::Node node = parent == nullptr
                            ? tree.Add(TextOf(record, "Key"), TextOf(record, "Text"))
                            : tree.Add(parent, ui::tvwChild, TextOf(record, "Key"), TextOf(record, "Text"));
        if (record.contains("Nodes")) PutNodes(tree, node, record["Nodes"]);
        PutParts(node, record);
    }
}

Json NodeJson(const ui::Node& node)
{
    Json state = {{"Key", node.Key()},           {"Text", node.Text()}, {"Checked", node.Checked()},
                  {"Expanded", node.Expanded()}, {"Bold", node.Bold()}, {"Tag", node.Tag()}};
    Json children = Json::array();
    for (ui::Node child = node.Child(); child != nullptr; child = child.Next())
        children.push_back(NodeJson(child));
    state["Nodes"] = std::move(children);
    return state;
}

bool IsStructure(std::string_view name)
{
    for (const std::string_view known :
         {"object", "List", "ItemData", "SelectedItems", "ColumnHeaders", "ListItems", "Nodes"})
        if (name == known) return true;
    return false;
}

// What a host says when it draws a box: nothing that late binding may change later. They come first.
bool PutDesign(ui::Control& control, std::string_view property, const Json& value)
{
    if (auto* text = dynamic_cast<ui::TextBox*>(&control); text != nullptr && property == "MultiLine") {
        text->SetMultiLine(basic::CBool(ToVariant(value)));
        return true;
    }
    auto* combo = dynamic_cast<ui::ComboBox*>(&control);
    auto* list = dynamic_cast<ui::ListBox*>(&control);
    if (combo != nullptr && property == "Style")
        combo->SetStyle(basic::CInt(ToVariant(value)));
    else if (combo != nullptr && property == "Sorted")
        combo->SetSorted(basic::CBool(ToVariant(value)));
    else if (list != nullptr && property == "Sorted")
        list->SetSorted(basic::CBool(ToVariant(value)));
    else if (list != nullptr && property == "MultiSelect")
        list->SetMultiSelect(basic::CInt(ToVariant(value)));
    else
        return false;
    return true;
}

// --- things that can be described

class Thing {
public:
    virtual ~Thing() = default;
    virtual basic::ObjectRef Object() = 0;
    virtual Json Describe() = 0;
};

class Box final : public Thing {
public:
    Box(const Kind& kind, std::shared_ptr<HostForm> form, std::string_view name, const Json& description)
        : kind_(kind), form_(std::move(form)), control_(kind.make(*form_, name))
    {
        std::vector<std::string> designed;
        for (const auto& [property, value] : description.items())
            if (PutDesign(*control_, property, value)) designed.push_back(property);
        if (auto* combo = As<ui::ComboBox>(); combo != nullptr) PutList(*combo, description);
        if (auto* list = As<ui::ListBox>(); list != nullptr) PutList(*list, description);
        if (auto* view = As<ui::ListView>(); view != nullptr) PutListView(*view, description);
        if (auto* tree = As<ui::TreeView>(); tree != nullptr && description.contains("Nodes"))
            PutNodes(*tree, {}, description["Nodes"]);
        for (const auto& [property, value] : description.items()) {
            if (IsStructure(property)) continue;
            if (std::ranges::find(designed, property) == designed.end()) Object()->Put(property, ToVariant(value));
            bool known = false;
            for (const char* always : kind_.state)
                known = known || property == always;
            if (!known) described_.push_back(property);
        }
        if (auto* list = As<ui::ListBox>(); list != nullptr && description.contains("SelectedItems"))
            for (const Json& index : ArrayOf(description, "SelectedItems"))
                list->SetSelected(basic::CLng(ToVariant(index)), true);
    }

    basic::ObjectRef Object() override { return control_->Object(); }

    Json Describe() override
    {
        Json state = {{"object", control_->TypeName()}};
        if (auto* combo = As<ui::ComboBox>(); combo != nullptr) GetList(*combo, state);
        if (auto* list = As<ui::ListBox>(); list != nullptr) {
            GetList(*list, state);
            Json selected = Json::array();
            for (std::int32_t i = 0; i < list->ListCount(); ++i)
                if (list->MultiSelect() != ui::vbMultiSelectNone && list->Selected(i)) selected.push_back(i);
            if (list->MultiSelect() != ui::vbMultiSelectNone) state["SelectedItems"] = std::move(selected);
        }
        if (auto* view = As<ui::ListView>(); view != nullptr) GetListView(*view, state);
        if (auto* tree = As<ui::TreeView>(); tree != nullptr) {
            Json nodes = Json::array();
            for (ui::Node node = tree->FirstTop(); node != nullptr; node = node.Next())
                nodes.push_back(NodeJson(node));
            state["Nodes"] = std::move(nodes);
        }
        for (const char* property : kind_.state)
            state[property] = ToJson(Object()->Get(property));
        for (const std::string& property : described_)
            state[property] = ToJson(Object()->Get(property));
        if (!control_->Enabled()) state["Enabled"] = false;
        if (!control_->Visible()) state["Visible"] = false;
        return state;
    }

    ui::Control& Control() { return *control_; }

private:
    template <class T>
    T* As()
    {
        return dynamic_cast<T*>(control_.get());
    }
    const Kind& kind_;
    std::shared_ptr<HostForm>
        form_;  // a form of the library that was left behind may hold the box longer than the call
    std::unique_ptr<ui::Control> control_;
    std::vector<std::string> described_;
};

// A list of values that is asked by index: FindWarenId(3).
class Values final : public basic::Object, public std::enable_shared_from_this<Values> {
public:
    explicit Values(const Json& list)
    {
        for (const Json& item : list)
            items.push_back(ToVariant(item));
    }
    std::string TypeName() const override { return "Object"; }
    basic::Variant Get(std::string_view member, std::span<const basic::Variant> args) override
    {
        if (basic::SameName(member, "Count")) return static_cast<std::int32_t>(items.size());
        if (basic::SameName(member, "LBound")) return std::int32_t{0};
        if (basic::SameName(member, "UBound")) return static_cast<std::int32_t>(items.size()) - 1;
        return At(member, args);
    }
    void Put(std::string_view member, const basic::Variant& value, std::span<const basic::Variant> args) override
    {
        At(member, args) = value;
    }
    basic::Variant Call(std::string_view member, std::span<basic::Variant> args) override { return Get(member, args); }
    std::vector<basic::Variant> items;

private:
    basic::Variant& At(std::string_view member, std::span<const basic::Variant> args)
    {
        if (!member.empty() && !basic::SameName(member, "Item")) basic::RaiseNoMember(TypeName(), member);
        if (args.empty()) basic::Raise(449);
        const std::int32_t index = basic::CLng(args[0]);
        if (index < 0 || index >= static_cast<std::int32_t>(items.size())) basic::Raise(basic::kErrSubscript);
        return items[static_cast<std::size_t>(index)];
    }
};

class ValuesThing final : public Thing {
public:
    explicit ValuesThing(const Json& list) : values_(std::make_shared<Values>(list)) {}
    basic::ObjectRef Object() override { return values_; }
    Json Describe() override
    {
        Json list = Json::array();
        for (const basic::Variant& item : values_->items)
            list.push_back(ToJson(item));
        return list;
    }

private:
    std::shared_ptr<Values> values_;
};

using Things = std::vector<std::pair<std::string, std::unique_ptr<Thing>>>;

class ArrayThing final : public Thing {
public:
    ArrayThing(std::string_view name, std::vector<std::unique_ptr<Box>> boxes) : boxes_(std::move(boxes))
    {
        std::vector<ui::Control*> elements;
        for (const auto& box : boxes_)
            elements.push_back(&box->Control());
        object_ = ui::MakeArrayObject(name, elements);
    }
    basic::ObjectRef Object() override { return object_; }
    Json Describe() override
    {
        Json list = Json::array();
        for (const auto& box : boxes_)
            list.push_back(box->Describe());
        return list;
    }

private:
    std::vector<std::unique_ptr<Box>> boxes_;
    basic::ObjectRef object_;
};

// A form of the host, or a user control of it: members by name, and methods that note how they were called.
class FormObject final : public basic::Object {
public:
    std::string TypeName() const override { return "Form"; }
    basic::Variant Get(std::string_view member, std::span<const basic::Variant> args) override
    {
        if (Thing* thing = FindThing(member); thing != nullptr)
            return args.empty() ? basic::Variant(thing->Object()) : thing->Object()->Get("", args);
        for (const auto& [name, value] : values)
            if (basic::SameName(name, member)) return value;
        std::vector<basic::Variant> copies(args.begin(), args.end());
        return Call(member, copies);
    }
    void Put(std::string_view member, const basic::Variant& value, std::span<const basic::Variant> args) override
    {
        if (Thing* thing = FindThing(member); thing != nullptr) {
            thing->Object()->Put("", value, args);
            return;
        }
        for (auto& [name, held] : values)
            if (basic::SameName(name, member)) {
                held = value;
                return;
            }
        basic::RaiseNoMember(TypeName(), member);
    }
    basic::Variant Call(std::string_view member, std::span<basic::Variant> args) override
    {
        for (const std::string& method : methods) {
            if (!basic::SameName(method, member)) continue;
            Json call = Json::array({method});
            for (const basic::Variant& arg : args)
                call.push_back(ToJson(arg));
            calls.push_back(std::move(call));
            return {};
        }
        if (FindThing(member) != nullptr) return Get(member, args);
        for (const auto& [name, value] : values)
            if (basic::SameName(name, member)) return value;
        basic::RaiseNoMember(TypeName(), member);
    }
    Thing* FindThing(std::string_view member) const
    {
        for (const auto& [name, thing] : things)
            if (basic::SameName(name, member)) return thing.get();
        return nullptr;
    }

    Things things;
    std::vector<std::pair<std::string, basic::Variant>> values;
    std::vector<std::string> methods;
    Json calls = Json::array();
};

class FormThing final : public Thing {
public:
    explicit FormThing(std::shared_ptr<FormObject> form) : form_(std::move(form)) {}
    basic::ObjectRef Object() override { return form_; }
    Json Describe() override
    {
        Json members = Json::object();
        for (const auto& [name, thing] : form_->things)
            members[name] = thing->Describe();
        for (const auto& [name, value] : form_->values)
            members[name] = ToJson(value);
        Json state = {{"object", "Form"}, {"members", std::move(members)}};
        if (!form_->methods.empty()) {
            state["methods"] = form_->methods;
            state["calls"] = form_->calls;
        }
        return state;
    }

private:
    std::shared_ptr<FormObject> form_;
};

}  // namespace

class HostObjects::Impl {
public:
    std::unique_ptr<Thing> Make(const std::string& name, const Json& description)
    {
        if (!description.is_object() || !description.contains("object") || !description["object"].is_string())
            BadObject(name + " needs an object such as {\"object\": \"TextBox\"}");
        const std::string kind = description["object"].get<std::string>();
        if (kind == "Form") return MakeForm(name, description);
        if (kind == "Array") {
            if (!description.contains("items")) BadObject(name + " needs \"items\"");
            return MakeArray(name, ArrayOf(description, "items"));
        }
        return MakeBox(name, description);
    }

    std::unique_ptr<Box> MakeBox(const std::string& name, const Json& description)
    {
        const std::string kind = TextField(description, "object");
        for (const Kind& known : Kinds())
            if (known.name == kind) return std::make_unique<Box>(known, form_, name, description);
        throw Fault("unknown-object", "there are no host objects of the kind \"" + kind + "\"");
    }

    std::unique_ptr<Thing> MakeArray(const std::string& name, const Json& list)
    {
        std::vector<std::unique_ptr<Box>> boxes;
        if (list.empty()) BadObject(name + ": a control array has one element at least");
        for (const Json& element : list) {
            if (!element.is_object() || !element.contains("object"))
                BadObject(name + ": elements of a control array are objects such as {\"object\": \"TextBox\"}");
            boxes.push_back(MakeBox(ui::ElementName(name, static_cast<std::int32_t>(boxes.size())), element));
        }
        return std::make_unique<ArrayThing>(name, std::move(boxes));
    }

    std::unique_ptr<Thing> MakeForm(const std::string& name, const Json& description)
    {
        auto form = std::make_shared<FormObject>();
        for (const auto& [field, value] : description.items()) {
            if (field == "object" || field == "calls") continue;
            if (field == "members" && value.is_object()) {
                for (const auto& [member, what] : value.items()) {
                    if (what.is_object() && what.contains("object"))
                        form->things.emplace_back(member, Make(member, what));
                    else if (what.is_array() && !what.empty() && what[0].is_object() && what[0].contains("object"))
                        form->things.emplace_back(member, MakeArray(member, what));
                    else if (what.is_array())
                        form->things.emplace_back(member, std::make_unique<ValuesThing>(what));
                    else
                        form->values.emplace_back(member, ToVariant(what));
                }
            } else if (field == "methods" && value.is_array()) {
                for (const Json& method : value)
                    form->methods.push_back(basic::ToText(ToVariant(method)));
            } else {
                BadObject(name + ": a form has \"members\" and \"methods\", not \"" + field + "\"");
            }
        }
        return std::make_unique<FormThing>(form);
    }

    Things things;

private:
    std::shared_ptr<HostForm> form_ = std::make_shared<HostForm>();
};

HostObjects::HostObjects() : impl_(std::make_unique<Impl>()) {}
HostObjects::~HostObjects() = default;

basic::ObjectRef HostObjects::Make(const std::string& name, const Json& description)
{
    impl_->things.emplace_back(name, impl_->Make(name, description));
    return impl_->things.back().second->Object();
}

basic::ObjectRef HostObjects::Find(std::string_view path) const
{
    const std::size_t end = path.find_first_of(".(");
    for (const auto& [name, thing] : impl_->things) {
        if (name != path.substr(0, end)) continue;
        if (end == std::string_view::npos) return thing->Object();
        const std::string_view rest = path[end] == '.' ? path.substr(end + 1) : path.substr(end);
        const Member member = FollowPath(thing->Object(), rest);
        return member.owner->Get(member.name, member.args).ToObject();
    }
    throw Fault("unknown-object", "the call has no object \"" + std::string(path) + "\"");
}

Json HostObjects::Describe(const std::string& name) const
{
    for (const auto& [known, thing] : impl_->things)
        if (known == name) return thing->Describe();
    throw Fault("unknown-object", "the call has no object \"" + name + "\"");
}

Json HostObjects::DescribeAll() const
{
    Json all = Json::object();
    for (const auto& [name, thing] : impl_->things)
        all[name] = thing->Describe();
    return all;
}

std::vector<std::string_view> HostObjectKinds()
{
    std::vector<std::string_view> names;
    for (const Kind& kind : Kinds())
        names.push_back(kind.name);
    names.insert(names.end(), {"Form", "Array"});
    return names;
}

namespace {

// "2", "-1", "'Nord'"; several by commas. Takes them and the bracket behind off the text.
std::vector<basic::Variant> ReadArguments(std::string_view& text, std::string_view path)
{
    const auto fail = [path] { throw Fault("bad-member", "no path to a member: \"" + std::string(path) + "\""); };
    std::vector<basic::Variant> args;
    for (;;) {
        while (text.starts_with(" "))
            text.remove_prefix(1);
        if (text.starts_with("'")) {
            const std::size_t end = text.find('\'', 1);
            if (end == std::string_view::npos) fail();
            args.emplace_back(text.substr(1, end - 1));
            text.remove_prefix(end + 1);
        } else {
            std::int32_t number = 0;
            const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
            if (error != std::errc{}) fail();
            args.emplace_back(number);
            text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        }
        if (!text.starts_with(",") && !text.starts_with(")")) fail();
        const bool last = text.starts_with(")");
        text.remove_prefix(1);
        if (last) return args;
    }
}

}  // namespace

Member FollowPath(basic::ObjectRef from, std::string_view path)
{
    Member member{.owner = std::move(from), .name = {}, .args = {}};
    std::string_view rest = path;
    for (;;) {
        const std::size_t end = std::min(rest.find_first_of(".("), rest.size());
        member.name = rest.substr(0, end);
        member.args.clear();
        rest.remove_prefix(end);
        if (rest.starts_with("(")) {
            rest.remove_prefix(1);
            member.args = ReadArguments(rest, path);
        }
        if (rest.empty()) return member;
        if (!rest.starts_with(".")) throw Fault("bad-member", "no path to a member: \"" + std::string(path) + "\"");
        rest.remove_prefix(1);
        member.owner = basic::Deref(member.owner).Get(member.name, member.args).ToObject();
    }
}

}  // namespace kvx::host::drive

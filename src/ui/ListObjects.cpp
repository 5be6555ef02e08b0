#include "basic/Object.h"
#include "ui/ListView.h"
#include "ui/MemberRows.h"
#include "ui/PartObject.h"

#include <memory>
#include <string>

// List views, their rows and columns as late binding sees them.
namespace kvx::ui {
namespace {

using namespace rows;

constexpr basic::Member<ListItem> kItemRows[] = {
    ReadWrite<ListItem, &ListItem::Text, &ListItem::SetText>("Text"),
    ReadWrite<ListItem, &ListItem::Text, &ListItem::SetText>(""),
    ReadWrite<ListItem, &ListItem::Key, &ListItem::SetKey>("Key"),
    ReadWrite<ListItem, &ListItem::Tag, &ListItem::SetTag>("Tag"),
    ReadWrite<ListItem, &ListItem::Checked, &ListItem::SetChecked>("Checked"),
    ReadWrite<ListItem, &ListItem::Selected, &ListItem::SetSelected>("Selected"),
    ReadWrite<ListItem, &ListItem::ForeColor, &ListItem::SetForeColor>("ForeColor"),
    ReadWrite<ListItem, &ListItem::Bold, &ListItem::SetBold>("Bold"),
    Indexed<ListItem, &ListItem::SubItems, &ListItem::SetSubItems>("SubItems"),
    ReadOnly<ListItem, &ListItem::Index>("Index"),
    ReadOnly<ListItem, &ListItem::Top>("Top"),
    ReadOnly<ListItem, &ListItem::Height>("Height"),
    Method<ListItem, &ListItem::EnsureVisible>("EnsureVisible"),
};
constexpr basic::MemberTable<ListItem> kItemMembers{"ListItem", kItemRows};

constexpr basic::Member<ColumnHeader> kColumnRows[] = {
    ReadWrite<ColumnHeader, &ColumnHeader::Text, &ColumnHeader::SetText>("Text"),
    ReadWrite<ColumnHeader, &ColumnHeader::Text, &ColumnHeader::SetText>(""),
    ReadWrite<ColumnHeader, &ColumnHeader::Key, &ColumnHeader::SetKey>("Key"),
    ReadWrite<ColumnHeader, &ColumnHeader::Tag, &ColumnHeader::SetTag>("Tag"),
    ReadWrite<ColumnHeader, &ColumnHeader::Width, &ColumnHeader::SetWidth>("Width"),
    ReadWrite<ColumnHeader, &ColumnHeader::Alignment, &ColumnHeader::SetAlignment>("Alignment"),
    ReadOnly<ColumnHeader, &ColumnHeader::Left>("Left"),
    ReadOnly<ColumnHeader, &ColumnHeader::Index>("Index"),
    ReadOnly<ColumnHeader, &ColumnHeader::SubItemIndex>("SubItemIndex"),
};
constexpr basic::MemberTable<ColumnHeader> kColumnMembers{"ColumnHeader", kColumnRows};

// Adds a row or a column from late-bound arguments: index, key, text, and for a column width and alignment.
ListItem& AddTo(ListItems& items, std::int32_t index, const std::string& key, const std::string& text, Args)
{
    return items.Add(index, key, text);
}

ColumnHeader& AddTo(ColumnHeaders& columns, std::int32_t index, const std::string& key, const std::string& text,
                    Args args)
{
    const std::int32_t width = args.size() > 3 && !args[3].IsEmpty() ? basic::CLng(args[3]) : -1;
    const std::int16_t alignment = args.size() > 4 && !args[4].IsEmpty() ? basic::CInt(args[4]) : lvwColumnLeft;
    return columns.Add(index, key, text, width, alignment);
}

/// The rows or the columns, from 1.
template <class List>
class ListObject final : public basic::Object {
public:
    ListObject(ListView& view, List& list, std::string_view typeName)
        : alive_(view.Object()), list_(list), typeName_(typeName)
    {
    }
    std::string TypeName() const override { return std::string{typeName_}; }

    Variant Get(std::string_view member, Args args) override
    {
        alive_->Get("Name");  // raises 91 when the list is gone
        if (basic::SameName(member, "Count")) return list_.Count();
        if (!member.empty() && !basic::SameName(member, "Item")) basic::RaiseNoMember(TypeName(), member);
        const Variant& which = Required(args, 0);
        if (which.IsText()) return list_[std::string_view{*which.As<std::string>()}].Object();
        return list_[basic::CLng(which)].Object();
    }
    void Put(std::string_view member, const Variant&, Args) override
    {
        if (!basic::SameName(member, "Count")) basic::RaiseNoMember(TypeName(), member);
        basic::Raise(basic::kErrReadOnlyProperty);
    }
    Variant Call(std::string_view member, std::span<Variant> args) override
    {
        alive_->Get("Name");
        if (basic::SameName(member, "Clear")) {
            list_.Clear();
        } else if (basic::SameName(member, "Remove")) {
            const Variant& which = Required(args, 0);
            if (which.IsText())
                list_.Remove(std::string_view{*which.As<std::string>()});
            else
                list_.Remove(basic::CLng(which));
        } else if (basic::SameName(member, "Add")) {
            const auto text = [&](std::size_t i) { return i < args.size() ? basic::ToText(args[i]) : std::string{}; };
            const std::int32_t index = args.empty() || args[0].IsEmpty() ? 0 : basic::CLng(args[0]);
            return AddTo(list_, index, text(1), text(2), args).Object();
        } else {
            return Get(member, args);
        }
        return {};
    }

private:
    basic::ObjectRef alive_;
    List& list_;
    std::string_view typeName_;
};

template <class List>
Variant ListOrItem(ListView& view, List& list, std::string_view typeName, Args args)
{
    const basic::ObjectRef object = std::make_shared<ListObject<List>>(view, list, typeName);
    return args.empty() ? Variant(object) : object->Get("Item", args);
}

}  // namespace

basic::ObjectRef ListItem::Object()
{
    return std::make_shared<PartObject<ListItem>>(self_.lock(), kItemMembers, "ListItem");
}

basic::ObjectRef ColumnHeader::Object()
{
    return std::make_shared<PartObject<ColumnHeader>>(self_.lock(), kColumnMembers, "ColumnHeader");
}

basic::ObjectRef ListItems::Object()
{
    return std::make_shared<ListObject<ListItems>>(list_, *this, "ListItems");
}

basic::ObjectRef ColumnHeaders::Object()
{
    return std::make_shared<ListObject<ColumnHeaders>>(list_, *this, "ColumnHeaders");
}

const basic::MemberTable<ListView>& ListView::Members()
{
    using T = ListView;
    static constexpr basic::Member<T> kRows[] = {
        {.name = "ListItems",
         .get = [](T& view, Args args) { return ListOrItem(view, view.ListItems(), "ListItems", args); }},
        {.name = "ColumnHeaders",
         .get = [](T& view, Args args) { return ListOrItem(view, view.ColumnHeaders(), "ColumnHeaders", args); }},
        {.name = "SelectedItem",
         .get =
             [](T& view, Args) {
                 return Variant(view.SelectedItem() != nullptr ? view.SelectedItem()->Object() : basic::ObjectRef{});
             },
         .put =
             [](T& view, const Variant& value, Args) {
                 const auto* reference = value.As<basic::ObjectRef>();
                 if (reference == nullptr && !value.IsEmpty()) basic::Raise(basic::kErrObjectRequired);
                 const basic::ObjectRef object = reference != nullptr ? *reference : basic::ObjectRef{};
                 const auto* item = dynamic_cast<const PartObject<ListItem>*>(object.get());
                 if (object != nullptr && item == nullptr) basic::Raise(basic::kErrTypeMismatch);
                 view.SetSelectedItem(item != nullptr ? &item->Part() : nullptr);
             }},
        ReadWrite<T, &T::View, &T::SetViewStyle>("View"),
        ReadWrite<T, &T::Checkboxes, &T::SetCheckboxes>("Checkboxes"),
        ReadWrite<T, &T::FullRowSelect, &T::SetFullRowSelect>("FullRowSelect"),
        ReadWrite<T, &T::MultiSelect, &T::SetMultiSelect>("MultiSelect"),
        ReadWrite<T, &T::GridLines, &T::SetGridLines>("GridLines"),
        ReadWrite<T, &T::HideSelection, &T::SetHideSelection>("HideSelection"),
        ReadWrite<T, &T::Sorted, &T::SetSorted>("Sorted"),
        ReadWrite<T, &T::SortKey, &T::SetSortKey>("SortKey"),
        ReadWrite<T, &T::SortOrder, &T::SetSortOrder>("SortOrder"),
    };
    static constexpr basic::MemberTable<T> kTable{"ListView", kRows};
    return kTable;
}

}  // namespace kvx::ui

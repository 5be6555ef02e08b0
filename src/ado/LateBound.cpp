#include "ado/Connection.h"
#include "basic/Convert.h"
#include "basic/Members.h"

#include <utility>

// The objects as late binding sees them: by member name, with Variants.
namespace kvx::ado {
namespace {

using basic::ArgumentOr;
using basic::Member;
using basic::MemberTable;
using basic::Variant;
using Args = std::span<const Variant>;
using Refs = std::span<Variant>;

/// A value handle dressed as an object; its members stand in a table.
template <class T>
class HandleObject final : public basic::Object {
public:
    HandleObject(T handle, const char* typeName, const MemberTable<T>& members)
        : handle_(std::move(handle)), typeName_(typeName), members_(members)
    {
    }

    std::string TypeName() const override { return typeName_; }
    Variant Get(std::string_view member, Args args) override { return members_.Get(handle_, member, args); }
    void Put(std::string_view member, const Variant& value, Args args) override
    {
        members_.Put(handle_, member, value, args);
    }
    Variant Call(std::string_view member, Refs args) override { return members_.Call(handle_, member, args); }

    const T& Handle() const { return handle_; }

private:
    T handle_;
    const char* typeName_;
    const MemberTable<T>& members_;
};

const Variant& Needed(Args args, std::size_t index)
{
    if (index >= args.size()) basic::Raise(basic::kErrInvalidCall);
    return args[index];
}

bool Given(Args args, std::size_t index)
{
    return index < args.size() && !args[index].IsEmpty();
}

std::int32_t NumberOr(Args args, std::size_t index, std::int32_t otherwise)
{
    return Given(args, index) ? basic::CLng(args[index]) : otherwise;
}

// A whole number in the kind the classic platform uses for counts and positions.
Variant Count(std::int64_t value)
{
    return static_cast<std::int32_t>(value);
}

// The two-dimensional array: by field, then by row.
Variant ArrayOf(const RowBlock& block)
{
    basic::VariantArray fields;
    for (std::size_t column = 0; column < block.Columns(); ++column) {
        basic::VariantArray values;
        values.reserve(block.Rows());
        for (std::size_t row = 0; row < block.Rows(); ++row)
            values.push_back(block.Value(column, row));
        fields.emplace_back(std::move(values));
    }
    return fields;
}

constexpr auto kFieldValue = [](Field& field, Args) { return field.Value(); };
constexpr auto kPutFieldValue = [](Field& field, const Variant& value, Args) { field.SetValue(value); };

constexpr Member<Field> kFieldRows[] = {
    {.name = "", .get = kFieldValue, .put = kPutFieldValue},
    {.name = "Value", .get = kFieldValue, .put = kPutFieldValue},
    {.name = "Name", .get = [](Field& field, Args) -> Variant { return field.Name(); }},
    {.name = "Type", .get = [](Field& field, Args) -> Variant { return std::int32_t{field.Type()}; }},
    {.name = "DefinedSize", .get = [](Field& field, Args) -> Variant { return field.DefinedSize(); }},
    {.name = "Precision", .get = [](Field& field, Args) -> Variant { return field.Precision(); }},
    {.name = "NumericScale", .get = [](Field& field, Args) -> Variant { return field.NumericScale(); }},
    {.name = "Properties",
     .get = [](Field& field, Args args) { return field.Properties(basic::CStr(Needed(args, 0))); }},
};
constexpr MemberTable<Field> kFieldMembers{"Field", kFieldRows};

constexpr auto kFieldsItem = [](Fields& fields, Args args) -> Variant {
    return fields.Item(Needed(args, 0)).AsObject();
};

constexpr Member<Fields> kFieldsRows[] = {
    {.name = "", .get = kFieldsItem},
    {.name = "Item", .get = kFieldsItem},
    {.name = "Count", .get = [](Fields& fields, Args) -> Variant { return fields.Count(); }},
};
constexpr MemberTable<Fields> kFieldsMembers{"Fields", kFieldsRows};

// Fields itself, or one field when an index is given; assigning with an index assigns the field.
constexpr auto kRecordsetFields = [](Recordset& set, Args args) -> Variant {
    return args.empty() ? set.Fields().AsObject() : set.Fields().Item(args[0]).AsObject();
};
constexpr auto kPutRecordsetField = [](Recordset& set, const Variant& value, Args args) {
    set.Fields().Item(Needed(args, 0)).SetValue(value);
};

constexpr Member<Recordset> kRecordsetRows[] = {
    {.name = "", .get = kRecordsetFields, .put = kPutRecordsetField},
    {.name = "Fields", .get = kRecordsetFields, .put = kPutRecordsetField},
    {.name = "BOF", .get = [](Recordset& set, Args) -> Variant { return set.Bof(); }},
    {.name = "EOF", .get = [](Recordset& set, Args) -> Variant { return set.Eof(); }},
    {.name = "State", .get = [](Recordset& set, Args) -> Variant { return set.State(); }},
    {.name = "Source", .get = [](Recordset& set, Args) -> Variant { return set.Source(); }},
    {.name = "RecordCount", .get = [](Recordset& set, Args) { return Count(set.RecordCount()); }},
    {.name = "EditMode", .get = [](Recordset& set, Args) -> Variant { return std::int32_t{set.EditMode()}; }},
    {.name = "ActiveConnection",
     .get = [](Recordset& set, Args) -> Variant { return set.ActiveConnection().AsObject(); }},
    {.name = "AbsolutePosition",
     .get = [](Recordset& set, Args) { return Count(set.AbsolutePosition()); },
     .put = [](Recordset& set, const Variant& value, Args) { set.SetAbsolutePosition(basic::CLng(value)); }},
    {.name = "Bookmark",
     .get = [](Recordset& set, Args) { return set.Bookmark(); },
     .put = [](Recordset& set, const Variant& value, Args) { set.SetBookmark(value); }},
    {.name = "CursorType",
     .get = [](Recordset& set, Args) -> Variant { return std::int32_t{set.CursorType()}; },
     .put = [](Recordset& set, const Variant& value,
               Args) { set.SetCursorType(static_cast<CursorTypeEnum>(basic::CLng(value))); }},
    {.name = "LockType",
     .get = [](Recordset& set, Args) -> Variant { return std::int32_t{set.LockType()}; },
     .put = [](Recordset& set, const Variant& value,
               Args) { set.SetLockType(static_cast<LockTypeEnum>(basic::CLng(value))); }},
    {.name = "CursorLocation",
     .get = [](Recordset& set, Args) -> Variant { return std::int32_t{set.CursorLocation()}; },
     .put = [](Recordset& set, const Variant& value,
               Args) { set.SetCursorLocation(static_cast<CursorLocationEnum>(basic::CLng(value))); }},
    {.name = "Open",
     .call = [](Recordset& set, Refs args) -> Variant {
         set.Open(basic::CStr(Needed(args, 0)), Connection::FromObject(Needed(args, 1).ToObject()),
                  static_cast<CursorTypeEnum>(NumberOr(args, 2, adOpenUnspecified)),
                  static_cast<LockTypeEnum>(NumberOr(args, 3, adLockUnspecified)), NumberOr(args, 4, adCmdUnspecified));
         return {};
     }},
    {.name = "Close", .call = [](Recordset& set, Refs) -> Variant { return set.Close(), Variant(); }},
    {.name = "Requery", .call = [](Recordset& set, Refs) -> Variant { return set.Requery(), Variant(); }},
    {.name = "MoveNext", .call = [](Recordset& set, Refs) -> Variant { return set.MoveNext(), Variant(); }},
    {.name = "MovePrevious", .call = [](Recordset& set, Refs) -> Variant { return set.MovePrevious(), Variant(); }},
    {.name = "MoveFirst", .call = [](Recordset& set, Refs) -> Variant { return set.MoveFirst(), Variant(); }},
    {.name = "MoveLast", .call = [](Recordset& set, Refs) -> Variant { return set.MoveLast(), Variant(); }},
    {.name = "Move",
     .call = [](Recordset& set, Refs args) -> Variant {
         const Variant current(std::int32_t{adBookmarkCurrent});
         set.Move(basic::CLng(Needed(args, 0)), Given(args, 1) ? args[1] : current);
         return {};
     }},
    {.name = "Find",
     .call = [](Recordset& set, Refs args) -> Variant {
         const Variant current(std::int32_t{adBookmarkCurrent});
         set.Find(basic::CStr(Needed(args, 0)), NumberOr(args, 1, 0),
                  static_cast<SearchDirectionEnum>(NumberOr(args, 2, adSearchForward)),
                  Given(args, 3) ? args[3] : current);
         return {};
     }},
    {.name = "AddNew", .call = [](Recordset& set, Refs) -> Variant { return set.AddNew(), Variant(); }},
    {.name = "Update", .call = [](Recordset& set, Refs) -> Variant { return set.Update(), Variant(); }},
    {.name = "CancelUpdate", .call = [](Recordset& set, Refs) -> Variant { return set.CancelUpdate(), Variant(); }},
    {.name = "Clone", .call = [](Recordset& set, Refs) -> Variant { return set.Clone().AsObject(); }},
    {.name = "GetRows", .call = [](Recordset& set, Refs args) { return ArrayOf(set.GetRows(NumberOr(args, 0, -1))); }},
};
constexpr MemberTable<Recordset> kRecordsetMembers{"Recordset", kRecordsetRows};

constexpr auto kConnectionString = [](Connection& connection, Args) -> Variant {
    return connection.ConnectionString();
};
constexpr auto kPutConnectionString = [](Connection& connection, const Variant& value, Args) {
    connection.SetConnectionString(basic::CStr(value));
};

constexpr Member<Connection> kConnectionRows[] = {
    {.name = "", .get = kConnectionString, .put = kPutConnectionString},
    {.name = "ConnectionString", .get = kConnectionString, .put = kPutConnectionString},
    {.name = "State", .get = [](Connection& connection, Args) -> Variant { return connection.State(); }},
    {.name = "CommandTimeout",
     .get = [](Connection& connection, Args) -> Variant { return connection.CommandTimeout(); },
     .put = [](Connection& connection, const Variant& value,
               Args) { connection.SetCommandTimeout(basic::CLng(value)); }},
    {.name = "CursorLocation",
     .get = [](Connection& connection, Args) -> Variant { return std::int32_t{connection.CursorLocation()}; },
     .put = [](Connection& connection, const Variant& value,
               Args) { connection.SetCursorLocation(static_cast<CursorLocationEnum>(basic::CLng(value))); }},
    {.name = "Open",
     .call = [](Connection& connection, Refs args) -> Variant {
         connection.Open(Given(args, 0) ? basic::CStr(args[0]) : std::string());
         return {};
     }},
    {.name = "Close", .call = [](Connection& connection, Refs) -> Variant { return connection.Close(), Variant(); }},
    {.name = "Execute",
     .call = [](Connection& connection, Refs args) -> Variant {
         std::int64_t affected = 0;
         const Recordset result =
             connection.Execute(basic::CStr(Needed(args, 0)), &affected, NumberOr(args, 2, adCmdUnspecified));
         if (args.size() > 1) args[1] = Count(affected); // the by-reference output
         return result.AsObject();
     }},
};
constexpr MemberTable<Connection> kConnectionMembers{"Connection", kConnectionRows};

} // namespace

basic::ObjectRef Field::AsObject() const
{
    return std::make_shared<HandleObject<Field>>(*this, "Field", kFieldMembers);
}

basic::ObjectRef Fields::AsObject() const
{
    return std::make_shared<HandleObject<Fields>>(*this, "Fields", kFieldsMembers);
}

basic::ObjectRef Recordset::AsObject() const
{
    return std::make_shared<HandleObject<Recordset>>(*this, "Recordset", kRecordsetMembers);
}

basic::ObjectRef Connection::AsObject() const
{
    return std::make_shared<HandleObject<Connection>>(*this, "Connection", kConnectionMembers);
}

Connection Connection::FromObject(const basic::ObjectRef& object)
{
    if (const auto* connection = dynamic_cast<HandleObject<Connection>*>(&basic::Deref(object)))
        return connection->Handle();
    basic::Raise(basic::kErrTypeMismatch);
}

} // namespace kvx::ado

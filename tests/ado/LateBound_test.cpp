#include "FakeDriver.h"

#include "basic/Convert.h"
#include "basic/Object.h"

#include <gtest/gtest.h>

#include <array>

namespace kvx::ado::testing {
namespace {

using basic::ObjectRef;
using basic::Variant;

class LateBound : public ::testing::Test {
protected:
    LateBound() { AddTrees(database); }

    ObjectRef Open(const char* text = kTrees)
    {
        std::array<Variant, 1> args{text};
        return connection.AsObject()->Call("Execute", args).ToObject();
    }

    FakeDatabase database;
    Connection connection = database.Connect();
};

Variant FieldValue(const ObjectRef& set, const Variant& which)
{
    const std::array<Variant, 1> args{which};
    return set->Get("Fields", args).ToObject()->Get("Value");
}

TEST_F(LateBound, ALoopReadsEveryRow)
{
    const ObjectRef set = Open();
    std::string seen;
    while (!basic::CBool(set->Get("EOF"))) {
        seen += TextOf(FieldValue(set, "name")) + " ";
        set->Call("MoveNext");
    }
    EXPECT_EQ(seen, "Eiche Fichte Kiefer ");
}

TEST_F(LateBound, ExecuteGivesRecordsAffectedByReference)
{
    std::array<Variant, 2> args{"DELETE FROM TREE", Variant()};
    const ObjectRef set = connection.AsObject()->Call("execute", args).ToObject();
    EXPECT_EQ(basic::CLng(args[1]), 3);
    EXPECT_EQ(basic::CLng(set->Get("State")), 0);
    EXPECT_EQ(ErrorOf([&] { set->Get("EOF"); }), 3704);
}

TEST_F(LateBound, DefaultPropertiesReachAValue)
{
    const ObjectRef set = Open();
    const std::array<Variant, 1> second{std::int32_t{1}};
    const Variant field = set->Get("", second);
    EXPECT_EQ(basic::CStr(field), "Eiche") << "an object in an expression stands for its default property";
}

TEST_F(LateBound, FieldsAndTheirDescriptions)
{
    const ObjectRef fields = Open()->Get("Fields").ToObject();
    EXPECT_EQ(basic::CLng(fields->Get("Count")), 3);
    const std::array<Variant, 1> second{std::int16_t{1}};
    const ObjectRef field = fields->Get("Item", second).ToObject();
    EXPECT_EQ(basic::CStr(field->Get("Name")), "NAME");
    EXPECT_EQ(basic::CLng(field->Get("Type")), adVarWChar);
    EXPECT_EQ(basic::CLng(field->Get("DefinedSize")), 10);
    const std::array<Variant, 1> property{"BASETABLENAME"};
    EXPECT_EQ(basic::CStr(field->Get("Properties", property)), "TREE");
    EXPECT_EQ(field->TypeName(), "Field");
}

TEST_F(LateBound, ARecordsetIsOpenedEditedAndSearched)
{
    Recordset set;
    const ObjectRef object = set.AsObject();
    std::array<Variant, 4> args{kTrees, connection.AsObject(), std::int32_t{adOpenStatic},
                                std::int32_t{adLockOptimistic}};
    object->Call("Open", args);
    EXPECT_EQ(basic::CLng(object->Get("RecordCount")), 3);
    std::array<Variant, 1> criteria{"ID = 2"};
    object->Call("Find", criteria);
    EXPECT_EQ(basic::CLng(object->Get("AbsolutePosition")), 2);
    const std::array<Variant, 1> name{"NAME"};
    object->Put("Fields", "Tanne", name);
    object->Call("Update");
    EXPECT_EQ(TextOf(set["NAME"].Value()), "Tanne") << "object and handle are one recordset";
    const Variant bookmark = object->Get("Bookmark");
    object->Call("MoveFirst");
    object->Put("Bookmark", bookmark);
    EXPECT_EQ(set["ID"].Int64(), 2);
    const ObjectRef clone = object->Call("Clone").ToObject();
    EXPECT_EQ(TextOf(FieldValue(clone, std::int32_t{1})), "Eiche");
    object->Call("Close");
    EXPECT_EQ(set.State(), adStateClosed);
}

TEST_F(LateBound, GetRowsIsAnArrayByFieldThenRow)
{
    const Variant rows = Open()->Call("GetRows");
    ASSERT_NE(rows.AsArray(), nullptr);
    ASSERT_EQ(rows.AsArray()->size(), 3u);
    const basic::VariantArray& names = *rows.AsArray()->at(1).AsArray();
    ASSERT_EQ(names.size(), 3u);
    EXPECT_EQ(TextOf(names[2]), "Kiefer");
}

TEST_F(LateBound, AConnectionOpensAndCloses)
{
    Connection fresh;
    const ObjectRef object = fresh.AsObject();
    object->Put("ConnectionString", "Provider=Fake;Password=x");
    object->Call("Open");
    EXPECT_EQ(basic::CLng(object->Get("State")), 1);
    EXPECT_EQ(basic::CStr(object->Get("ConnectionString")), "Provider=Fake");
    EXPECT_EQ(ErrorOf([&] { object->Put("ConnectionString", "x"); }), 3705);
    object->Call("Close");
    EXPECT_EQ(fresh.State(), adStateClosed);
}

TEST_F(LateBound, AnUnknownMemberIsError438AndAReadOnlyOne383)
{
    const ObjectRef set = Open();
    EXPECT_EQ(ErrorOf([&] { set->Get("Nope"); }), 438);
    EXPECT_EQ(ErrorOf([&] { set->Call("Nope"); }), 438);
    EXPECT_EQ(ErrorOf([&] { set->Put("EOF", true); }), 383);
}

TEST_F(LateBound, TheConnectionIsFoundBehindItsObject)
{
    EXPECT_TRUE(Connection::FromObject(connection.AsObject()) == connection);
    EXPECT_EQ(ErrorOf([&] { Connection::FromObject(nullptr); }), 91);
    EXPECT_EQ(ErrorOf([&] { Connection::FromObject(Recordset().AsObject()); }), 13);
}

} // namespace
} // namespace kvx::ado::testing

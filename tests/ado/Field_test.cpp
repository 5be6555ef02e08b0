#include "FakeDriver.h"

#include "basic/Convert.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kvx::ado::testing {
namespace {

using basic::VarType;

class FieldOf : public ::testing::Test {
protected:
    // Opens one row of one column.
    Field Open(ColumnInfo column, FakeValue value, LockTypeEnum lock = adLockReadOnly)
    {
        database.answers["SELECT X"] = {.columns = {std::move(column)}, .rows = {{std::move(value)}}};
        set = Recordset();
        set.Open("SELECT X", connection, adOpenStatic, lock);
        return set[0];
    }
    basic::Variant Read(DataTypeEnum type, FakeValue value, std::uint8_t scale = 255)
    {
        ColumnInfo column = Column("X", type);
        column.scale = scale;
        return Open(column, std::move(value)).Value();
    }
    // What an assignment leaves in the field; an error number instead when it fails.
    basic::Variant Assign(const ColumnInfo& column, const basic::Variant& value)
    {
        Field field = Open(column, Null(), adLockOptimistic);
        const std::int32_t error = ErrorOf([&] { field.SetValue(value); });
        return error != 0 ? basic::Variant(error) : field.Value();
    }
    std::int32_t AssignError(const ColumnInfo& column, const basic::Variant& value)
    {
        Field field = Open(column, Null(), adLockOptimistic);
        return ErrorOf([&] { field.SetValue(value); });
    }

    FakeDatabase database;
    Connection connection = database.Connect();
    Recordset set;
};

TEST_F(FieldOf, WholeNumbersComeInTheKindOfTheirType)
{
    EXPECT_EQ(*Read(adSmallInt, Int(-5)).As<std::int16_t>(), -5);
    EXPECT_EQ(*Read(adInteger, Int(70000)).As<std::int32_t>(), 70000);
    EXPECT_EQ(*Read(adUnsignedTinyInt, Int(200)).As<std::uint8_t>(), 200);
    const basic::Variant big = Read(adBigInt, Int(5'000'000'000));
    EXPECT_EQ(big.As<basic::Decimal>()->units, 5'000'000'000);
    EXPECT_EQ(big.As<basic::Decimal>()->scale, 0);
}

TEST_F(FieldOf, TruthIsBooleanAndAnyNonzeroIsTrue)
{
    EXPECT_TRUE(*Read(adBoolean, Int(1)).As<bool>());
    EXPECT_TRUE(*Read(adBoolean, Int(-1)).As<bool>());
    EXPECT_FALSE(*Read(adBoolean, Int(0)).As<bool>());
}

TEST_F(FieldOf, NumericIsAnExactDecimalOfItsScale)
{
    const basic::Variant value = Read(adNumeric, 12.35, 2);
    EXPECT_EQ(value.As<basic::Decimal>()->units, 1235);
    EXPECT_EQ(value.As<basic::Decimal>()->scale, 2);
    EXPECT_EQ(Read(adNumeric, Int(85), 2).As<basic::Decimal>()->units, 8500);
    EXPECT_EQ(Read(adNumeric, "0.1", 3).As<basic::Decimal>()->units, 100);
    EXPECT_EQ(Read(adNumeric, -2.675, 2).As<basic::Decimal>()->units, -268) << "half goes away from zero";
}

TEST_F(FieldOf, ANumericExpressionWithoutScaleKeepsItsDecimals)
{
    const basic::Variant value = Read(adNumeric, 1.5);
    EXPECT_EQ(value.As<basic::Decimal>()->units, 15);
    EXPECT_EQ(value.As<basic::Decimal>()->scale, 1);
}

TEST_F(FieldOf, FloatsAndMoney)
{
    EXPECT_EQ(*Read(adDouble, 0.1).As<double>(), 0.1);
    EXPECT_EQ(*Read(adDouble, Int(3)).As<double>(), 3.0);
    EXPECT_EQ(*Read(adSingle, 0.5).As<float>(), 0.5f);
    EXPECT_EQ(Read(adCurrency, 12.3456).As<basic::Currency>()->tenThousandths, 123456);
    EXPECT_EQ(Read(adCurrency, Int(7)).As<basic::Currency>()->tenThousandths, 70000);
}

TEST_F(FieldOf, DatesAreReadInEverySpelling)
{
    for (const char* text : {"2024-02-01", "2024-02-01 00:00:00", "2024-02-01T00:00", "01.02.2024", "1.2.2024",
                             "01.02.2024 00:00", "20240201", " 20240201 00:00:00 "}) {
        const basic::Variant value = Read(adDBTimeStamp, text);
        ASSERT_EQ(value.Type(), VarType::Date) << text;
        EXPECT_EQ(value.As<basic::Date>()->days, 45323) << text;
    }
    EXPECT_EQ(Read(adDBTimeStamp, Int(20240201)).As<basic::Date>()->days, 45323);
    EXPECT_NEAR(Read(adDBTimeStamp, "2024-02-01 18:00:00.000").As<basic::Date>()->days, 45323.75, 1e-9);
    EXPECT_NEAR(Read(adDBTime, "06:00:00").As<basic::Date>()->days, 0.25, 1e-9);
}

TEST_F(FieldOf, WhatIsNoDateComesAsItIsStored)
{
    EXPECT_EQ(TextOf(Read(adDBTimeStamp, "31.02.2024")), "31.02.2024");
    EXPECT_EQ(TextOf(Read(adDBTimeStamp, "bald")), "bald");
}

TEST_F(FieldOf, WhatDoesNotFitItsTypeComesAsItIsStored)
{
    EXPECT_EQ(TextOf(Read(adInteger, "abc")), "abc");
    EXPECT_EQ(Read(adSmallInt, Int(99999)).As<basic::Decimal>()->units, 99999);
    EXPECT_EQ(*Read(adInteger, 1.5).As<double>(), 1.5);
}

TEST_F(FieldOf, TextsComeAsTextsWhateverTheEngineKeeps)
{
    for (const DataTypeEnum type : {adChar, adWChar, adVarChar, adLongVarChar, adVarWChar, adLongVarWChar})
        EXPECT_EQ(TextOf(Read(type, "Bäume")), "Bäume");
    EXPECT_EQ(TextOf(Read(adVarWChar, Int(4711))), "4711");
    EXPECT_EQ(TextOf(Read(adVarWChar, 1.5)), "1.5");
}

TEST_F(FieldOf, NullIsNullInEveryType)
{
    for (const DataTypeEnum type : {adInteger, adBoolean, adNumeric, adDBTimeStamp, adVarWChar, adCurrency})
        EXPECT_TRUE(Read(type, Null()).IsNull()) << type;
    EXPECT_EQ(ErrorOf([&] { basic::CStr(Read(adVarWChar, Null())); }), basic::kErrInvalidNull);
    EXPECT_EQ(basic::ToText(Read(adVarWChar, Null())), "");
}

TEST_F(FieldOf, ADecimalAsTextDropsTrailingZeros)
{
    EXPECT_EQ(basic::Str(Read(adNumeric, 12.5, 2)), " 12.5");
    EXPECT_EQ(basic::Str(Read(adNumeric, Int(12), 2)), " 12");
}

TEST_F(FieldOf, ViewsReadWithoutVariants)
{
    const Field text = Open(Column("X", adVarWChar), " 12.5 x");
    EXPECT_EQ(text.TextView(), " 12.5 x");
    EXPECT_EQ(text.Int64(), 12);
    EXPECT_EQ(text.Double(), 12.5);
    EXPECT_FALSE(text.IsNull());
    const Field real = Open(Column("X", adDouble), -2.75);
    EXPECT_EQ(real.TextView(), "-2.75");
    EXPECT_EQ(real.Int64(), -2);
    const Field null = Open(Column("X", adDouble), Null());
    EXPECT_TRUE(null.IsNull());
    EXPECT_EQ(null.TextView(), "");
    EXPECT_EQ(null.Int64(), 0);
    EXPECT_EQ(null.Double(), 0);
}

TEST_F(FieldOf, PropertiesTellTheRealNamesAndNullForComputed)
{
    ColumnInfo column = Column("NUMBER", adInteger);
    column.name = "X";
    const Field field = Open(column, Int(1));
    EXPECT_EQ(field.Name(), "X");
    EXPECT_EQ(TextOf(field.Properties("BaseTableName")), "TREE");
    EXPECT_EQ(TextOf(field.Properties("BASECOLUMNNAME")), "NUMBER");
    EXPECT_EQ(ErrorOf([&] { field.Properties("NOPE"); }), 3265);
    column.baseTable.reset();
    column.baseColumn.reset();
    const Field computed = Open(column, Int(1));
    EXPECT_TRUE(computed.Properties("BASETABLENAME").IsNull());
    EXPECT_TRUE(computed.Properties("BASECOLUMNNAME").IsNull());
}

TEST_F(FieldOf, DescriptionsComeFromTheDriver)
{
    ColumnInfo column = Column("X", adNumeric, 19);
    column.precision = 8;
    column.scale = 2;
    const Field field = Open(column, Int(1));
    EXPECT_EQ(field.Type(), adNumeric);
    EXPECT_EQ(field.DefinedSize(), 19);
    EXPECT_EQ(field.Precision(), 8);
    EXPECT_EQ(field.NumericScale(), 2);
}

TEST_F(FieldOf, FieldsAreFoundByNameAndIndex)
{
    AddTrees(database);
    const Recordset trees = OpenTrees(connection);
    EXPECT_EQ(trees["name"].Name(), "NAME");
    EXPECT_EQ(trees[2].Name(), "HEIGHT");
    EXPECT_EQ(trees.Fields().Item("Height").Name(), "HEIGHT");
    EXPECT_EQ(trees.Fields().Item(std::int16_t{0}).Name(), "ID");
    EXPECT_EQ(trees.Fields().Count(), 3);
    EXPECT_TRUE(trees.Fields().Has("id"));
    EXPECT_FALSE(trees.Fields().Has("NOPE"));
    EXPECT_EQ(ErrorOf([&] { trees["NOPE"]; }), 3265);
    EXPECT_EQ(ErrorOf([&] { trees[3]; }), 3265);
    EXPECT_EQ(ErrorOf([&] { trees[-1]; }), 3265);
    EXPECT_EQ(ErrorOf([&] { trees[""]; }), 3265);
}

TEST_F(FieldOf, OfTwoColumnsOfOneNameTheFirstIsFound)
{
    database.answers["SELECT A, A"] = {.columns = {Column("A", adInteger), Column("A", adInteger)},
                                       .rows = {{Int(1), Int(2)}}};
    EXPECT_EQ(connection.Execute("SELECT A, A")["A"].Int64(), 1);
}

TEST_F(FieldOf, AFieldTakenOnceFollowsTheRows)
{
    AddTrees(database);
    Recordset trees = connection.Execute(kTrees);
    const Field name = trees["NAME"];
    std::string seen;
    for (; !trees.Eof(); trees.MoveNext())
        seen += std::string(name.TextView()) + " ";
    EXPECT_EQ(seen, "Eiche Fichte Kiefer ");
}

TEST_F(FieldOf, AssignedValuesTakeTheKindOfTheColumn)
{
    EXPECT_EQ(*Assign(Column("X", adInteger), "12").As<std::int32_t>(), 12);
    EXPECT_EQ(*Assign(Column("X", adSmallInt), 3.0).As<std::int16_t>(), 3);
    EXPECT_TRUE(*Assign(Column("X", adBoolean), std::int32_t{-1}).As<bool>());
    EXPECT_TRUE(*Assign(Column("X", adBoolean), "Wahr").As<bool>());
    EXPECT_EQ(*Assign(Column("X", adDouble), true).As<double>(), -1);
    EXPECT_EQ(TextOf(Assign(Column("X", adVarWChar, 5), std::int32_t{12})), "12");
    EXPECT_EQ(Assign(Column("X", adCurrency), "1.25").As<basic::Currency>()->tenThousandths, 12500);
    EXPECT_EQ(Assign(Column("X", adDBTimeStamp), "01.02.2024").As<basic::Date>()->days, 45323);
    EXPECT_EQ(Assign(Column("X", adDBTimeStamp), basic::Date{45323}).As<basic::Date>()->days, 45323);
}

TEST_F(FieldOf, ANumberInTextIsReadWithADecimalPoint)
{
    ColumnInfo column = Column("X", adNumeric, 19);
    column.precision = 8;
    column.scale = 2;
    EXPECT_EQ(Assign(column, "12.5").As<basic::Decimal>()->units, 1250);
    EXPECT_EQ(AssignError(column, "12,5"), 3421);
}

TEST_F(FieldOf, NumericRoundsToItsScale)
{
    ColumnInfo column = Column("X", adNumeric, 19);
    column.precision = 8;
    column.scale = 2;
    EXPECT_EQ(Assign(column, 2.55555).As<basic::Decimal>()->units, 256);
    EXPECT_EQ(Assign(column, 2.675).As<basic::Decimal>()->units, 268) << "by its decimal digits";
    EXPECT_EQ(Assign(column, "-2.675").As<basic::Decimal>()->units, -268);
    EXPECT_EQ(Assign(column, 0.1f).As<basic::Decimal>()->units, 10);
    EXPECT_EQ(AssignError(column, std::int32_t{1000000}), kErrMultiStep);
    EXPECT_EQ(AssignError(column, 1e30), kErrMultiStep);
}

TEST_F(FieldOf, AValueOfAWrongKindIsError3421)
{
    EXPECT_EQ(AssignError(Column("X", adInteger), "abc"), 3421);
    EXPECT_EQ(AssignError(Column("X", adInteger), ""), 3421);
    EXPECT_EQ(AssignError(Column("X", adDBTimeStamp), ""), 3421);
    EXPECT_EQ(AssignError(Column("X", adDBTimeStamp), "31.02.2024"), 3421);
    EXPECT_EQ(AssignError(Column("X", adBoolean), "vielleicht"), 3421);
    EXPECT_EQ(AssignError(Column("X", adInteger), basic::Variant()), 3421);
    EXPECT_EQ(set.EditMode(), adEditNone) << "a refused value starts no edit";
}

TEST_F(FieldOf, AValueThatIsTooLongOrTooLargeIsAMultiStepError)
{
    EXPECT_EQ(AssignError(Column("X", adVarWChar, 5), "Bäume"), 0) << "characters count, not bytes";
    EXPECT_EQ(AssignError(Column("X", adVarWChar, 5), "Bäumen"), kErrMultiStep);
    EXPECT_EQ(AssignError(Column("X", adSmallInt), std::int32_t{99999}), kErrMultiStep);
    EXPECT_EQ(AssignError(Column("X", adUnsignedTinyInt), std::int32_t{-1}), kErrMultiStep);
    EXPECT_EQ(AssignError(Column("X", adInteger), std::nan("")), kErrMultiStep);
}

TEST_F(FieldOf, NullGoesIntoNullableColumnsOnly)
{
    ColumnInfo column = Column("X", adInteger);
    EXPECT_TRUE(Assign(column, basic::Null{}).IsNull());
    column.nullable = false;
    EXPECT_EQ(AssignError(column, basic::Null{}), kErrMultiStep);
}

} // namespace
} // namespace kvx::ado::testing

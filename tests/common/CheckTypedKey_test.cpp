#include "common/CommonTest.h"
#include "common/M_Common.h"

#include <ostream>

namespace kvx::test {

namespace {
constexpr const char* kSelect = "SELECT TOP 0 PREIS FROM SORTEN";
}

class CheckTypedKeyTest : public CommonTest {
protected:
    void ColumnIs(ado::DataTypeEnum type)
    {
        database.answers[kSelect] = {.columns = {ado::testing::Column("PREIS", type)}};
    }
    /// What becomes of a key typed behind a text.
    std::int32_t Typed(const std::string& text, std::int32_t key)
    {
        std::int32_t result = -1;
        OnForm([&](SmallForm& form) {
            form.Text1.SetText(text);
            result = CheckTypedKey(key, "SORTEN", "PREIS", kvxvar);
        });
        return result;
    }
};

struct TypedCase {
    ado::DataTypeEnum type;
    const char* text;
    char key;
    bool passes;
};
void PrintTo(const TypedCase& typed, std::ostream* stream)
{
    *stream << "type " << typed.type << " '" << typed.text << "' + '" << typed.key << "'";
}

class CheckTypedKeyByType : public CheckTypedKeyTest, public testing::WithParamInterface<TypedCase> {};

TEST_P(CheckTypedKeyByType, LetsThroughWhatFitsTheColumn)
{
    const TypedCase& typed = GetParam();
    ColumnIs(typed.type);
    EXPECT_EQ(Typed(typed.text, typed.key), typed.passes ? typed.key : 0);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(SmallInt, CheckTypedKeyByType, testing::Values(
    TypedCase{ado::adSmallInt, "3276", '7', true},  TypedCase{ado::adSmallInt, "3276", '8', false},
    TypedCase{ado::adSmallInt, "-3276", '8', true}, TypedCase{ado::adSmallInt, "-3276", '9', false},
    TypedCase{ado::adSmallInt, "", '7', true},      TypedCase{ado::adSmallInt, "", 'x', false},
    TypedCase{ado::adSmallInt, "12", '-', false},   TypedCase{ado::adSmallInt, "12", '+', false}));
INSTANTIATE_TEST_SUITE_P(Integer, CheckTypedKeyByType, testing::Values(
    TypedCase{ado::adInteger, "214748364", '7', true},  TypedCase{ado::adInteger, "214748364", '8', false},
    TypedCase{ado::adInteger, "-214748364", '8', true}, TypedCase{ado::adInteger, "-214748364", '9', false},
    TypedCase{ado::adInteger, "1.23", '4', true},       TypedCase{ado::adInteger, "12", '-', false},
    TypedCase{ado::adInteger, "-", '-', false},         TypedCase{ado::adInteger, "1", 'x', false}));
INSTANTIATE_TEST_SUITE_P(Single, CheckTypedKeyByType, testing::Values(
    TypedCase{ado::adSingle, "12", ',', true},   TypedCase{ado::adSingle, "12,", '5', true},
    TypedCase{ado::adSingle, "12,5", ',', false}, TypedCase{ado::adSingle, "12", '-', false}));
INSTANTIATE_TEST_SUITE_P(Double, CheckTypedKeyByType, testing::Values(
    TypedCase{ado::adDouble, "99999999999", '9', true}, TypedCase{ado::adDouble, "12,", '5', true},
    TypedCase{ado::adDouble, "12,5", ',', false},       TypedCase{ado::adDouble, "12", '-', false},
    TypedCase{ado::adDouble, "12", 'a', false}));
INSTANTIATE_TEST_SUITE_P(Numeric, CheckTypedKeyByType, testing::Values(
    TypedCase{ado::adNumeric, "12,", '5', true},  TypedCase{ado::adNumeric, "1.234,", '5', true},
    TypedCase{ado::adNumeric, "12,5", ',', false}, TypedCase{ado::adNumeric, "12", '-', false}));
INSTANTIATE_TEST_SUITE_P(Boolean, CheckTypedKeyByType, testing::Values(
    TypedCase{ado::adBoolean, "", '1', true},      TypedCase{ado::adBoolean, "", '0', true},
    TypedCase{ado::adBoolean, "Wah", 'r', true},   TypedCase{ado::adBoolean, "", 'x', false}));
INSTANTIATE_TEST_SUITE_P(TinyInt, CheckTypedKeyByType, testing::Values(
    TypedCase{ado::adUnsignedTinyInt, "25", '5', true}, TypedCase{ado::adUnsignedTinyInt, "25", '6', false},
    TypedCase{ado::adUnsignedTinyInt, "-", '1', false}, TypedCase{ado::adUnsignedTinyInt, "2", '-', false}));
INSTANTIATE_TEST_SUITE_P(OtherTypes, CheckTypedKeyByType, testing::Values(
    TypedCase{ado::adVarWChar, "12", '-', true}, TypedCase{ado::adVarChar, "x", 'y', true},
    TypedCase{ado::adDate, "31.", 'x', true},    TypedCase{ado::adDBTimeStamp, "1", 'x', true},
    TypedCase{ado::adCurrency, "1", 'x', true},  TypedCase{ado::adDecimal, "1", 'x', true},
    TypedCase{ado::adBigInt, "1", 'x', true}));
// clang-format on

TEST_F(CheckTypedKeyTest, AsksForNoRowsOfTheColumn)
{
    ColumnIs(ado::adInteger);
    Typed("1", '2');
    EXPECT_EQ(database.texts, (Texts{"SELECT TOP 0 PREIS FROM SORTEN"}));
}

TEST_F(CheckTypedKeyTest, AsksOracleInItsOwnWords)
{
    kvxvar.bOracle = -1;
    database.answers["SELECT PREIS FROM SORTEN WHERE 1=2"] = {
        .columns = {ado::testing::Column("PREIS", ado::adInteger)}};
    EXPECT_EQ(Typed("1", '2'), '2');
    EXPECT_EQ(database.texts, (Texts{"SELECT PREIS FROM SORTEN WHERE 1=2"}));
}

TEST_F(CheckTypedKeyTest, AsksAtEveryKey)
{
    ColumnIs(ado::adInteger);
    Typed("1", '2');
    Typed("12", '3');
    EXPECT_EQ(database.texts.size(), 2U);
}

TEST_F(CheckTypedKeyTest, LeavesNoRecordsetOpen)
{
    ColumnIs(ado::adInteger);
    Typed("1", '2');
    Typed("1", 'x');
    EXPECT_EQ(database.liveStatements, 0);
}

TEST_F(CheckTypedKeyTest, AMinusAtTheStartPassesUnasked)
{
    EXPECT_EQ(Typed("", '-'), '-');
    EXPECT_EQ(database.texts, Texts{});
}

TEST_F(CheckTypedKeyTest, ThousandsSeparatorsDoNotCount)
{
    EXPECT_EQ(Typed(".", '-'), '-');
    EXPECT_EQ(database.texts, Texts{});
}

TEST_F(CheckTypedKeyTest, BackspacePassesUnasked)
{
    EXPECT_EQ(Typed("12", ui::vbKeyBack), ui::vbKeyBack);
    EXPECT_EQ(database.texts, Texts{});
}

TEST_F(CheckTypedKeyTest, EnterIsCheckedLikeAnyKey)
{
    ColumnIs(ado::adInteger);
    Typed("12", ui::vbKeyReturn);
    EXPECT_EQ(database.texts.size(), 1U);
}

TEST_F(CheckTypedKeyTest, ADroppedKeyAddsNothing)
{
    ColumnIs(ado::adInteger);
    EXPECT_EQ(Typed("", 0), 0);
    EXPECT_EQ(database.texts, (Texts{kSelect}));
}

TEST_F(CheckTypedKeyTest, ReadsTheControlThatHasTheFocus)
{
    ColumnIs(ado::adSmallInt);
    OnForm([this](SmallForm& form) {
        form.Text1.SetText("1");
        form.Combo1.SetText("3276");
        form.Combo1.SetFocus();
        EXPECT_EQ(CheckTypedKey('8', "SORTEN", "PREIS", kvxvar), 0);
        form.Text1.SetFocus();
        EXPECT_EQ(CheckTypedKey('8', "SORTEN", "PREIS", kvxvar), '8');
    });
}

TEST_F(CheckTypedKeyTest, AControlWithoutATextIsAnError)
{
    OnForm([this](SmallForm& form) {
        form.Command1.SetFocus();
        EXPECT_EQ(ErrorOf([this] { CheckTypedKey('8', "SORTEN", "PREIS", kvxvar); }), basic::kErrMemberNotFound);
    });
}

TEST_F(CheckTypedKeyTest, AColumnThatCannotBeReadIsAnErrorAndNoDroppedKey)
{
    database.answers[kSelect] = {.error = basic::Error(ado::kErrNoSuchTable, "no such table")};
    EXPECT_EQ(ErrorOf([this] { Typed("1", '2'); }), ado::kErrNoSuchTable);
    desktop.Finish();
}

}  // namespace kvx::test

#include "korvex_loc/Loc.h"

#include "korvex_loc/LocTest.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"

namespace kvx::loc {

namespace {

class LocTextTest : public LocTest {
protected:
    Loc loc;
};

// A form of the library's name with some of its controls.
class AboutForm final : public ui::Form {
public:
    AboutForm() : Form("F_About") {}
    ui::Label lblDescription{*this, "lblDescription"}, lblOther{*this, "lblOther"};
    ui::Button cmdOK{*this, "cmdOK"};

private:
    void Design() override
    {
        SetCaption("Form1");
        lblOther.SetCaption("Label1");
    }
};

}  // namespace

TEST_F(LocTextTest, TextsComeInTheLanguageOfTheSession)
{
    EXPECT_EQ(loc.GetText(388, kvxvar), "Waldort");
    kvxvar.strLanguage = "ENGLISH";
    EXPECT_EQ(loc.GetText(388, kvxvar), "Stand");
}

TEST_F(LocTextTest, AnotherLanguageReadsEnglish)
{
    kvxvar.strLanguage = "FRANCAIS";
    EXPECT_EQ(loc.GetText(388, kvxvar), "Stand");
}

TEST_F(LocTextTest, TheCustomersWordingGoesFirst)
{
    CreateTables({"STRINGS"});
    Execute("INSERT INTO STRINGS (ID_STRING,DEUTSCH,CUSTOM_DEUTSCH) VALUES (388,'Waldort','Forstort')");
    EXPECT_EQ(loc.GetText(388, kvxvar), "Forstort");
}

TEST_F(LocTextTest, TheColumnOfTheLanguageAloneDoesNotCount)
{
    CreateTables({"STRINGS"});
    Execute("INSERT INTO STRINGS (ID_STRING,DEUTSCH) VALUES (388,'Freier Text')");
    EXPECT_EQ(loc.GetText(388, kvxvar), "Waldort");
}

TEST_F(LocTextTest, AnEmptyOrBlankWordingOfTheCustomerIsNone)
{
    CreateTables({"STRINGS"});
    Execute("INSERT INTO STRINGS (ID_STRING,CUSTOM_DEUTSCH) VALUES (388,'')");
    Execute("INSERT INTO STRINGS (ID_STRING,CUSTOM_DEUTSCH) VALUES (726,' ')");
    EXPECT_EQ(loc.GetText(388, kvxvar), "Waldort");
    EXPECT_EQ(loc.GetText(726, kvxvar), "Holzliste");
}

TEST_F(LocTextTest, AllTextsOfADialogCostOneStatement)
{
    CreateTables({"STRINGS"});
    for (const std::int32_t id : {1, 95, 96, 388, 726})
        loc.GetText(id, kvxvar);
    EXPECT_EQ(Statements(), Texts{"SELECT ID_STRING,CUSTOM_DEUTSCH FROM STRINGS WHERE CUSTOM_DEUTSCH IS NOT NULL"});
}

TEST_F(LocTextTest, ANewObjectSeesANewWording)
{
    CreateTables({"STRINGS"});
    EXPECT_EQ(loc.GetText(388, kvxvar), "Waldort");
    Execute("INSERT INTO STRINGS (ID_STRING,CUSTOM_DEUTSCH) VALUES (388,'Forstort')");
    EXPECT_EQ(Loc().GetText(388, kvxvar), "Forstort");
}

TEST_F(LocTextTest, ADatabaseWithoutTheTableLeavesTheCatalogue)
{
    EXPECT_EQ(loc.GetText(388, kvxvar), "Waldort");
}

TEST_F(LocTextTest, ATableWithoutTheLanguageLeavesTheCatalogue)
{
    CreateTables({"STRINGS"});
    kvxvar.strLanguage = "FRANCAIS";
    EXPECT_EQ(loc.GetText(388, kvxvar), "Stand");
}

TEST_F(LocTextTest, ALanguageThatIsNoNameReachesNoStatement)
{
    kvxvar.strLanguage = "x FROM y --";
    EXPECT_EQ(loc.GetText(388, kvxvar), "Stand");
    EXPECT_EQ(Statements(), Texts{});
}

TEST_F(LocTextTest, AClosedConnectionIsAnError)
{
    kvxvar.dbAdo.Close();
    EXPECT_EQ(ErrorOf([&] { loc.GetText(388, kvxvar); }), ado::kErrConnectionInvalid);
}

TEST_F(LocTextTest, AnUnknownIdIsNamed)
{
    try {
        loc.GetText(999999, kvxvar);
        FAIL() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, basic::kErrInvalidCall);
        EXPECT_EQ(error.Description, "Korvex_Loc has no text 999999");
    }
}

TEST_F(LocTextTest, AFormGetsItsCaptionsInTheLanguageOfTheSession)
{
    AboutForm form;
    form.Load();
    kvxvar.strLanguage = "ENGLISH";
    loc.LocalizeForm(kvxvar, form);
    EXPECT_EQ(form.Caption(), "About Korvex");
    EXPECT_EQ(form.lblDescription.Caption(), "Forms and master data of forest management");
    EXPECT_EQ(form.cmdOK.Caption(), "&OK");
}

TEST_F(LocTextTest, AControlWithoutARowKeepsItsCaption)
{
    AboutForm form;
    form.Load();
    loc.LocalizeForm(kvxvar, form);
    EXPECT_EQ(form.lblOther.Caption(), "Label1");
}

TEST_F(LocTextTest, LocalisingAFormAsksNoDatabase)
{
    AboutForm form;
    form.Load();
    loc.LocalizeForm(kvxvar, form);
    EXPECT_EQ(Statements(), Texts{});
}

TEST_F(LocTextTest, AProcedureRunsOnTheSessionsConnection)
{
    CreateTables({"WALDORT"});
    Execute("CREATE PROCEDURE kvx_WALDORT_INS AS\nSET NOCOUNT ON\nINSERT INTO WALDORT DEFAULT VALUES\n"
            "SELECT CAST(SCOPE_IDENTITY() AS int) AS ID_WALDORT");
    ado::Command command;
    const ado::Recordset rows = loc.RunProcedure(kvxvar, "kvx_WALDORT_INS", command);
    EXPECT_EQ(basic::CLng(rows[0].Value()), 1);
    EXPECT_EQ(command.CommandType, ado::adCmdStoredProc);
    EXPECT_TRUE(command.ActiveConnection == kvxvar.dbAdo);
}

}  // namespace kvx::loc

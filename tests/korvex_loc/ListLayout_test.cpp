#include "korvex_loc/ListLayout.h"

#include "korvex_loc/LocTest.h"
#include "ui/Button.h"
#include "ui/DataControl.h"
#include "ui/DataGrid.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/ListView.h"

namespace kvx::loc {

namespace {

class LayoutForm final : public ui::Form {
public:
    LayoutForm() : Form("F_Layout") { Load(); }
    ui::ListView ListView1{*this, "ListView1"};
    ui::FlexGrid MSFG{*this, "MSFG"};
    ui::Button btnOK{*this, "btnOK"};

private:
    void Design() override {}
};

class ListLayoutTest : public LocTest {
protected:
    ListLayoutTest()
    {
        CreateTables({"LAYOUTS"});
        form.ListView1.ColumnHeaders().Add("C001HA", "Holzart", 700);
        form.ListView1.ColumnHeaders().Add("", "Menge; fm", 800);
    }
    LayoutForm form;
    ListLayout layout;
};

}  // namespace

TEST_F(ListLayoutTest, ASavedLayoutComesBack)
{
    layout.SaveLayout(kvxvar, "F_MV", form.ListView1);
    for (std::int32_t i = 1; i <= 2; ++i)
        form.ListView1.ColumnHeaders()[i].SetWidth(100);
    layout.LoadLayout(kvxvar, "F_MV", form.ListView1);
    EXPECT_EQ(form.ListView1.ColumnHeaders()[1].Width(), 700);
    EXPECT_EQ(form.ListView1.ColumnHeaders()[2].Width(), 800);
}

TEST_F(ListLayoutTest, ASecondSaveChangesTheFirst)
{
    layout.SaveLayout(kvxvar, "F_MV", form.ListView1);
    form.ListView1.ColumnHeaders()[1].SetWidth(900);
    layout.SaveLayout(kvxvar, "F_MV", form.ListView1);
    EXPECT_EQ(Value("SELECT COUNT(*) FROM LAYOUTS"), "1");
    EXPECT_EQ(Value("SELECT COLUMN_TEXT FROM LAYOUTS"), "900=C001HA;800=Menge, fm");
}

TEST_F(ListLayoutTest, UsersLayoutsAndControlsAreKeptApart)
{
    layout.SaveLayout(kvxvar, "F_MV", form.ListView1);
    form.ListView1.ColumnHeaders()[1].SetWidth(100);
    kvxvar.ID_USER = 6;
    layout.LoadLayout(kvxvar, "F_MV", form.ListView1);
    EXPECT_EQ(form.ListView1.ColumnHeaders()[1].Width(), 100);
    kvxvar.ID_USER = 5;
    layout.LoadLayout(kvxvar, "F_OTHER", form.ListView1);
    EXPECT_EQ(form.ListView1.ColumnHeaders()[1].Width(), 100);
}

TEST_F(ListLayoutTest, AColumnThatMovedOrIsNewIsKnownByItsKey)
{
    Execute(
        "INSERT INTO LAYOUTS (ID_USER,NAME,CONTROL,COLUMN_TEXT) VALUES (5,'F_MV','ListView1','300=Alt;555=C001HA')");
    layout.LoadLayout(kvxvar, "F_MV", form.ListView1);
    EXPECT_EQ(form.ListView1.ColumnHeaders()[1].Width(), 555);
    EXPECT_EQ(form.ListView1.ColumnHeaders()[2].Width(), 800);
}

TEST_F(ListLayoutTest, AStoredTextThatIsNoLayoutChangesNothing)
{
    Execute("INSERT INTO LAYOUTS (ID_USER,NAME,CONTROL,COLUMN_TEXT)"
            " VALUES (5,'F_MV','ListView1','x;=;-5=C001HA;999999999=C001HA')");
    layout.LoadLayout(kvxvar, "F_MV", form.ListView1);
    EXPECT_EQ(form.ListView1.ColumnHeaders()[1].Width(), 700);
}

TEST_F(ListLayoutTest, AFlexGridKnowsItsColumnsByNumber)
{
    form.MSFG.SetColWidth(1, 1234);
    layout.SaveLayout(kvxvar, "F_FlexGrid_WVO_K_BEL", form.MSFG);
    form.MSFG.SetColWidth(1, 100);
    layout.LoadLayout(kvxvar, "F_FlexGrid_WVO_K_BEL", form.MSFG);
    EXPECT_EQ(form.MSFG.ColWidth(1), 1234);
}

TEST_F(ListLayoutTest, AControlWithoutColumnsIsAnError)
{
    EXPECT_EQ(ErrorOf([&] { layout.SaveLayout(kvxvar, "F_MV", form.btnOK); }), basic::kErrTypeMismatch);
}

TEST_F(ListLayoutTest, TheStatementsNameUserLayoutAndControl)
{
    layout.LoadLayout(kvxvar, "F_MV", form.ListView1);
    layout.SaveLayout(kvxvar, "F_MV", form.ListView1);
    EXPECT_EQ(Statements(),
              (Texts{"SELECT COLUMN_TEXT FROM LAYOUTS WHERE ID_USER = 5 AND NAME = 'F_MV' AND CONTROL = 'ListView1'",
                     "UPDATE LAYOUTS SET COLUMN_TEXT = '700=C001HA;800=Menge, fm' WHERE ID_USER = 5 AND NAME = 'F_MV'"
                     " AND CONTROL = 'ListView1'",
                     "INSERT INTO LAYOUTS (ID_USER,NAME,CONTROL,COLUMN_TEXT)"
                     " VALUES (5,'F_MV','ListView1','700=C001HA;800=Menge, fm')"}));
}

}  // namespace kvx::loc

#include "korvex_loc/Access.h"

#include "korvex_loc/DBWriter.h"
#include "korvex_loc/LocTest.h"

namespace kvx::loc {

namespace {

class AccessTest : public LocTest {
protected:
    AccessTest()
    {
        CreateTables({"BB_STRUKTUREN", "ACCESS_LEVELS", "USERS", "RIGHTS", "MODELS"});
        Execute("INSERT INTO ACCESS_LEVELS (ID,NAME,ACCESS_LEVELS) VALUES (1,'Land','0000')");
        Execute("INSERT INTO ACCESS_LEVELS (ID,NAME,ACCESS_LEVELS) VALUES (2,'Amt Nord','0100')");
        Execute("INSERT INTO ACCESS_LEVELS (ID,NAME,ACCESS_LEVELS) VALUES (3,'Revier Heide','0101')");
        Execute("INSERT INTO ACCESS_LEVELS (ID,NAME,ACCESS_LEVELS) VALUES (4,'Revier Moor','0102')");
        Execute("INSERT INTO ACCESS_LEVELS (ID,NAME,ACCESS_LEVELS) VALUES (5,'Amt Ost','0200')");
        Execute("INSERT INTO ACCESS_LEVELS (ID,NAME) VALUES (6,'Ohne Code')");
    }
    std::string ModelsSeen(std::int32_t level)
    {
        const std::string where = access.AccessWhere("MODELS", "", kvxvar, level);
        std::string names;
        ado::Recordset rows = kvxvar.dbAdo.Execute("SELECT NAME FROM MODELS WHERE " + where + " ORDER BY NAME");
        for (; !rows.Eof(); rows.MoveNext())
            names += rows[0].TextView();
        return names;
    }
    Access access;
    DBWriter writer;
};

}  // namespace

TEST_F(AccessTest, ALevelWhoseCodeEndsInZerosHasTheOthersUnderIt)
{
    EXPECT_EQ(LevelsUnder(kvxvar, 2), (std::vector<std::int32_t>{2, 3, 4}));
    EXPECT_EQ(LevelsUnder(kvxvar, 3), (std::vector<std::int32_t>{3}));
}

TEST_F(AccessTest, ALevelOfZerosAloneStandsAboveAllThatHaveACode)
{
    EXPECT_EQ(LevelsUnder(kvxvar, 1), (std::vector<std::int32_t>{1, 2, 3, 4, 5}));
}

TEST_F(AccessTest, ALevelLiesUnderThoseWhoseCodeItContinues)
{
    EXPECT_EQ(LevelsAbove(kvxvar, 4), (std::vector<std::int32_t>{4, 1, 2}));
}

TEST_F(AccessTest, ALevelWithoutACodeOrThatDoesNotExistStandsAlone)
{
    EXPECT_EQ(LevelsUnder(kvxvar, 6), (std::vector<std::int32_t>{6}));
    EXPECT_EQ(LevelsUnder(kvxvar, 99), (std::vector<std::int32_t>{99}));
}

TEST_F(AccessTest, ALevelListNamesTheLevelAndThoseUnderIt)
{
    EXPECT_EQ(writer.AccessLevelList(kvxvar, "2", 0, "False"), "IN (2,3,4)");
    EXPECT_EQ(Statements(), Texts{"SELECT ID,ACCESS_LEVELS FROM ACCESS_LEVELS ORDER BY ID"});
}

TEST_F(AccessTest, TheListOfNoLevelAsksForRowsWithoutOne)
{
    EXPECT_EQ(writer.AccessLevelList(kvxvar, "0", 0, "False"), "IS NULL");
    EXPECT_EQ(writer.AccessLevelList(kvxvar, "", 0, "False"), "IS NULL");
    EXPECT_EQ(Statements(), Texts{});
}

TEST_F(AccessTest, RowsAreSeenWithoutALevelWithTheOwnAndWithOneUnderIt)
{
    EXPECT_EQ(access.AccessWhere("BB_T_OBJEKTE", "", kvxvar, 2),
              "(BB_T_OBJEKTE.ID_ACCESS_LEVELS IS NULL OR BB_T_OBJEKTE.ID_ACCESS_LEVELS IN (2,3,4))");
}

TEST_F(AccessTest, AUserWithoutALevelSeesRowsWithoutOne)
{
    EXPECT_EQ(access.AccessWhere("BB_T_AUFTRAGS_PLANUNG", "", kvxvar, 0),
              "BB_T_AUFTRAGS_PLANUNG.ID_ACCESS_LEVELS IS NULL");
}

TEST_F(AccessTest, TheConditionComesBehindTheCallersOwn)
{
    EXPECT_EQ(access.AccessWhere("BB_T_OBJEKTE", "ISNULL(BB_T_OBJEKTGRUPPE.MBF,0)=1", kvxvar, 0),
              "ISNULL(BB_T_OBJEKTGRUPPE.MBF,0)=1 AND BB_T_OBJEKTE.ID_ACCESS_LEVELS IS NULL");
}

TEST_F(AccessTest, ModelsAreSeenByMakerByLevelAndWhenTheyBelongToAll)
{
    const auto model = [this](std::string_view values) {
        Execute("INSERT INTO MODELS (NAME,ID_USER,NICHT_ANDERBAR,ID_ACCESS_LEVELS) VALUES (" + std::string(values) +
                ")");
    };
    model("'a',5,NULL,NULL");     // own
    model("'b',9,NULL,NULL");     // another user's
    model("'c',9,NULL,3");        // published to the level
    model("'d',9,NULL,2");        // published to the level above
    model("'e',9,NULL,4");        // published beside
    model("'f',9,1,NULL");        // locked for all
    model("'g',NULL,NULL,NULL");  // nobody's
    model("'h',NULL,1,4");        // locked, published beside
    model("'i',5,NULL,4");        // own, published beside
    EXPECT_EQ(ModelsSeen(3), "acdfgi");
    EXPECT_EQ(ModelsSeen(0), "afgi");
}

TEST_F(AccessTest, ARightIsHeldWhenTheUserHasItsCode)
{
    Execute("INSERT INTO USERS (ID_USER,NAME) VALUES (5,'meier')");
    Execute("INSERT INTO RIGHTS (ID_USER,CODE) VALUES (5,'B018')");
    EXPECT_TRUE(access.HasRight(kvxvar, "B018"));
    EXPECT_FALSE(access.HasRight(kvxvar, "B049"));
    kvxvar.ID_USER = 6;
    EXPECT_FALSE(access.HasRight(kvxvar, "B018"));
    EXPECT_EQ(Statements()[0], "SELECT CODE FROM RIGHTS WHERE ID_USER = 5 AND CODE = 'B018'");
}

}  // namespace kvx::loc

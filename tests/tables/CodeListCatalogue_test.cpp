#include "tables/CodeListCatalogue.h"

#include <gtest/gtest.h>

#include <set>

// The lists that a form shows are tested with the form; here is what no form can show.
namespace kvx {

namespace {

KvxVar Session()
{
    KvxVar session;
    session.strLanguage = "DEUTSCH";
    session.ID_ACCESS_LEVELS = 3;
    return session;
}

}  // namespace

TEST(CodeListCatalogue, AnIdOutsideItIsNoList)
{
    for (const std::int32_t id : {0, -80, 79, 81, 1000, 6223, 6225, 100000})
        EXPECT_EQ(FindCodeListKind(id), nullptr) << id;
}

TEST(CodeListCatalogue, SixteenIdsChooseSixteenKindsAndNoneTheWageGroups)
{
    std::set<std::int16_t> kinds;
    for (const CodeListKind& kind : CodeListKinds()) {
        EXPECT_EQ(FindCodeListKind(kind.intIdString), &kind);
        kinds.insert(kind.intKind);
    }
    EXPECT_EQ(kinds.size(), 16U);
    EXPECT_EQ(*kinds.begin(), 1);
    EXPECT_EQ(*kinds.rbegin(), 17);
    EXPECT_FALSE(kinds.contains(kWageGroupKind));
}

TEST(WageGroups, TheStatementOfATabNamesItsCaption)
{
    EXPECT_EQ(FillCodeListQuery(kWageGroupQuery, Session(), "", "LOHNGRUPPE", "Stunde"),
              "SELECT NAME,BEZEICHNUNG,BETRAG,EURO,ID FROM LOHNGRUPPE WHERE NAMETAB = 'Stunde'");
}

TEST(WageGroups, ACodeIsADuplicateInItsTabUnlessItIsTheRowItself)
{
    const CodeListDuplicate test = DuplicateTest(kWageGroupKind, Session(), "", "L1", "Stunde", 17);
    EXPECT_EQ(test.field, "ID");
    EXPECT_EQ(test.condition, "NAMETAB = 'Stunde' AND NAME = 'L1' AND ID <> 17");
    EXPECT_EQ(DuplicateTest(kWageGroupKind, Session(), "", "L1", "Stunde", 0).condition,
              "NAMETAB = 'Stunde' AND NAME = 'L1' AND ID <> 0");
}

TEST(WageGroups, ASaveWritesNoColumnAndADeleteLooksAtNothing)
{
    EXPECT_TRUE(WritesOfKind(kWageGroupKind).empty());
    EXPECT_EQ(UsageOfCode(kWageGroupKind, "L1", "L1").statement, "");
}

}  // namespace kvx

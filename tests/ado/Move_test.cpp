#include "FakeDriver.h"

#include <gtest/gtest.h>

#include <functional>

namespace kvx::ado::testing {
namespace {

class Move : public ::testing::Test {
protected:
    Move() { AddTrees(database); }

    FakeDatabase database;
    Connection connection = database.Connect();
};

// What each member does in each of the five states; 0 = no error.
struct State {
    const char* name;
    std::function<Recordset(const Connection&)> make;
    bool bof, eof;
    std::int32_t first, next, previous, field;
};

const State kStates[] = {
    {"NoRows", [](const Connection& c) { return OpenTrees(c, adOpenStatic, adLockOptimistic, kNoTrees); }, true, true,
     3021, 3021, 3021, 3021},
    {"BeforeFirst",
     [](const Connection& c) {
         Recordset set = OpenTrees(c, adOpenStatic, adLockOptimistic);
         set.MovePrevious();
         return set;
     },
     true, false, 0, 0, 3021, 3021},
    {"OnARow", [](const Connection& c) { return OpenTrees(c, adOpenStatic, adLockOptimistic); }, false, false, 0, 0, 0,
     0},
    {"AfterLast",
     [](const Connection& c) {
         Recordset set = OpenTrees(c, adOpenStatic, adLockOptimistic);
         set.MoveLast();
         set.MoveNext();
         return set;
     },
     false, true, 0, 3021, 0, 3021},
};

class MoveStates : public Move, public ::testing::WithParamInterface<State> {
protected:
    Recordset Make() { return GetParam().make(connection); }
};

TEST_P(MoveStates, BofAndEof)
{
    EXPECT_EQ(Make().Bof(), GetParam().bof);
    EXPECT_EQ(Make().Eof(), GetParam().eof);
}

TEST_P(MoveStates, MoveFirstAndMoveLast)
{
    Recordset set = Make();
    EXPECT_EQ(ErrorOf([&] { set.MoveFirst(); }), GetParam().first);
    set = Make();
    EXPECT_EQ(ErrorOf([&] { set.MoveLast(); }), GetParam().first);
}

TEST_P(MoveStates, MoveNextAndMovePrevious)
{
    Recordset set = Make();
    EXPECT_EQ(ErrorOf([&] { set.MoveNext(); }), GetParam().next);
    set = Make();
    EXPECT_EQ(ErrorOf([&] { set.MovePrevious(); }), GetParam().previous);
}

TEST_P(MoveStates, ReadingAndWritingAField)
{
    Recordset set = Make();
    EXPECT_EQ(ErrorOf([&] { set["NAME"].Value(); }), GetParam().field);
    EXPECT_EQ(ErrorOf([&] { set["NAME"].TextView(); }), GetParam().field);
    EXPECT_EQ(ErrorOf([&] { set["NAME"].SetValue("x"); }), GetParam().field);
}

TEST_P(MoveStates, MetadataIsReadableInEveryState)
{
    Recordset set = Make();
    EXPECT_EQ(set.Fields().Count(), 3);
    EXPECT_EQ(set[1].Name(), "NAME");
    EXPECT_EQ(set["name"].Type(), adVarWChar);
    EXPECT_EQ(set["name"].DefinedSize(), 10);
    EXPECT_EQ(TextOf(set["name"].Properties("BASETABLENAME")), "TREE");
}

INSTANTIATE_TEST_SUITE_P(Table, MoveStates, ::testing::ValuesIn(kStates),
                         [](const auto& state) { return state.param.name; });

TEST_F(Move, EveryMemberOfAClosedRecordsetIsError3704)
{
    Recordset set;
    const std::function<void()> calls[] = {
        [&] { set.Bof(); },
        [&] { set.Eof(); },
        [&] { set.MoveFirst(); },
        [&] { set.MoveLast(); },
        [&] { set.MoveNext(); },
        [&] { set.MovePrevious(); },
        [&] { set.Move(1); },
        [&] { set.RecordCount(); },
        [&] { set.AbsolutePosition(); },
        [&] { set.SetAbsolutePosition(1); },
        [&] { set.Bookmark(); },
        [&] { set.SetBookmark(5.0); },
        [&] { set.Find("ID = 1"); },
        [&] { set.Clone(); },
        [&] { set.GetRows(); },
        [&] { set.AddNew(); },
        [&] { set.Update(); },
        [&] { set.CancelUpdate(); },
        [&] { set.EditMode(); },
        [&] { set.Requery(); },
        [&] { set["NAME"]; },
        [&] { set[0]; },
    };
    for (std::size_t call = 0; call < std::size(calls); ++call)
        EXPECT_EQ(ErrorOf(calls[call]), 3704) << call;
    EXPECT_EQ(set.Fields().Count(), 0);
    EXPECT_FALSE(set.Fields().Has("NAME"));
}

TEST_F(Move, AFieldOfARecordsetClosedMeanwhileIsError3704)
{
    Recordset set = OpenTrees(connection);
    const Field name = set["NAME"];
    set.Close();
    EXPECT_EQ(ErrorOf([&] { name.Value(); }), 3704);
    EXPECT_EQ(ErrorOf([&] { name.Name(); }), 3704);
}

TEST_F(Move, AFreshRecordsetStandsOnRowOne)
{
    const Recordset set = OpenTrees(connection);
    EXPECT_EQ(set["ID"].Int64(), 1);
    EXPECT_EQ(set.AbsolutePosition(), 1);
}

TEST_F(Move, StaticMovesBothWaysOverTheEnds)
{
    Recordset set = OpenTrees(connection);
    std::string seen;
    for (; !set.Eof(); set.MoveNext())
        seen += TextOf(set["NAME"].Value()) + " ";
    EXPECT_EQ(set.AbsolutePosition(), -3);
    for (set.MovePrevious(); !set.Bof(); set.MovePrevious())
        seen += std::to_string(set["ID"].Int64());
    EXPECT_EQ(seen, "Eiche Fichte Kiefer 321");
    EXPECT_EQ(set.AbsolutePosition(), -2);
    set.MoveNext();
    EXPECT_EQ(set["ID"].Int64(), 1);
}

TEST_F(Move, MoveGoesBySoManyRowsAndStopsAtTheEnds)
{
    Recordset set = OpenTrees(connection);
    set.Move(2);
    EXPECT_EQ(set["ID"].Int64(), 3);
    set.Move(-1);
    EXPECT_EQ(set["ID"].Int64(), 2);
    set.Move(9'000'000'000'000'000'000);
    EXPECT_TRUE(set.Eof());
    EXPECT_EQ(ErrorOf([&] { set.Move(1); }), 3021);
    set.Move(-1);
    EXPECT_EQ(set["ID"].Int64(), 3);
    set.Move(-100);
    EXPECT_TRUE(set.Bof());
    EXPECT_EQ(ErrorOf([&] { set.Move(-1); }), 3021);
    set.Move(2);
    EXPECT_EQ(set["ID"].Int64(), 2);
    set.Move(1, std::int32_t{adBookmarkFirst});
    EXPECT_EQ(set["ID"].Int64(), 2);
    set.Move(-1, std::int32_t{adBookmarkLast});
    EXPECT_EQ(set["ID"].Int64(), 2);
}

TEST_F(Move, AbsolutePositionMovesToARow)
{
    Recordset set = OpenTrees(connection);
    set.SetAbsolutePosition(3);
    EXPECT_EQ(set["ID"].Int64(), 3);
    EXPECT_EQ(ErrorOf([&] { set.SetAbsolutePosition(4); }), 3001);
    EXPECT_EQ(ErrorOf([&] { set.SetAbsolutePosition(0); }), 3001);
    EXPECT_EQ(set.AbsolutePosition(), 3);
}

TEST_F(Move, ABookmarkFindsItsRowAgain)
{
    Recordset set = OpenTrees(connection);
    set.MoveNext();
    const basic::Variant bookmark = set.Bookmark();
    set.MoveLast();
    set.SetBookmark(bookmark);
    EXPECT_EQ(set["ID"].Int64(), 2);
    set.Move(1, bookmark);
    EXPECT_EQ(set["ID"].Int64(), 3);
}

TEST_F(Move, ABookmarkOfAnotherRecordsetIsError3001)
{
    Recordset set = OpenTrees(connection);
    const basic::Variant foreign = OpenTrees(connection).Bookmark();
    EXPECT_EQ(ErrorOf([&] { set.SetBookmark(foreign); }), 3001);
    EXPECT_EQ(ErrorOf([&] { set.SetBookmark("x"); }), 3001);
}

TEST_F(Move, WithoutACurrentRowThereIsNoBookmark)
{
    Recordset set = OpenTrees(connection);
    set.MovePrevious();
    EXPECT_EQ(ErrorOf([&] { set.Bookmark(); }), 3021);
}

TEST_F(Move, ForwardOnlyGoesForwardOnly)
{
    Recordset set = OpenTrees(connection, adOpenForwardOnly);
    set.MoveNext();
    EXPECT_EQ(ErrorOf([&] { set.MovePrevious(); }), 3219);
    EXPECT_EQ(ErrorOf([&] { set.MoveLast(); }), 3219);
    EXPECT_EQ(ErrorOf([&] { set.Move(-1); }), 3219);
    EXPECT_EQ(ErrorOf([&] { set.Bookmark(); }), 3251);
    EXPECT_EQ(ErrorOf([&] { set.Clone(); }), 3251);
    EXPECT_EQ(ErrorOf([&] { set.AbsolutePosition(); }), 3251);
    EXPECT_EQ(set["ID"].Int64(), 2);
    set.Move(1);
    EXPECT_EQ(set["ID"].Int64(), 3);
    set.MoveNext();
    EXPECT_TRUE(set.Eof());
    EXPECT_FALSE(set.Bof());
    EXPECT_EQ(ErrorOf([&] { set.MoveNext(); }), 3021);
    EXPECT_EQ(ErrorOf([&] { set["ID"].Value(); }), 3021);
}

TEST_F(Move, ForwardOnlyWithoutRowsIsAtBothEnds)
{
    Recordset set = OpenTrees(connection, adOpenForwardOnly, adLockReadOnly, kNoTrees);
    EXPECT_TRUE(set.Bof());
    EXPECT_TRUE(set.Eof());
    EXPECT_EQ(ErrorOf([&] { set.MoveFirst(); }), 3021);
    EXPECT_EQ(ErrorOf([&] { set.MoveNext(); }), 3021);
    EXPECT_EQ(set.Fields().Count(), 3);
}

TEST_F(Move, MoveFirstOfAForwardOnlyRunsTheStatementAgainOnlyAfterAMove)
{
    Recordset set = OpenTrees(connection, adOpenForwardOnly);
    set.MoveFirst();
    EXPECT_EQ(database.texts.size(), 1u);
    set.MoveNext();
    set.MoveFirst();
    EXPECT_EQ(database.texts.size(), 2u);
    EXPECT_EQ(set["ID"].Int64(), 1);
}

TEST_F(Move, DynamicMovesBothWaysWithoutBookmarks)
{
    Recordset set = OpenTrees(connection, adOpenDynamic);
    set.MoveLast();
    set.MovePrevious();
    EXPECT_EQ(set["ID"].Int64(), 2);
    EXPECT_EQ(ErrorOf([&] { set.Bookmark(); }), 3251);
    EXPECT_EQ(ErrorOf([&] { set.Clone(); }), 3251);
}

TEST_F(Move, ACloneStandsOnTheFirstRowAndMovesByItself)
{
    Recordset set = OpenTrees(connection);
    set.MoveLast();
    Recordset clone = set.Clone();
    EXPECT_EQ(clone["ID"].Int64(), 1);
    clone.MoveNext();
    EXPECT_EQ(set["ID"].Int64(), 3);
    clone.SetBookmark(set.Bookmark());
    EXPECT_EQ(clone["ID"].Int64(), 3);
}

TEST_F(Move, ClosingACloneLeavesTheOtherOpen)
{
    Recordset set = OpenTrees(connection);
    Recordset clone = set.Clone();
    set.Close();
    EXPECT_EQ(TextOf(clone["NAME"].Value()), "Eiche");
    clone.Close();
    EXPECT_EQ(clone.State(), adStateClosed);
}

TEST_F(Move, EveryMoveFiresMoveComplete)
{
    Recordset set;
    int fired = 0;
    const std::uint64_t id = set.AddMoveComplete([&] { ++fired; });
    const auto fires = [&](const std::function<void()>& act) {
        const int before = fired;
        act();
        return fired - before;
    };
    EXPECT_EQ(fires([&] { set.Open(kTrees, connection, adOpenStatic, adLockOptimistic); }), 1);
    EXPECT_EQ(fires([&] { set.MoveNext(); }), 1);
    EXPECT_EQ(fires([&] { set.MovePrevious(); }), 1);
    EXPECT_EQ(fires([&] { set.MoveLast(); }), 1);
    EXPECT_EQ(fires([&] { set.MoveFirst(); }), 1);
    EXPECT_EQ(fires([&] { set.Move(1); }), 1);
    EXPECT_EQ(fires([&] { set.SetAbsolutePosition(1); }), 1);
    EXPECT_EQ(fires([&] { set.SetBookmark(set.Bookmark()); }), 1);
    EXPECT_EQ(fires([&] { set.Find("NAME = 'Kiefer'"); }), 1);
    EXPECT_EQ(fires([&] { set.AddNew(); }), 1);
    EXPECT_EQ(fires([&] { set.CancelUpdate(); }), 1);
    EXPECT_EQ(fires([&] { set.Requery(); }), 1);
    EXPECT_EQ(fires([&] { set["NAME"].Value(); }), 0);
    set.RemoveMoveComplete(id);
    EXPECT_EQ(fires([&] { set.MoveNext(); }), 0);
}

TEST_F(Move, AnEmptyResultFiresMoveCompleteToo)
{
    Recordset set;
    int fired = 0;
    set.AddMoveComplete([&] { ++fired; });
    set.Open(kNoTrees, connection, adOpenStatic);
    EXPECT_EQ(fired, 1);
}

TEST_F(Move, ACloneFiresNothing)
{
    Recordset set = OpenTrees(connection);
    int fired = 0;
    set.AddMoveComplete([&] { ++fired; });
    Recordset clone = set.Clone();
    clone.MoveNext();
    EXPECT_EQ(fired, 0);
}

TEST_F(Move, AHandlerMayRemoveItselfAndSeesTheNewRow)
{
    Recordset set = OpenTrees(connection);
    std::int64_t seen = 0;
    std::uint64_t id = 0;
    id = set.AddMoveComplete([&] {
        seen = set["ID"].Int64();
        set.RemoveMoveComplete(id);
    });
    set.MoveNext();
    set.MoveNext();
    EXPECT_EQ(seen, 2);
    set.RemoveMoveComplete(id);
}

} // namespace
} // namespace kvx::ado::testing

#include "basic/Convert.h"
#include "basic/Locale.h"
#include "common/FormInstance.h"
#include "common/RecordingWord.h"
#include "tables/ListsTest.h"

#include <algorithm>

namespace kvx {

using namespace test;

namespace {

Lines Pasted(RecordingWord& word)
{
    Lines texts;
    for (const std::string& call : word.TakeCalls())
        if (call.starts_with("PasteText ")) texts.push_back(call.substr(10));
    return texts;
}

}  // namespace

TEST(ListPrint, TheButtonPrintsTheGridOfTheCurrentTab)
{
    Scenario s("lists.sql");
    RecordingWord word;
    Open(s, kFreeFields, [&](Dialog& f) {
        f.SelectTab("SSTab1", 1);
        Go(f, 1);
        f.Click("cmdPrint");
        EXPECT_EQ(List(f).DataGrid1.CurrentRow(), 1);  // a clone is walked, not the user's row
        f.CloseBox();
    });
    const std::string code = s.Text(1176), name = s.Text(1177);
    const Lines calls = word.calls;
    EXPECT_EQ(Pasted(word),
              Lines{s.Text(1302) + "\t\t\r\n" + code + "\t" + name + "\tDisable\r\nx\tXylo\t\r\ny\tYpsilon\t\r\n"});
    EXPECT_EQ(std::ranges::count(calls, "SetWindowFlag false"), 1);
    EXPECT_EQ(std::ranges::count(calls, "AddTable 4 x 3"), 1);
}

TEST(ListPrint, ARelationPrintsTheNumberOfItsGroup)
{
    Scenario s("lists.sql");
    RecordingWord word;
    Open(s, kRelations, [&](Dialog& f) {
        f.Click("cmdPrint");
        f.CloseBox();
    });
    const std::string text = Pasted(word).at(0);
    EXPECT_NE(text.find("FA1\tForstamt 1\t11\t\r\n"), std::string::npos) << text;
}

TEST(ListPrint, ASetFlagIsTheMachinesWordForTrueAndAnotherOneNothing)
{
    for (const auto& [locale, word] :
         {std::pair{basic::GermanLocale(), "Wahr"}, std::pair{basic::EnglishLocale(), "True"}}) {
        Scenario s("lists.sql");
        basic::SetLocale(locale);
        RecordingWord printed;
        Open(s, kFreeFields, [&](Dialog& f) {
            f.Click("cmdPrint");
            f.CloseBox();
        });
        const std::string text = Pasted(printed).at(0);
        EXPECT_TRUE(text.ends_with("\r\nb\tBeta\t\r\na\tAlpha\t" + std::string(word) + "\r\n")) << text;
    }
}

TEST(ListPrint, AHostPrintsEveryTabInOrderAndNoFormAppears)
{
    for (const auto& [id, tabs] :
         {std::pair{kPartyGroups, 14}, {kFreeFields, 2}, {kLabels, 8}, {kRelations, 10}, {kOccasions, 1}}) {
        Scenario s("lists.sql");
        RecordingWord word;
        std::string path;
        const basic::Variant changed = c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, id, /*bolPrint=*/-1, "Anna");
        EXPECT_EQ(basic::ToText(changed), "Falsch");
        EXPECT_TRUE(s.Desktop().Dialogs().empty()) << id;
        const Lines printed = Pasted(word);
        ASSERT_EQ(printed.size(), static_cast<std::size_t>(tabs)) << id;
        if (id == kPartyGroups) {
            const std::int32_t captions[] = {41,   3074, 3075, 3076, 3077, 3078, 3079,
                                             3080, 3081, 3115, 3012, 340,  100,  1021};
            for (std::size_t tab = 0; tab < printed.size(); ++tab)
                EXPECT_TRUE(printed[tab].starts_with(s.Text(captions[tab]) + "\t\t\r\n")) << printed[tab];
            EXPECT_NE(printed[1].find("K1\tKunden 1"), std::string::npos);
            EXPECT_NE(printed[13].find("KW\tWaldbesitzer"), std::string::npos);
        }
        EXPECT_FALSE(FormInstance<F_Tabellen2>::Exists());
    }
}

TEST(ListPrint, AnEmptyListPrintsItsCaptionsOnly)
{
    Scenario s("lists.sql");
    s.Execute("DELETE FROM ANLASSART");
    RecordingWord word;
    std::string path;
    c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, kOccasions, -1, "Anna");
    EXPECT_EQ(Pasted(word), Lines{s.Text(4735) + "\r\n" + s.Text(1177) + "\r\n"});
}

TEST(ListPrint, AnUnknownIdPrintsNothingAndShowsNothing)
{
    Scenario s("lists.sql");
    RecordingWord word;
    std::string path;
    c_Tabellen2().Tabellen2(s.kvxvar(), "Liste", path, 4711, -1, "Anna");
    EXPECT_EQ(word.calls, Lines{});
    EXPECT_TRUE(s.Desktop().Dialogs().empty());
}

}  // namespace kvx

#include "host/Operations.h"

#include "basic/Text.h"
#include "ui/Form.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace kvx::host;

namespace {

std::string Letter(std::string_view caption)
{
    const char32_t letter = kvx::ui::MnemonicOf(caption);
    return letter == 0 ? "" : std::string(1, static_cast<char>(kvx::basic::LowerCharacter(letter)));
}

}  // namespace

TEST(HostOperations, EveryPublicOperationHasAMenuEntry)
{
    for (const std::string_view name :
         {"C_Version.DLL_Version",        "c_DBLogin.DBLogin",          "c_Message.CheckArtikelWaren",
          "c_Message.CheckBBFTables",     "c_Message.CheckForstamt",    "c_Message.CheckPerson",
          "c_Message.CheckPersonal",      "c_Message.CheckTableToDel",  "c_Message.GetArtikelNameWaren",
          "c_Tabellen2.Tabellen2",        "c_Message.MessageBoxCmb",    "c_Message.MessageBoxNL",
          "c_Message.MessageBox_AddItem", "c_Message.MessageBox_Clear", "c_Message.MessageBox_ItemCount",
          "c_Message.MessageBox_Show",    "c_Waldort.Waldort",          "c_Waldort.WaldortArbeits",
          "c_Waldort.WaldortId",          "c_Waldort.WaldortSimple",    "c_Waldort.Waldort_ID"})
        EXPECT_NE(FindOperation(name), nullptr) << name;
    EXPECT_EQ(FindOperation("c_Waldort.Nothing"), nullptr);
}

TEST(HostOperations, InBothLanguagesEveryEntryOfAMenuHasALetterOfItsOwn)
{
    for (const bool english : {false, true}) {
        std::set<std::string> seen;
        for (const Operation& operation : Operations()) {
            const std::string letter = Letter(operation.caption.In(english));
            EXPECT_FALSE(letter.empty()) << operation.caption.In(english);
            EXPECT_TRUE(seen.insert(std::string(operation.menu.In(english)) + letter).second)
                << operation.caption.In(english);
        }
    }
}

TEST(HostOperations, NoTwoEntriesShareAShortcut)
{
    std::set<std::string_view> seen;
    for (const Operation& operation : Operations()) {
        if (operation.shortcut.empty()) continue;
        EXPECT_TRUE(seen.insert(operation.shortcut).second) << operation.shortcut;
    }
}

TEST(HostOperations, EntriesOfAMenuStandTogether)
{
    std::set<std::string_view> left;
    std::string_view menu;
    for (const Operation& operation : Operations()) {
        if (operation.menu.german == menu) continue;
        EXPECT_TRUE(left.insert(operation.menu.german).second) << operation.menu.german;
        menu = operation.menu.german;
    }
}

TEST(HostOperations, AnErrorOfTheLibraryEndsUpInTheOutcome)
{
    const Session session;  // closed connection
    const Boxes boxes;
    const Outcome outcome = Perform(*FindOperation("c_Waldort.Waldort_ID"), Call{session, boxes, {}, false, {}, {}});
    // No key at all: nothing is asked.
    ASSERT_FALSE(outcome.error.has_value());
    ASSERT_FALSE(outcome.lines.empty());
    EXPECT_EQ(outcome.lines[0].after, "-1");

    const Outcome failed = Perform(*FindOperation("c_Message.MessageBoxNL"),
                                   Call{session, boxes, {}, false, [] { return std::string("/no/such/file"); }, {}});
    ASSERT_TRUE(failed.error.has_value());
    EXPECT_EQ(failed.error->Number, kvx::basic::kErrPathNotFound);
    EXPECT_EQ(failed.operation, "c_Message.MessageBoxNL");
}

TEST(HostOperations, ErrorNumbersAreShownAsHostsKnowThem)
{
    EXPECT_EQ(ErrorNumberText(438), "438");
    EXPECT_EQ(ErrorNumberText(-2147217900), "-2147217900 (80040E14)");
}

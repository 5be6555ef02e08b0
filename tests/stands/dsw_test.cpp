#include "basic/Error.h"
#include "os/Objects.h"
#include "stands/StandsTest.h"

#include <memory>

namespace kvx::test {
namespace {

constexpr int kRefused = -2147217900;

/// The outside application: notes what it is asked, and answers.
class OutsideApplication final : public basic::Object {
public:
    OutsideApplication(Lines& asked, std::string answer) : asked_(asked), answer_(std::move(answer)) {}
    std::string TypeName() const override { return "n_choose_os"; }
    basic::Variant Get(std::string_view member, std::span<const basic::Variant>) override
    {
        basic::RaiseNoMember(TypeName(), member);
    }
    void Put(std::string_view member, const basic::Variant&, std::span<const basic::Variant>) override
    {
        basic::RaiseNoMember(TypeName(), member);
    }
    basic::Variant Call(std::string_view member, std::span<basic::Variant> args) override
    {
        if (!basic::SameName(member, "of_show")) basic::RaiseNoMember(TypeName(), member);
        for (const basic::Variant& argument : args)
            asked_.push_back(*argument.As<std::string>());
        if (answer_ == "(error)") throw basic::Error(-1, "broken off", "DSW2");
        return answer_;
    }

private:
    Lines& asked_;
    std::string answer_;
};

/// A session of client BB with the outside application switched on; the host's box holds "Nord/ 3".
struct Outside {
    Scenario s;
    HostForm form;
    Lines asked;
    std::int32_t id = -5;
    std::string area = "alt";

    Outside()
    {
        s.kvxvar().g_Client = "BB";
        s.kvxvar().strDBUser = "förster";
        s.kvxvar().strDBPassword = "geheim";
        s.ID_AL = 1;
        SetOption("DSW_WALDORT", 1);
        form.txtWaldort.SetText("Nord/ 3");
    }
    ~Outside() { os::RegisterObject("DSW2.n_choose_os", {}); }
    Outside(const Outside&) = delete;
    Outside& operator=(const Outside&) = delete;

    void SetOption(std::string_view key, int value)
    {
        s.Execute("INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('" + std::string(key) + "', " +
                  std::to_string(value) + ")");
    }
    void Answers(std::string answer)
    {
        os::RegisterObject("DSW2.n_choose_os", [this, answer = std::move(answer)] {
            return std::make_shared<OutsideApplication>(asked, answer);
        });
    }
    void Pick() { c_Waldort().WaldortArbeits(s.kvxvar(), form.txtWaldort.Object(), id, area, s.ID_AL, 0); }
    std::string Box() const { return form.txtWaldort.Text() + "#" + form.txtWaldort.Tag(); }
};

TEST(OutsidePick, AStandThatIsThereIsFound)
{
    Outside o;
    o.Answers("BB|01|00|00|Süd|1");
    o.Pick();
    EXPECT_EQ(o.Box(), "Süd/ 1#11");
    EXPECT_EQ(o.s.Statements().back(),
              "SELECT ID_WALDORT FROM WALDORT WHERE WO1 = 'Süd' AND WO2 = '1' AND WO3 IS NULL AND WO4 IS NULL"
              " AND WO5 IS NULL AND WO6 IS NULL AND ID_ACCESS_LEVELS = 1");
}

TEST(OutsidePick, TheNumberByReferenceAndTheAreaAreLeftAlone)
{
    Outside o;
    o.Answers("BB|01|00|00|Süd|1");
    o.Pick();
    EXPECT_EQ(o.id, -5);
    EXPECT_EQ(o.area, "alt");
}

TEST(OutsidePick, TheApplicationIsAskedWithItsIniTheCredentialsAndTheKey)
{
    Outside o;
    o.Answers("BB|01|00|00|Süd|1");
    o.Pick();
    EXPECT_EQ(o.asked, Lines({"c:\\Programme\\DSW2\\dsw2.ini", "förster", "geheim", "STAAT", "BB|01|00|00|Nord|3"}));
    EXPECT_TRUE(o.s.WasSent("SELECT ACCESS_LEVELS.ACCESS_LEVELS,BB_STRUKTUREN.DSW_STRUKTUR,ACCESS_LEVELS.ADR_DSW"
                            " FROM ACCESS_LEVELS LEFT JOIN BB_STRUKTUREN ON BB_STRUKTUREN.ID ="
                            " ACCESS_LEVELS.ID_BB_STRUKTUREN WHERE ACCESS_LEVELS.ID = 1"));
}

TEST(OutsidePick, ANameBehindTheKeyTravelsInTheLastPart)
{
    Outside o;
    o.form.txtWaldort.SetText("Nord/ 3: Am Bach");
    o.Answers("");
    o.s.Answer("Ungültige Waldort.", ui::vbOK);
    o.Pick();
    EXPECT_EQ(o.asked.at(4), "BB|01|00|00|Nord|3: Am Bach");
}

TEST(OutsidePick, AnEmptyBoxLeavesTheSeparatorOut)
{
    Outside o;
    o.form.txtWaldort.SetText("");
    o.Answers("BB|01|00|00|Süd|1");
    o.Pick();
    EXPECT_EQ(o.asked.at(4), "BB|01|00|00");
}

TEST(OutsidePick, ALevelWithoutAnAddressLeavesTheSeparatorOutAndTakesAnyAnswer)
{
    Outside o;
    o.s.ID_AL = 3;
    o.Answers("irgend|wo|ganz|anders|Neu|1");
    o.Pick();
    EXPECT_EQ(o.asked.at(3), "");
    EXPECT_EQ(o.asked.at(4), "Nord|3");
    EXPECT_EQ(o.form.txtWaldort.Text(), "Neu/ 1");
}

TEST(OutsidePick, AStandThatIsNotThereIsMade)
{
    Outside o;
    o.Answers("BB|01|00|00|Neu|1||a");
    o.Pick();
    const std::string id = o.s.Value("SELECT MAX(ID_WALDORT) FROM WALDORT");
    EXPECT_EQ(o.Box(), "Neu/ 1/ a#" + id);
    EXPECT_TRUE(o.s.WasSent("kvx_WALDORT_INS"));
    EXPECT_EQ(o.s.Statements().back(), "UPDATE WALDORT SET WO1 = 'Neu',WO2 = '1',WO4 = 'a',ID_ACCESS_LEVELS = 1,"
                                       "LANGNAME = 'Neu/ 1/ a' WHERE ID_WALDORT = " +
                                           id);
}

TEST(OutsidePick, WithoutALevelEachCallMakesAnewRow)
{
    Outside o;
    o.s.ID_AL = 0;
    o.Answers("a|b|c|d|Nord|3");
    o.Pick();
    const std::string first = o.form.txtWaldort.Tag();
    o.Pick();
    EXPECT_NE(o.form.txtWaldort.Tag(), first);
    EXPECT_EQ(o.s.Value("SELECT COUNT(*) FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = '3' AND WO3 IS NULL"), "3");
    EXPECT_TRUE(o.s.WasSent("SELECT ID_WALDORT FROM WALDORT WHERE WO1 = 'Nord' AND WO2 = '3' AND WO3 IS NULL"
                            " AND WO4 IS NULL AND WO5 IS NULL AND WO6 IS NULL AND ID_ACCESS_LEVELS = NULL"));
}

TEST(OutsidePick, ADisabledStandIsGivenBack)
{
    Outside o;
    o.s.Execute("UPDATE WALDORT SET DISABLE = 1 WHERE ID_WALDORT = 11");
    o.Answers("BB|01|00|00|Süd|1");
    o.Pick();
    EXPECT_EQ(o.Box(), "Süd/ 1#11");
}

TEST(OutsidePick, AnAnswerOfAnotherAddressIsRefused)
{
    Outside o;
    o.Answers("BB|02|00|00|Süd|1");
    o.s.Answer("Ungültige Waldort.", ui::vbOK);
    o.Pick();
    EXPECT_EQ(o.Box(), "Nord/ 3#");
    EXPECT_EQ(o.s.Boxes().at(0).flags, 0);
    EXPECT_EQ(o.s.Boxes().at(0).title, "Korvex");
}

TEST(OutsidePick, AnAnswerWithoutALevelChangesNothing)
{
    Outside o;
    o.Answers("BB|01|00|00");
    o.Pick();
    EXPECT_EQ(o.Box(), "Nord/ 3#");
    EXPECT_EQ(o.s.CountStatements("SELECT ID_WALDORT"), 0);
}

TEST(OutsidePick, ACancelledPickIsToldAsInvalidWhereTheLevelHasAnAddress)
{
    Outside o;
    o.Answers("");
    o.s.Answer("Ungültige Waldort.", ui::vbOK);
    o.Pick();
    EXPECT_EQ(o.Box(), "Nord/ 3#");
}

TEST(OutsidePick, AnErrorOfTheApplicationIsACancel)
{
    Outside o;
    o.Answers("(error)");
    o.s.Answer("Ungültige Waldort.", ui::vbOK);
    o.Pick();
    EXPECT_EQ(o.Box(), "Nord/ 3#");
}

TEST(OutsidePick, WithoutTheApplicationTheUserIsTold)
{
    Outside o;
    o.s.Answer("Objekterstellung fehlgeschlagen", ui::vbOK);
    o.s.Answer("Ungültige Waldort.", ui::vbOK);
    o.Pick();
    EXPECT_EQ(o.Box(), "Nord/ 3#");
}

TEST(OutsidePick, AnApplicationThatDoesNotStartIsNotThere)
{
    Outside o;
    o.s.ID_AL = 3;
    os::RegisterObject("DSW2.n_choose_os", []() -> basic::ObjectRef { throw basic::Error(429, "no server", "x"); });
    o.s.Answer("Objekterstellung fehlgeschlagen", ui::vbOK);
    o.Pick();
    EXPECT_EQ(o.Box(), "Nord/ 3#");
}

TEST(OutsidePick, TheCallCanBeShownStepByStep)
{
    Outside o;
    o.SetOption("DSW_ZEIGEAUFRUF", 1);
    o.Answers("BB|01|00|00|Süd|1");
    o.s.Answer("Set AXObject = CreateObject(\"DSW2.n_choose_os\")", ui::vbOK);
    o.s.Answer("AXObject.of_show(c:\\Programme\\DSW2\\dsw2.ini, förster, geheim, STAAT, BB|01|00|00|Nord|3)", ui::vbOK);
    o.s.Answer("BB|01|00|00|Süd|1", ui::vbOK);
    o.Pick();
    EXPECT_EQ(o.Box(), "Süd/ 1#11");
}

TEST(OutsidePick, TheAnswerCanBeTypedByHand)
{
    Outside o;
    o.SetOption("DSW_WALDORTINPUT", 1);
    o.s.Answer("Objekterstellung fehlgeschlagen", ui::vbOK);
    o.s.AnswerInput("Waldort", "BB|01|00|00|Süd|1");
    o.Pick();
    EXPECT_EQ(o.Box(), "Süd/ 1#11");
}

TEST(OutsidePick, AnotherSeparatorPartsKeyAndAnswer)
{
    Outside o;
    o.s.ID_AL = 3;
    o.s.Execute("INSERT INTO OPTIONEN (PROPERTY_ID, TEXT_VALUE) VALUES ('DSW_SEPARATOR', ';')");
    o.Answers("a;b;c;d;Neu;1;2;3;4;5;zuviel");
    o.Pick();
    EXPECT_EQ(o.asked.at(4), "Nord;3");
    EXPECT_EQ(o.form.txtWaldort.Text(), "Neu/ 1/ 2/ 3/ 4/ 5");
}

TEST(OutsidePick, AnotherClientUsesTheDialog)
{
    Outside o;
    o.s.kvxvar().g_Client = "";
    o.s.In("F_Waldort", [](Dialog& f) { f.Click("btnCancel"); });
    o.Pick();
    EXPECT_EQ(o.s.Desktop().Dialogs(), Lines({"F_Waldort"}));
}

TEST(OutsidePick, SwitchedOffClientBBUsesTheDialogToo)
{
    Outside o;
    o.s.Execute("UPDATE OPTIONEN SET NUMBER_VALUE = 2 WHERE PROPERTY_ID = 'DSW_WALDORT'");
    o.s.In("F_Waldort", [](Dialog& f) { f.Click("btnCancel"); });
    o.Pick();
    EXPECT_EQ(o.s.Desktop().Dialogs(), Lines({"F_Waldort"}));
}

class OutsidePickFailure : public testing::TestWithParam<std::string_view> {};

TEST_P(OutsidePickFailure, IsTheHostsErrorAndLeavesTheBox)
{
    std::size_t place = 0;
    {
        Outside probe;
        probe.Answers("BB|01|00|00|Neu|1");
        probe.Pick();
        place = PlaceOf(probe.s, GetParam());
    }
    Outside o;
    o.Answers("BB|01|00|00|Neu|1");
    o.s.FailStatement(place, kRefused, "refused");
    EXPECT_THROW(o.Pick(), basic::Error);
    EXPECT_EQ(o.Box(), "Nord/ 3#");
}

INSTANTIATE_TEST_SUITE_P(EachStatement, OutsidePickFailure,
                         testing::Values("SELECT NUMBER_VALUE", "SELECT TEXT_VALUE", "SELECT ACCESS_LEVELS",
                                         "SELECT ID_WALDORT", "kvx_WALDORT_INS", "UPDATE WALDORT"));

}  // namespace
}  // namespace kvx::test

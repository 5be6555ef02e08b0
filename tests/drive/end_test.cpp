#include "drive/DemoForms.h"
#include "drive/Drive.h"

#include "host/StandChooser.h"
#include "os/Objects.h"

#include <algorithm>
#include <set>
#include <unistd.h>

// Nested dialogs, questions, and the end of the input in every state.
namespace kvx {

using namespace test;

namespace {

std::size_t CountOf(const std::vector<std::string>& notes, std::string_view note)
{
    return static_cast<std::size_t>(std::ranges::count(notes, note));
}

}  // namespace

TEST(DriveQuestion, AMessageIsAQuestionThatMustBeAnswered)
{
    Drive d;
    DemoForm form;
    d.Host().Post([&] { form.Show(); });
    d.Send("click", {{"control", "btnAsk"}});
    d.Send("click", {{"control", "btnOK"}});
    d.Send("answer", {{"button", "maybe"}});
    d.Send("answer", {{"text", "ja"}});
    d.Send("answer", {{"button", "yes"}});
    d.Send("click", {{"control", "btnOK"}});
    d.Run();
    EXPECT_EQ(d.At(0)["state"], "question");
    EXPECT_EQ(d.At(0)["question"].dump(), R"({"kind":"message","prompt":"Wirklich?","title":"Titel","icon":"question",)"
                                          R"("flags":36,"buttons":["yes","no"]})");
    EXPECT_EQ(d.FaultAt(1), "wrong-time");
    EXPECT_EQ(d.At(1)["state"], "question");
    EXPECT_EQ(d.FaultAt(2), "bad-answer");
    EXPECT_EQ(d.FaultAt(3), "bad-answer");
    EXPECT_EQ(d.At(4)["state"], "dialog");
    EXPECT_EQ(d.At(5)["state"], "idle");
    EXPECT_EQ(CountOf(form.notes, "answer 6"), 1U);
}

TEST(DriveQuestion, ControlsCanBeReadWhileItWaits)
{
    Drive d;
    DemoForm form;
    d.Host().Post([&] { form.Show(); });
    d.Send("click", {{"control", "btnAsk"}});
    d.Send("get", {{"control", "cmbUnit"}, {"member", "ListCount"}});
    d.Send("forms");
    d.Run();
    EXPECT_EQ(d.At(1)["value"], 3);
    EXPECT_EQ(d.At(2)["forms"][0]["form"], "F_Demo");
}

TEST(DriveQuestion, AnInputBoxTakesATextOrCancel)
{
    Drive d;
    DemoForm form;
    d.Host().Post([&] { form.Show(); });
    d.Send("click", {{"control", "btnInput"}});
    d.Send("answer", {{"text", "neu"}});
    d.Send("click", {{"control", "btnInput"}});
    d.Send("answer", {{"button", "ok"}});
    d.Send("click", {{"control", "btnInput"}});
    d.Send("answer", {{"button", "cancel"}});
    d.Send("click", {{"control", "btnInput"}});
    d.Send("answer", {{"button", "yes"}});
    d.Run();
    EXPECT_EQ(d.At(0)["question"].dump(), R"({"kind":"input","prompt":"Name:","title":"Titel","text":"alt"})");
    EXPECT_EQ(d.FaultAt(7), "bad-answer");
    const std::vector<std::string> inputs{"input neu", "input alt", "input ", "input "};
    std::vector<std::string> seen;
    for (const std::string& note : form.notes)
        if (note.starts_with("input")) seen.push_back(note);
    EXPECT_EQ(seen, inputs);
}

TEST(DriveQuestion, EveryKindOfMessageOffersItsButtons)
{
    const std::vector<std::vector<std::string>> expected{
        {"ok"},        {"ok", "cancel"},   {"abort", "retry", "ignore"}, {"yes", "no", "cancel"},
        {"yes", "no"}, {"retry", "cancel"}};
    for (std::int32_t flags = 0; flags < 6; ++flags) {
        Drive d;
        std::vector<std::int32_t> pressed;
        const auto& buttons = expected[static_cast<std::size_t>(flags)];
        d.Host().Post([&] {
            for (std::size_t i = 0; i < buttons.size(); ++i)
                pressed.push_back(d.Host().MessageBox("?", flags + ui::vbCritical, ""));
        });
        d.Send("statements");
        for (const std::string& button : buttons)
            d.Send("answer", {{"button", button}});
        d.Run();
        EXPECT_EQ(d.At(0)["question"]["buttons"].get<std::vector<std::string>>(), buttons);
        EXPECT_EQ(d.At(0)["question"]["icon"], "stop");
        ASSERT_EQ(pressed.size(), buttons.size());
        EXPECT_EQ(std::set<std::int32_t>(pressed.begin(), pressed.end()).size(), buttons.size());
    }
}

TEST(DriveQuestion, TheOutsideApplicationIsAskedThroughTheDriver)
{
    Drive d;
    std::string chosen, refused;
    d.Host().Post([&] {
        const basic::ObjectRef application = os::CreateObject(host::kStandChooserId);
        std::vector<basic::Variant> args{"ini", "user"};
        chosen = basic::ToText(application->Call("of_show", args));
        try {
            application->Call("of_show", args);
        } catch (const basic::Error& error) {
            refused = std::to_string(error.Number) + error.Source + error.Description;
        }
    });
    d.Send("statements");
    d.Send("answer", {{"button", "ok"}});
    d.Send("answer");
    d.Send("answer", {{"value", "BB|01"}});
    d.Send("answer", {{"error", {{"number", 440}, {"source", "DSW2"}, {"text", "abgebrochen"}}}});
    d.Run();
    EXPECT_EQ(d.At(0)["question"].dump(), R"({"kind":"outside","object":"DSW2.n_choose_os","method":"of_show",)"
                                          R"("arguments":["ini","user"]})");
    EXPECT_EQ(d.FaultAt(1), "bad-answer");
    EXPECT_EQ(d.FaultAt(2), "bad-answer");
    EXPECT_EQ(d.At(3)["state"], "question");
    EXPECT_EQ(d.At(4)["state"], "idle");
    EXPECT_EQ(chosen, "BB|01");
    EXPECT_EQ(refused, "440DSW2abgebrochen");
}

TEST(DriveNested, ADialogInADialogIsToldByTheAnswerToWhatOpenedIt)
{
    Drive d;
    DemoForm outer, inner("F_Inner");
    outer.onAsk = [&] { inner.Show(); };
    d.Host().Post([&] { outer.Show(); });
    d.Send("click", {{"control", "btnAsk"}});
    d.Send("click", {{"form", "F_Demo"}, {"control", "btnOK"}});
    d.Send("get", {{"form", "F_Demo"}, {"control", "btnOK"}, {"member", "Name"}});
    d.Send("forms");
    d.Send("click", {{"control", "btnOK"}});
    d.Send("click", {{"control", "btnOK"}});
    d.Run();
    EXPECT_EQ(d.At(0)["form"], "F_Inner");
    EXPECT_EQ(d.FaultAt(1), "wrong-time");
    EXPECT_EQ(d.At(2)["value"], "btnOK");
    ASSERT_EQ(d.At(3)["forms"].size(), 2U);
    EXPECT_EQ(d.At(3)["forms"][1]["form"], "F_Inner");
    EXPECT_EQ(d.At(4)["form"], "F_Demo");
    EXPECT_EQ(d.At(5)["state"], "idle");
}

TEST(DriveNested, AFaultBehindADialogComesWithALaterAnswer)
{
    Drive d;
    DemoForm outer, inner("F_Inner");
    outer.txtName.Change.Connect([&] {
        inner.Show();
        basic::Raise(basic::kErrOverflow);
    });
    d.Host().Post([&] { outer.Show(); });
    d.Send("set", {{"control", "txtName"}, {"member", "Text"}, {"value", "x"}});
    d.Send("click", {{"control", "btnOK"}});
    d.Run();
    EXPECT_EQ(d.At(0)["ok"], true);
    EXPECT_EQ(d.At(0)["form"], "F_Inner");
    ASSERT_TRUE(d.At(1).contains("late")) << d.At(1);
    EXPECT_EQ(d.At(1)["late"][0]["id"], 0);
    EXPECT_EQ(d.At(1)["late"][0]["error"]["number"], basic::kErrOverflow);
}

// --- the end of the input

TEST(DriveEnd, NothingIsOpen)
{
    Drive d;
    d.Run();
    EXPECT_TRUE(d.Answers().empty());
}

TEST(DriveEnd, ADialogIsCancelledByItsCancelButton)
{
    Drive d;
    DemoForm form;
    d.Host().Post([&] { form.Show(); });
    d.Run();
    EXPECT_EQ(CountOf(form.notes, "cancel"), 1U);
    EXPECT_FALSE(form.IsLoaded());
}

TEST(DriveEnd, ADialogWithoutOneIsClosed)
{
    Drive d;
    DemoForm form;
    d.Host().Post([&] { form.Show(); });
    d.Send("set", {{"control", "btnCancel"}, {"member", "Visible"}, {"value", false}});
    d.Run();
    EXPECT_EQ(CountOf(form.notes, "cancel"), 0U);
    EXPECT_FALSE(form.IsLoaded());
}

TEST(DriveEnd, ADialogThatRefusesIsHidden)
{
    Drive d;
    DemoForm form;
    form.keepsOpen = true;
    d.Host().Post([&] { form.Show(); });
    d.Run();
    EXPECT_FALSE(form.Visible());
    form.keepsOpen = false;
    form.Unload();
}

TEST(DriveEnd, AQuestionGetsTheAnswerThatDoesTheLeast)
{
    Drive d;
    DemoForm form;
    d.Host().Post([&] { form.Show(); });
    d.Send("click", {{"control", "btnAsk"}});
    d.Run();
    EXPECT_EQ(CountOf(form.notes, "answer 7"), 1U) << "no";
    EXPECT_EQ(CountOf(form.notes, "cancel"), 1U);
}

TEST(DriveEnd, AnInputBoxIsCancelled)
{
    Drive d;
    DemoForm form;
    d.Host().Post([&] { form.Show(); });
    d.Send("click", {{"control", "btnInput"}});
    d.Run();
    EXPECT_EQ(CountOf(form.notes, "input "), 1U);
}

TEST(DriveEnd, NestedDialogsAreCancelledFromTheFrontOn)
{
    Drive d;
    DemoForm outer, inner("F_Inner");
    outer.onAsk = [&] {
        inner.Show();
        outer.notes.emplace_back("back");
    };
    d.Host().Post([&] { outer.Show(); });
    d.Send("click", {{"control", "btnAsk"}});
    d.Send("click", {{"control", "btnAsk"}});
    d.Run();
    EXPECT_EQ(d.At(1)["state"], "question");
    EXPECT_EQ(CountOf(inner.notes, "answer 7"), 1U);
    EXPECT_EQ(CountOf(inner.notes, "cancel"), 1U);
    ASSERT_GE(outer.notes.size(), 2U);
    EXPECT_EQ(outer.notes[outer.notes.size() - 2], "back");
    EXPECT_EQ(outer.notes.back(), "cancel");
}

TEST(DriveEnd, QuestionsThatCancellingRaisesAreAnsweredToo)
{
    Drive d;
    DemoForm form;
    form.btnCancel.Click.Connect([&] {
        form.notes.push_back("sure " + std::to_string(d.Host().MessageBox("Verwerfen?", ui::vbYesNoCancel, "")));
    });
    d.Host().Post([&] { form.Show(); });
    d.Run();
    EXPECT_EQ(CountOf(form.notes, "sure 2"), 1U);
}

TEST(DriveEnd, AnOutsideQuestionGetsNothing)
{
    Drive d;
    bool isNull = false;
    d.Host().Post([&] { isNull = os::CreateObject(host::kStandChooserId)->Call("of_show").IsNull(); });
    d.Run();
    EXPECT_TRUE(isNull);
}

TEST(DriveEnd, APickerOverACodeListIsCancelledAndTheListWithIt)
{
    Drive d("lists.sql");
    d.Call("c_Tabellen2", "Tabellen2", {{"intIdString_dll", 480}});
    d.Send("focus", {{"control", "DataGrid1"}});
    d.Send("click", {{"control", "btnNeu"}});
    d.Send("focus", {{"control", "txtField3"}});
    d.Send("key", {{"code", 17}});
    d.Run();
    EXPECT_EQ(d.At(3)["form"], "F_Tabellen2");
    EXPECT_EQ(d.Last()["form"], "F_Picker");
    EXPECT_TRUE(d.Host().ModalForms().empty());
}

TEST(DriveEnd, EveryDialogOfTheLibraryEnds)
{
    for (const host::drive::Method& method : host::drive::Methods()) {
        Drive d("lists.sql");
        d.Call(method.className, method.method, {});
        d.Run();
        EXPECT_EQ(d.Answers().size(), 1U) << method.Name();
        EXPECT_TRUE(d.Host().ModalForms().empty()) << method.Name();
    }
}

// --- lines

TEST(DriveLines, LinesComeWholeWhateverThePiecesAre)
{
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const std::string text = "eins\r\nzwei\n\ndrei";
    ASSERT_EQ(::write(pipe[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    ::close(pipe[1]);
    host::drive::DescriptorLines lines(pipe[0]);
    const auto never = [] { return false; };
    EXPECT_EQ(lines.Next(never), "eins");
    EXPECT_EQ(lines.Next(never), "zwei");
    EXPECT_EQ(lines.Next(never), "");
    EXPECT_EQ(lines.Next(never), "drei");
    EXPECT_EQ(lines.Next(never), std::nullopt);
    EXPECT_EQ(lines.Next(never), std::nullopt);
    ::close(pipe[0]);
}

TEST(DriveLines, WhenNobodyReadsAnswersTheSessionEnds)
{
    Scenario scenario;
    struct Endless final : host::drive::LineSource {
        int left = 10;
        std::optional<std::string> Next(const std::function<bool()>&) override
        {
            if (left-- == 0) return std::nullopt;
            return R"({"do":"session"})";
        }
    } lines;
    host::drive::Driver driver(SessionOf(scenario.kvxvar()), {}, lines, [](std::string_view) { return false; });
    driver.Run();
    EXPECT_EQ(lines.left, 9);
}

}  // namespace kvx

#pragma once

#include "adapters/headless/HeadlessDesktop.h"
#include "adapters/headless/User.h"
#include "basic/Error.h"
#include "support/NewDesktop.h"
#include "ui/Control.h"
#include "ui/Desktop.h"
#include "ui/Form.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kvx::ui::testing {

using adapters::headless::HeadlessDesktop;
using adapters::headless::User;
using Log = std::vector<std::string>;

/// A form whose design is given by the test; `log` takes what its handlers have to tell.
class TestForm : public Form {
public:
    explicit TestForm(std::string_view name = "TestForm") : Form(name) {}
    std::function<void()> design = [] {};
    Log log;

    /// Logs "name.event" whenever the event is raised.
    template <class... Args>
    void Watch(Event<Args...>& event, std::string entry)
    {
        event.Connect([this, entry = std::move(entry)](Args...) { log.push_back(entry); });
    }
    void WatchFocus(Control& control)
    {
        Watch(control.Validate, control.FullName() + ".Validate");
        Watch(control.LostFocus, control.FullName() + ".LostFocus");
        Watch(control.GotFocus, control.FullName() + ".GotFocus");
        Watch(control.Click, control.FullName() + ".Click");
    }

protected:
    void Design() override
    {
        design();
        PlaceTheRest();
    }

private:
    /// What the test has not placed itself stands one below the other, so that a mouse finds it in a real window too.
    void PlaceTheRest()
    {
        std::int32_t top = 60;
        for (Control* control : Controls()) {
            if (control->Width() != 0 || control->Height() != 0 || control->TypeName() == "Label") continue;
            const bool rows = control->TypeName() != "CommandButton" && control->TypeName() != "TextBox" &&
                              control->TypeName() != "CheckBox" && control->TypeName() != "OptionButton";
            control->Move(60, top, 4800, rows ? 2400 : 345);
            top += control->Height() + 60;
        }
        if (Width() == 0 && Height() == 0) SetSize(5100, top + 600);
    }
};

/// Number of the error that the call raises; 0 = none.
inline std::int32_t ErrorOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const basic::Error& error) {
        return error.Number;
    }
    return 0;
}

/// A desktop for every test, and no surprise left on it at the end.
class FormTest : public ::testing::Test {
protected:
    /// Shows the form and lets the script work on it; the form is hidden afterwards if it is still open.
    void Run(Form& form, const std::function<void(User&)>& script)
    {
        desktop.In(form.Name(), [&](Form& shown) {
            User user{desktop, shown};
            script(user);
            shown.Hide();
        });
        form.Show();
    }
    void TearDown() override
    {
        desktop.Finish();
        EXPECT_EQ(desktop.Failures(), Log{});
    }
    std::unique_ptr<HeadlessDesktop> ownDesktop = test::NewDesktop();
    HeadlessDesktop& desktop = *ownDesktop;
};

}  // namespace kvx::ui::testing

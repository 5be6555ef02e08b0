#pragma once

#include "adapters/headless/User.h"
#include "ado/FakeDriver.h"
#include "basic/Locale.h"
#include "common/FormInstance.h"
#include "common/ModuleState.h"
#include "korvex_loc/KorvexLoc.h"
#include "session/KvxVar.h"
#include "session/SiblingClasses.h"
#include "support/NewDesktop.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListBox.h"
#include "ui/TextBox.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace kvx::test {

using adapters::headless::User;
using Texts = std::vector<std::string>;

/// A form with one control of each kind that the routines meet.
class SmallForm final : public ui::Form {
public:
    SmallForm() : Form("SmallForm") {}
    ui::TextBox Text1{*this, "Text1"}, Text2{*this, "Text2"};
    ui::ComboBox Combo1{*this, "Combo1"};
    ui::ListBox List1{*this, "List1"};
    ui::Label Label1{*this, "Label1"};
    ui::Button Command1{*this, "Command1"};

protected:
    void Design() override {}
};

/// A German machine with the sibling library, a scripted user and an engine that answers from a script. What nobody
/// expected fails the test.
class CommonTest : public testing::Test {
protected:
    CommonTest()
    {
        basic::SetLocale(basic::GermanLocale());
        SetSiblings(&KorvexLoc());
        kvxvar.dbAdo = database.Connect();
    }
    ~CommonTest() override
    {
        desktop.Finish();
        for (const std::string& failure : desktop.Failures())
            ADD_FAILURE() << failure;
        ReleaseForms();
        Module() = {};
        SetSiblings(nullptr);
        basic::SetLocale(basic::LocaleFromEnvironment());
    }

    /// Shows a form of the test and does something while it is up.
    void OnForm(const std::function<void(SmallForm&)>& work)
    {
        SmallForm form;
        desktop.In("SmallForm", [&](ui::Form&) {
            work(form);
            form.Unload();
        });
        form.Show();
    }

    using Database = ado::testing::FakeDatabase;
    std::unique_ptr<adapters::headless::HeadlessDesktop> ownDesktop = NewDesktop();
    adapters::headless::HeadlessDesktop& desktop = *ownDesktop;
    Database database;
    KvxVar kvxvar;
};

using ado::testing::ErrorOf;

}  // namespace kvx::test

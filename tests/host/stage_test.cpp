#include "ScratchFolder.h"

#include "adapters/qt/QtDesktop.h"
#include "basic/Error.h"
#include "host/Stage.h"
#include "os/Files.h"
#include "ui/Button.h"
#include "ui/Desktop.h"
#include "ui/Form.h"

#include <QApplication>

#include <gtest/gtest.h>

// A tour must not be good by mistake: whatever does not come, comes unasked or stays open is a failure.
namespace kvx::host {
namespace {

class SmallForm final : public ui::Form {
public:
    SmallForm() : Form("SmallForm")
    {
        btnOK.Click.Connect([this] { Hide(); });
    }
    ui::Button btnOK{*this, "btnOK"};

protected:
    void Design() override
    {
        SetSize(3000, 1500);
        btnOK.Move(300, 300, 1200, 345);
    }
};

class StageTest : public testing::Test {
protected:
    StageTest() { ui::SetCurrentDesktop(&desktop); }

    ScratchFolder scratch;
    adapters::qt::QtDesktop desktop;
    Stage stage{desktop, scratch.path};
    SmallForm form;
};

TEST_F(StageTest, ADialogThatComesAndGoesIsNoFailure)
{
    stage.Expect("SmallForm", [](Dialog& f) {
        f.Picture("open");
        f.Click("btnOK");
    });
    stage.Play("good", [this] { form.Show(); });
    EXPECT_EQ(stage.Failures(), std::vector<std::string>{});
    EXPECT_TRUE(os::FileExists((scratch.path / "SmallForm-open.png").string()));
}

TEST_F(StageTest, ADialogThatDoesNotComeIsOne)
{
    stage.Expect("SmallForm", [](Dialog&) {});
    stage.Play("nothing", [] {});
    ASSERT_EQ(stage.Failures().size(), 1U);
    EXPECT_NE(stage.Failures()[0].find("SmallForm did not open"), std::string::npos);
}

TEST_F(StageTest, ADialogThatNobodyExpectsIsOneAndIsClosed)
{
    stage.Play("surprise", [this] { form.Show(); });
    ASSERT_EQ(stage.Failures().size(), 1U);
    EXPECT_NE(stage.Failures()[0].find("unexpected window"), std::string::npos);
    EXPECT_FALSE(form.Visible());
}

TEST_F(StageTest, ADialogThatIsLeftOpenIsOneAndIsClosed)
{
    stage.Expect("SmallForm", [](Dialog&) {});
    stage.Play("left", [this] { form.Show(); });
    ASSERT_EQ(stage.Failures().size(), 1U);
    EXPECT_NE(stage.Failures()[0].find("SmallForm"), std::string::npos);
    EXPECT_FALSE(form.Visible());
}

TEST_F(StageTest, AControlThatIsNotThereIsOne)
{
    stage.Expect("SmallForm", [](Dialog& f) {
        f.Click("btnNeu");
        f.Click("btnOK");
    });
    stage.Play("no control", [this] { form.Show(); });
    EXPECT_EQ(stage.Failures().size(), 1U);
}

TEST_F(StageTest, AnErrorOfTheCallIsOne)
{
    stage.Play("error", [] { basic::Raise(basic::kErrTypeMismatch); });
    ASSERT_EQ(stage.Failures().size(), 1U);
    EXPECT_NE(stage.Failures()[0].find("error 13"), std::string::npos);
}

}  // namespace
}  // namespace kvx::host

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    kvx::adapters::qt::QtDesktop::UseDefaultLook(app);
    return RUN_ALL_TESTS();
}

#include "adapters/qt/ControlView.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Strings.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/OptionButton.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

namespace kvx::adapters::qt {
namespace {

// A push button, check box or option button. The widget tells the click; what it then shows, the control says.
template <class C, class W>
class ButtonView : public ControlView {
public:
    ButtonView(FormWindow& window, C& control, QWidget* parent)
        : ControlView(window, control), control_(control), button_(new W(parent))
    {
        SetWidget(button_);
        button_->setFocusPolicy(Qt::TabFocus);
        window.Watch(button_, this);
        QObject::connect(button_, &QAbstractButton::clicked, &window, [this] { ClickAfterMessage(); });
    }

    bool DoubleClicks() const override { return false; }  // a quick second click is a click
    void ClickAfterMessage() override
    {
        Act([this] { control_.UserClick(); });
        if (Model() != nullptr)
            Changed(ui::Change::Value);  // the widget has toggled by itself, the control may not have
    }

protected:
    void Show(unsigned changes) override
    {
        if (Has(changes, ui::Change::Text) || Has(changes, ui::Change::Look))
            button_->setText(ToQt(control_.Caption()));
        ShowValue();
    }
    virtual void ShowValue() = 0;

    C& control_;
    W* button_;
};

class PushView final : public ButtonView<ui::Button, QPushButton> {
public:
    PushView(FormWindow& window, ui::Button& button, QWidget* parent) : ButtonView(window, button, parent)
    {
        button_->setAutoDefault(false);
        // A narrow button shows its whole word rather than wide margins.
        button_->setMinimumWidth(0);
    }

protected:
    void ShowValue() override { button_->setDefault(control_.Default()); }
};

class CheckView final : public ButtonView<ui::CheckBox, QCheckBox> {
public:
    using ButtonView::ButtonView;

protected:
    void ShowValue() override
    {
        button_->setTristate(control_.Value() == ui::vbGrayed);
        button_->setCheckState(control_.Value() == ui::vbChecked  ? Qt::Checked
                               : control_.Value() == ui::vbGrayed ? Qt::PartiallyChecked
                                                                  : Qt::Unchecked);
    }
};

class OptionView final : public ButtonView<ui::OptionButton, QRadioButton> {
public:
    OptionView(FormWindow& window, ui::OptionButton& button, QWidget* parent) : ButtonView(window, button, parent)
    {
        button_->setAutoExclusive(false);  // the control switches its neighbours off
    }

protected:
    void ShowValue() override { button_->setChecked(control_.Value()); }
};

}  // namespace

std::unique_ptr<ControlView> MakeButtonView(FormWindow& window, ui::Control& control, QWidget* parent)
{
    if (auto* button = dynamic_cast<ui::Button*>(&control)) return std::make_unique<PushView>(window, *button, parent);
    if (auto* check = dynamic_cast<ui::CheckBox*>(&control)) return std::make_unique<CheckView>(window, *check, parent);
    if (auto* option = dynamic_cast<ui::OptionButton*>(&control))
        return std::make_unique<OptionView>(window, *option, parent);
    return nullptr;
}

}  // namespace kvx::adapters::qt

#include "adapters/qt/ControlView.h"

#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Strings.h"
#include "ui/SSTab.h"

#include <QPalette>

#include <algorithm>

namespace kvx::adapters::qt {

QColor ToQtColor(ui::Color color, const QPalette& palette)
{
    switch (color) {
    case ui::kColorMenu:
    case ui::kColorButtonFace: return palette.color(QPalette::Active, QPalette::Window);
    case ui::kColorWindow: return palette.color(QPalette::Active, QPalette::Base);
    case ui::kColorWindowText: return palette.color(QPalette::Active, QPalette::Text);
    case ui::kColorHighlight: return palette.color(QPalette::Active, QPalette::Highlight);
    case ui::kColorHighlightText: return palette.color(QPalette::Active, QPalette::HighlightedText);
    case ui::kColorGrayText: {
        // Grey, but to be read: the styles' own grey of disabled text is paler than foresters' screens allow.
        const QColor text = palette.color(QPalette::Active, QPalette::Text);
        const QColor base = palette.color(QPalette::Active, QPalette::Base);
        return QColor((text.red() + base.red()) / 2, (text.green() + base.green()) / 2,
                      (text.blue() + base.blue()) / 2);
    }
    case ui::kColorButtonText: return palette.color(QPalette::Active, QPalette::ButtonText);
    default: break;
    }
    if ((color & 0x80000000u) != 0) return palette.color(QPalette::Active, QPalette::WindowText);
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

ControlView::ControlView(FormWindow& window, ui::Control& control) : window_(window), control_(&control)
{
    control.SetView(this);
}

ControlView::~ControlView()
{
    if (control_ != nullptr && control_->GetView() == this) control_->SetView(nullptr);
}

void ControlView::Gone()
{
    control_ = nullptr;
}

void ControlView::Leave()
{
    if (control_ != nullptr && control_->GetView() == this) control_->SetView(nullptr);
    Gone();
}

void ControlView::Changed(ui::Change what)
{
    dirty_ |= Bit(what);
    if (what == ui::Change::Geometry || what == ui::Change::Visible) window_.LabelsMoved();
    window_.ChangesWaiting();
}

void ControlView::SetWidget(QWidget* widget)
{
    widget_ = widget;
    if (control_ != nullptr) widget->setObjectName(ToQt(control_->FullName()));
}

void ControlView::SetAccessibleName(const QString& name)
{
    if (QWidget* widget = FocusWidget(); widget != nullptr) widget->setAccessibleName(name);
    if (widget_ != nullptr) widget_->setAccessibleName(name);
}

bool ControlView::IsBlocked() const
{
    if (control_ == nullptr) return true;
    for (const ui::Control* above = control_->Container(); above != nullptr; above = above->Container())
        if (!above->Enabled()) return true;
    return false;
}

QRect ControlView::Geometry() const
{
    return window_.GetScale().Rect(control_->Left(), control_->Top(), control_->Width(), control_->Height());
}

void ControlView::Place()
{
    if (control_ == nullptr || widget_ == nullptr) return;
    const QRect place = Geometry();
    if (widget_->geometry() != place) widget_->setGeometry(place);
}

void ControlView::ShowChanges()
{
    if (control_ == nullptr || widget_ == nullptr || dirty_ == 0) return;
    const unsigned changes = dirty_;
    dirty_ = 0;
    showing_ = true;
    if (Has(changes, ui::Change::Geometry)) Place();
    if (Has(changes, ui::Change::Enabled) && GreysOut()) widget_->setEnabled(control_->Enabled());
    if (Has(changes, ui::Change::Look)) {
        widget_->setToolTip(ToQt(control_->ToolTipText()));
        if (control_->FontBold()) {
            QFont font = window_.font();
            font.setBold(true);
            widget_->setFont(font);
        } else if (widget_->testAttribute(Qt::WA_SetFont)) {
            widget_->setFont(QFont());
        }
    }
    if (Has(changes, ui::Change::Colour) || Has(changes, ui::Change::Enabled)) ApplyColours();
    Show(changes);
    if (Has(changes, ui::Change::Visible)) {
        // A page that lies behind hides its controls without touching their own Visible.
        const auto* tabs = dynamic_cast<const ui::SSTab*>(control_->Container());
        widget_->setVisible(control_->Visible() && (tabs == nullptr || tabs->Tab() == control_->ContainerTab()));
    }
    showing_ = false;
}

void ControlView::ApplyColours()
{
    const QPalette inherited = window_.palette();
    QPalette palette = inherited;
    const QColor back = ToQtColor(control_->BackColor(), inherited);
    const bool ownBack = control_->BackColor() != ui::kColorButtonFace;
    if (ownBack) palette.setColor(QPalette::Window, back);
    if (control_->ForeColor() != ui::kColorButtonText && control_->ForeColor() != ui::kColorWindowText) {
        const QColor fore = ToQtColor(control_->ForeColor(), inherited);
        for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
            palette.setColor(role, fore);
    }
    widget_->setAutoFillBackground(ownBack);
    widget_->setPalette(palette);
}

void ControlView::DoubleClicked(const QMouseEvent&)
{
    Act([this] { control_->UserDblClick(); });
}

void ControlView::Act(const std::function<void()>& action)
{
    window_.Act(action);
}

std::unique_ptr<ControlView> MakeView(FormWindow& window, ui::Control& control, QWidget* parent)
{
    for (const auto make :
         {MakeTextView, MakeChoiceView, MakeButtonView, MakeStaticView, MakeListView, MakeGridView, MakeTreeView})
        if (std::unique_ptr<ControlView> view = make(window, control, parent)) return view;
    return nullptr;
}

}  // namespace kvx::adapters::qt

#include "adapters/qt/ControlView.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Strings.h"
#include "adapters/qt/TabStrip.h"
#include "ui/Frame.h"
#include "ui/Image.h"
#include "ui/Label.h"
#include "ui/ProgressBar.h"
#include "ui/SSTab.h"

#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QProgressBar>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

namespace kvx::adapters::qt {
namespace {

// A frame with its title in the line. Without a title it is a plain frame, with no gap above.
class FrameBox final : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QFontMetrics metrics(font());
        QString text = title();
        const int drop = metrics.height() / 2;
        const int indent = metrics.averageCharWidth();
        const QRectF frame = QRectF(rect()).adjusted(0.5, drop + 0.5, -0.5, -0.5);
        const QRect name(indent + 4, 0, metrics.horizontalAdvance(text.remove(QLatin1Char('&'))) + 8, metrics.height());
        painter.save();
        if (!title().isEmpty()) painter.setClipRegion(QRegion(rect()) - QRegion(name));
        QColor line = palette().color(QPalette::WindowText);
        line.setAlphaF(0.25f);
        painter.setPen(line);
        painter.drawRoundedRect(frame, 3, 3);
        painter.restore();
        if (title().isEmpty()) return;
        style()->drawItemText(&painter, name, Qt::AlignCenter | Qt::TextShowMnemonic, palette(), isEnabled(), title(),
                              QPalette::WindowText);
    }
};

class FrameView final : public ControlView {
public:
    FrameView(FormWindow& window, ui::Frame& frame, QWidget* parent)
        : ControlView(window, frame), frame_(frame), box_(new FrameBox(parent))
    {
        SetWidget(box_);
        window.Watch(box_, this);
    }
    bool ClicksByMouse() const override { return true; }

protected:
    void Show(unsigned changes) override
    {
        if (Has(changes, ui::Change::Text) || Has(changes, ui::Change::Look)) box_->setTitle(ToQt(frame_.Caption()));
    }
    bool GreysOut() const override { return false; }

private:
    ui::Frame& frame_;
    FrameBox* box_;
};

class LabelView final : public ControlView {
public:
    LabelView(FormWindow& window, ui::Label& label, QWidget* parent)
        : ControlView(window, label), label_(label), text_(new QLabel(parent))
    {
        SetWidget(text_);
        text_->setTextFormat(Qt::PlainText);
        text_->setMargin(0);
        text_->setIndent(0);
        window.Watch(text_, this);
    }
    bool ClicksByMouse() const override { return true; }

    void Changed(ui::Change what) override
    {
        ControlView::Changed(what);
        Window().LabelsMoved();
    }

protected:
    void Show(unsigned) override
    {
        text_->setText(ToQt(label_.Caption()));
        const Qt::Alignment across = label_.Alignment() == 1   ? Qt::AlignRight
                                     : label_.Alignment() == 2 ? Qt::AlignHCenter
                                                               : Qt::AlignLeft;
        const bool lines = TakesLines();
        text_->setWordWrap(lines);
        text_->setAlignment(across | (lines ? Qt::AlignTop : Qt::AlignVCenter));
        if (StandsOnFrame()) text_->setAutoFillBackground(true);  // the line must not run through the words
        Place();
    }

    // The room of the design, and more where the words of today's font need it and nothing stands there. In a row with
    // a box the label stands level with it.
    QRect Geometry() const override
    {
        QRect place = ControlView::Geometry();
        const QFontMetrics metrics(text_->font());
        if (TakesLines()) return place;
        if (StandsOnFrame()) {
            const int width = metrics.horizontalAdvance(ToQt(label_.Caption()));
            place.setHeight(metrics.height());
            place.setWidth(label_.Caption().empty() ? 0 : std::min(place.width(), width + metrics.averageCharWidth()));
            return place;
        }
        if (const ui::Control* box = BoxInRow(); box != nullptr) {
            const QRect row = Window().GetScale().Rect(box->Left(), box->Top(), box->Width(), box->Height());
            place.setTop(row.top());
            place.setHeight(row.height());
        } else if (place.height() < metrics.height()) {
            place.setTop(place.top() - (metrics.height() - place.height()) / 2);
            place.setHeight(metrics.height());
        }
        const int wanted = metrics.size(Qt::TextSingleLine | Qt::TextShowMnemonic, ToQt(label_.Caption())).width() + 1;
        if (wanted > place.width()) Widen(place, wanted);
        return place;
    }

private:
    bool TakesLines() const
    {
        if (label_.AutoSize()) return label_.WordWrap();
        const int height = Window().GetScale().Y(label_.Height());
        return label_.WordWrap() || height >= QFontMetrics(text_->font()).height() * 17 / 10;
    }

    // The title of a frame that has none of its own: on the frame's upper line, not inside it.
    bool StandsOnFrame() const
    {
        return !TakesLines() && std::ranges::any_of(label_.Owner().Controls(), [this](const ui::Control* other) {
            return other->TypeName() == "Frame" && IsNeighbour(*other) && other->Top() == label_.Top() &&
                   other->Left() <= label_.Left() && other->Left() + other->Width() >= label_.Left() + label_.Width();
        });
    }

    bool IsNeighbour(const ui::Control& other) const
    {
        return &other != &label_ && other.Container() == label_.Container() && other.Visible() &&
               other.ContainerTab() == label_.ContainerTab();
    }

    // The nearest one-line box whose row the label stands in.
    const ui::Control* BoxInRow() const
    {
        const ui::Control* nearest = nullptr;
        const std::int32_t middle = label_.Top() + label_.Height() / 2;
        for (const ui::Control* other : label_.Owner().Controls()) {
            const std::string_view kind = other->TypeName();
            if (!IsNeighbour(*other) || other->Height() > 450) continue;
            if (kind != "TextBox" && kind != "ComboBox" && kind != "DTPicker") continue;
            if (middle < other->Top() || middle > other->Top() + other->Height()) continue;
            if (std::abs(middle - (other->Top() + other->Height() / 2)) > 120) continue;
            if (nearest == nullptr ||
                std::abs(other->Left() - label_.Left()) < std::abs(nearest->Left() - label_.Left()))
                nearest = other;
        }
        return nearest;
    }

    void Widen(QRect& place, int wanted) const
    {
        int left = 0;
        int right = text_->parentWidget()->width();
        for (const ui::Control* other : label_.Owner().Controls()) {
            if (!IsNeighbour(*other) || other->TypeName() == "Frame") continue;
            const QRect theirs = Window().GetScale().Rect(other->Left(), other->Top(), other->Width(), other->Height());
            if (theirs.bottom() < place.top() || theirs.top() > place.bottom()) continue;
            if (theirs.left() >= place.right()) right = std::min(right, theirs.left() - 3);
            if (theirs.right() <= place.left()) left = std::max(left, theirs.right() + 3);
        }
        const int more = wanted - place.width();
        if (label_.Alignment() == 1) {
            place.setLeft(std::max(left, place.left() - more));
        } else if (label_.Alignment() == 2) {
            place.setLeft(std::max(left, place.left() - more / 2));
            place.setRight(std::min(right, place.right() + (more + 1) / 2));
        } else {
            place.setRight(std::max(place.right(), std::min(right, place.right() + more)));
        }
    }

    ui::Label& label_;
    QLabel* text_;
};

class ProgressView final : public ControlView {
public:
    ProgressView(FormWindow& window, ui::ProgressBar& bar, QWidget* parent)
        : ControlView(window, bar), bar_(bar), widget_(new QProgressBar(parent))
    {
        SetWidget(widget_);
        widget_->setRange(0, kSteps);
        widget_->setTextVisible(false);
    }

    void Changed(ui::Change what) override
    {
        ControlView::Changed(what);
        // The handler that moves it does not return to the message loop in between: paint now, but not for each step.
        if (what != ui::Change::Value || !widget_->isVisible()) return;
        if (painted_.isValid() && painted_.elapsed() < kPaintInterval) return;
        painted_.restart();
        Window().PaintNow(widget_);
    }

protected:
    void Show(unsigned) override
    {
        const double part = (bar_.Value() - bar_.Min()) / (bar_.Max() - bar_.Min());
        widget_->setValue(static_cast<int>(std::lround(part * kSteps)));
    }

private:
    static constexpr int kSteps = 1000;
    static constexpr int kPaintInterval = 40;  // ms
    ui::ProgressBar& bar_;
    QProgressBar* widget_;
    QElapsedTimer painted_;
};

// A picture, and for the picture box a frame around it.
template <class C>
class PictureView final : public ControlView {
public:
    PictureView(FormWindow& window, C& control, QWidget* parent)
        : ControlView(window, control), control_(control), label_(new QLabel(parent))
    {
        SetWidget(label_);
        label_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        if constexpr (std::is_same_v<C, ui::PictureBox>) label_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        window.Watch(label_, this);
    }
    bool ClicksByMouse() const override { return true; }

protected:
    void Show(unsigned) override
    {
        bool stretch = false;
        if constexpr (std::is_same_v<C, ui::Image>) stretch = control_.Stretch();
        const QString path = ToQt(control_.Picture().Path());
        if (path != path_) {
            path_ = path;
            picture_ = path.isEmpty() ? QPixmap() : QPixmap(path);
        }
        if (stretch && !picture_.isNull())
            label_->setPixmap(picture_.scaled(label_->size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        else
            label_->setPixmap(picture_);
    }
    bool GreysOut() const override { return false; }

private:
    C& control_;
    QLabel* label_;
    QString path_;
    QPixmap picture_;
};

class TabView final : public ControlView {
public:
    TabView(FormWindow& window, ui::SSTab& tabs, QWidget* parent)
        : ControlView(window, tabs), tabs_(tabs), strip_(new TabStrip(parent))
    {
        SetWidget(strip_);
        strip_->setFocusPolicy(Qt::TabFocus);
        window.Watch(strip_, this);
        strip_->chosen = [this](int tab) { Act([this, tab] { tabs_.UserSelectTab(static_cast<std::int16_t>(tab)); }); };
    }

protected:
    void Show(unsigned) override
    {
        std::vector<TabStrip::Tab> tabs;
        for (std::int16_t i = 0; i < tabs_.Tabs(); ++i)
            tabs.push_back({ToQt(tabs_.TabCaption(i)), tabs_.TabEnabled(i), tabs_.TabVisible(i)});
        strip_->SetTabs(std::move(tabs), tabs_.TabsPerRow(), tabs_.Tab());
        if (shown_ == tabs_.Tab()) return;
        shown_ = tabs_.Tab();
        for (ui::Control* control : tabs_.Owner().Controls())
            if (control->Container() == &tabs_) control->Notify(ui::Change::Visible);
    }
    bool GreysOut() const override { return false; }

private:
    ui::SSTab& tabs_;
    TabStrip* strip_;
    std::int16_t shown_ = -1;
};

}  // namespace

std::unique_ptr<ControlView> MakeStaticView(FormWindow& window, ui::Control& control, QWidget* parent)
{
    if (auto* frame = dynamic_cast<ui::Frame*>(&control)) return std::make_unique<FrameView>(window, *frame, parent);
    if (auto* label = dynamic_cast<ui::Label*>(&control)) return std::make_unique<LabelView>(window, *label, parent);
    if (auto* bar = dynamic_cast<ui::ProgressBar*>(&control))
        return std::make_unique<ProgressView>(window, *bar, parent);
    if (auto* image = dynamic_cast<ui::Image*>(&control))
        return std::make_unique<PictureView<ui::Image>>(window, *image, parent);
    if (auto* box = dynamic_cast<ui::PictureBox*>(&control))
        return std::make_unique<PictureView<ui::PictureBox>>(window, *box, parent);
    if (auto* tabs = dynamic_cast<ui::SSTab*>(&control)) return std::make_unique<TabView>(window, *tabs, parent);
    return nullptr;
}

}  // namespace kvx::adapters::qt

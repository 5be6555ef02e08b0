#include "ui/SSTab.h"

#include "ui/MemberRows.h"

namespace kvx::ui {

SSTab::SSTab(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<SSTab>& SSTab::Members()
{
    using namespace rows;
    using T = SSTab;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Tab, &T::SetTab>("Tab"),
        ReadWrite<T, &T::Tab, &T::SetTab>(""),
        ReadWrite<T, &T::Tabs, &T::SetTabs>("Tabs"),
        ReadWrite<T, &T::TabsPerRow, &T::SetTabsPerRow>("TabsPerRow"),
        ReadOnly<T, &T::Rows>("Rows"),
        ReadOnly<T, &T::Caption>("Caption"),
        Indexed<T, &T::TabCaption, &T::SetTabCaption>("TabCaption"),
        Indexed<T, &T::TabEnabled, &T::SetTabEnabled>("TabEnabled"),
        Indexed<T, &T::TabVisible, &T::SetTabVisible>("TabVisible"),
    };
    static constexpr basic::MemberTable<T> kTable{"SSTab", kRows};
    return kTable;
}

void SSTab::Reset()
{
    Control::Reset();
    pages_.assign(3, {});
    tabsPerRow_ = 3;
    tab_ = 0;
}

std::size_t SSTab::Place(std::int16_t tab) const
{
    if (tab < 0 || tab >= Tabs()) basic::Raise(basic::kErrInvalidProperty);
    return static_cast<std::size_t>(tab);
}

void SSTab::SetTabs(std::int16_t count)
{
    if (count < 1) basic::Raise(basic::kErrInvalidProperty);
    pages_.resize(static_cast<std::size_t>(count));
    Notify(Change::Items);
    if (tab_ >= count) SetTab(static_cast<std::int16_t>(count - 1));
}

void SSTab::SetTabsPerRow(std::int16_t count)
{
    if (count < 1) basic::Raise(basic::kErrInvalidProperty);
    tabsPerRow_ = count;
    Notify(Change::Items);
}

std::int16_t SSTab::Rows() const
{
    return static_cast<std::int16_t>((Tabs() + tabsPerRow_ - 1) / tabsPerRow_);
}

void SSTab::SetTab(std::int16_t tab)
{
    Place(tab);
    if (tab == tab_) return;
    const std::int16_t before = tab_;
    tab_ = tab;
    NotifyContents(Change::Visible);
    Notify(Change::Selection);
    Click.Raise(before);
}

const std::string& SSTab::TabCaption(std::int16_t tab) const
{
    return pages_[Place(tab)].caption;
}

void SSTab::SetTabCaption(std::int16_t tab, std::string_view caption)
{
    pages_[Place(tab)].caption = caption;
    Notify(Change::Items);
}

bool SSTab::TabEnabled(std::int16_t tab) const
{
    return pages_[Place(tab)].enabled;
}

void SSTab::SetTabEnabled(std::int16_t tab, bool enabled)
{
    pages_[Place(tab)].enabled = enabled;
    Notify(Change::Items);
}

bool SSTab::TabVisible(std::int16_t tab) const
{
    return pages_[Place(tab)].visible;
}

void SSTab::SetTabVisible(std::int16_t tab, bool visible)
{
    pages_[Place(tab)].visible = visible;
    Notify(Change::Items);
}

void SSTab::UserSelectTab(std::int16_t tab)
{
    if (pages_[Place(tab)].enabled && pages_[Place(tab)].visible) SetTab(tab);
}

bool SSTab::DefaultKeyDown(std::int16_t keyCode, std::int16_t)
{
    const int step = keyCode == vbKeyLeft ? -1 : keyCode == vbKeyRight ? 1 : 0;
    if (step == 0) return false;
    for (int tab = tab_ + step; tab >= 0 && tab < Tabs(); tab += step) {
        const Page& page = pages_[static_cast<std::size_t>(tab)];
        if (!page.enabled || !page.visible) continue;
        SetTab(static_cast<std::int16_t>(tab));
        break;
    }
    return true;
}

}  // namespace kvx::ui

#pragma once

#include "ui/ControlOf.h"

#include <string>
#include <vector>

namespace kvx::ui {

/// A strip of tabs with a page each. A control says by SetContainer and SetContainerTab on which page it stands.
class SSTab final : public ControlOf<SSTab> {
public:
    SSTab(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "SSTab"; }
    static const basic::MemberTable<SSTab>& Members();

    std::int16_t Tabs() const { return static_cast<std::int16_t>(pages_.size()); }
    void SetTabs(std::int16_t count);  ///< 3 at first. @throws basic::Error 380: below 1
    std::int16_t TabsPerRow() const { return tabsPerRow_; }
    void SetTabsPerRow(std::int16_t count);  ///< @throws basic::Error 380: below 1
    std::int16_t Rows() const;
    std::int16_t Tab() const { return tab_; }  ///< from 0
    /// Raises Click with the tab before on a change. @throws basic::Error 380: no such tab
    void SetTab(std::int16_t tab);
    const std::string& TabCaption(std::int16_t tab) const;  ///< @throws basic::Error 380
    void SetTabCaption(std::int16_t tab, std::string_view caption);
    bool TabEnabled(std::int16_t tab) const;
    void SetTabEnabled(std::int16_t tab, bool enabled);
    bool TabVisible(std::int16_t tab) const;
    void SetTabVisible(std::int16_t tab, bool visible);
    /// Caption of the present tab.
    const std::string& Caption() const { return TabCaption(tab_); }

    void Reset() override;

    void UserSelectTab(std::int16_t tab);
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;

    ui::Event<std::int16_t> Click;  ///< the tab before

private:
    struct Page {
        std::string caption;
        bool enabled = true, visible = true;
    };
    std::size_t Place(std::int16_t tab) const;  // @throws 380
    std::vector<Page> pages_;
    std::int16_t tabsPerRow_ = 3, tab_ = 0;
};

}  // namespace kvx::ui

#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class QStyleOptionTab;

namespace kvx::adapters::qt {

/// Tabs in one or several rows above a page. The row of the chosen tab stands lowest, next to its page.
class TabStrip final : public QWidget {
public:
    struct Tab {
        QString caption;
        bool enabled = true;
        bool visible = true;
    };

    explicit TabStrip(QWidget* parent);

    void SetTabs(std::vector<Tab> tabs, int perRow, int current);
    int Current() const { return current_; }
    QRect TabRect(int tab) const;          ///< empty for a hidden tab
    int TabAt(const QPoint& point) const;  ///< -1 = none

    std::function<void(int)> chosen;  ///< the user pressed a tab

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct RowLayout {
        std::vector<int> edges;  ///< pixels, one more than tabs in the row
        int stretch = 100;       ///< width of the letters, percent
    };
    RowLayout LayOutRow(int row) const;
    int RowHeight() const;
    int RowCount() const;
    void InitOption(QStyleOptionTab& option, int tab) const;

    std::vector<Tab> tabs_;
    int perRow_ = 3, current_ = 0;
};

}  // namespace kvx::adapters::qt

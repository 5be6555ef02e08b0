#include "adapters/qt/QtDesktop.h"
#include "ui/Form.h"
#include "ui/TreeView.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>

// How a tree of stands behaves in a real window: filled, opened wholly, scrolled by pages, single nodes opened and
// closed. One line: rows=N first_paint_ms=A open_ms=B page_ms=C page_max_ms=D reopen_ms=E
namespace {

using namespace kvx;
using Clock = std::chrono::steady_clock;

double MillisecondsOf(const std::function<void()>& work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

class TreeForm final : public ui::Form {
public:
    TreeForm() : Form("TreeForm") {}
    ui::TreeView TreeView1{*this, "TreeView1"};

    /// Adds nodes as a forest has them: twenty children a node down to the fourth level, the rest below these.
    /// @return nodes added
    int Fill(int rows, bool open)
    {
        const ui::TreeView::Loading loading{TreeView1};
        const ui::Node root = TreeView1.Add("ROOT", "Basis");
        root.SetExpanded(true);
        TreeView1.SetSelectedItem(root);
        int left = rows;
        const int leaves = std::max(1, rows / (20 * 20 * 20));
        for (int a = 0; a < 20 && left > 0; ++a) {
            const ui::Node first = Add(root, a, open, left);
            for (int b = 0; b < 20 && left > 0; ++b) {
                const ui::Node second = Add(first, b, open, left);
                for (int c = 0; c < 20 && left > 0; ++c) {
                    const ui::Node third = Add(second, c, open, left);
                    for (int d = 0; d < leaves && left > 0; ++d)
                        Add(third, d, false, left);
                }
            }
        }
        return rows - left;
    }

protected:
    void Design() override
    {
        SetSize(9000, 9000);
        TreeView1.Move(0, 0, 8800, 8500);
        TreeView1.SetPathKeys("ROOT", "K", "\r\n");
    }

private:
    ui::Node Add(const ui::Node& parent, int number, bool open, int& left)
    {
        std::string part = std::to_string(1000 + number);
        const ui::Node node = TreeView1.AddChild(parent, part, part);
        if (open) node.SetExpanded(true);
        --left;
        return node;
    }
};

}  // namespace

int main(int argc, char** argv)
{
    int rows = 1000000;
    bool window = false;
    for (int i = 1; i < argc; ++i) {
        window = window || std::strcmp(argv[i], "window") == 0;
        if (std::strcmp(argv[i], "--rows") == 0 && i + 1 < argc) rows = std::atoi(argv[++i]);
    }
    if (!window || rows < 1) {
        std::fprintf(stderr, "usage: kvx_bench_qt window [--rows N]\n");
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    adapters::qt::QtDesktop::UseDefaultLook(app);
    adapters::qt::QtDesktop desktop;
    ui::SetCurrentDesktop(&desktop);

    TreeForm form;
    QTimer::singleShot(0, [&] {
        auto* area = static_cast<QAbstractScrollArea*>(desktop.WidgetOf(form.TreeView1));
        const auto paint = [&] {
            desktop.DoEvents();
            area->viewport()->repaint();
        };
        form.Fill(rows, /*open=*/false);
        const double firstPaint = MillisecondsOf(paint);
        form.TreeView1.Clear();
        const int filled = form.Fill(rows, /*open=*/true);
        const double open = MillisecondsOf(paint);

        QScrollBar* bar = area->verticalScrollBar();
        constexpr int kPages = 200;
        double sum = 0, longest = 0;
        for (int page = 0; page < kPages; ++page) {
            const double time = MillisecondsOf([&] {
                bar->setValue(static_cast<int>(static_cast<long long>(bar->maximum()) * page / kPages));
                area->viewport()->repaint();
            });
            sum += time;
            longest = std::max(longest, time);
        }
        const ui::Node root = form.TreeView1.FirstTop();
        form.TreeView1.UserExpand(root, false);
        paint();
        const double reopen = MillisecondsOf([&] {
            form.TreeView1.UserExpand(root, true);
            paint();
        });
        std::printf("rows=%d first_paint_ms=%.1f open_ms=%.1f page_ms=%.2f page_max_ms=%.2f reopen_ms=%.1f\n", filled,
                    firstPaint, open, sum / kPages, longest, reopen);
        form.UserClose();
    });
    form.Show();
    return 0;
}

#include "adapters/qt/TreeRows.h"
#include "ui/Form.h"
#include "ui/TreeView.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace kvx::adapters::qt {
namespace {

// Rows as walking over the open part of the tree gives them.
void Walk(const ui::Node& first, std::vector<ui::Node>& rows)
{
    for (ui::Node node = first; node != nullptr; node = node.Next()) {
        rows.push_back(node);
        if (node.Expanded()) Walk(node.Child(), rows);
    }
}

class TreeForm final : public ui::Form, public ui::TreeListener {
public:
    TreeForm() : Form("TreeForm")
    {
        Load();
        TreeView1.SetListener(this);
    }
    ui::TreeView TreeView1{*this, "TreeView1"};
    TreeRows rows{TreeView1};

    void NodesReset() override { rows.Reset(); }
    void NodeInserting(const ui::Node&, std::int32_t) override {}
    void NodeInserted(const ui::Node& node) override { rows.Inserted(node); }
    void NodeRemoving(const ui::Node& node) override { rows.Removing(node); }
    void NodeRemoved(const ui::Node&, std::int32_t) override {}
    void NodeChanged(const ui::Node&) override {}
    void NodeExpanded(const ui::Node& node) override { rows.OpenChanged(node); }
    void SelectionChanged(const ui::Node&) override {}
    void EnsureVisible(const ui::Node&) override {}
    void EditStarted(const ui::Node&) override {}
    void EditEnded(const ui::Node&) override {}

    void ExpectSameAsWalking()
    {
        std::vector<ui::Node> walked;
        Walk(TreeView1.FirstTop(), walked);
        ASSERT_EQ(rows.Count(), static_cast<std::int32_t>(walked.size()));
        for (std::size_t i = 0; i < walked.size(); ++i) {
            const auto row = static_cast<std::int32_t>(i);
            ASSERT_EQ(rows.At(row), walked[i]) << "row " << i;
            ASSERT_EQ(rows.RowOf(walked[i]), row);
            ASSERT_EQ(TreeRows::Below(walked[i]), i + 1 < walked.size() ? walked[i + 1] : ui::Node{});
        }
        EXPECT_EQ(rows.At(rows.Count()), nullptr);
    }

protected:
    void Design() override {}
};

TEST(TreeRows, AClosedNodeTakesOneRow)
{
    TreeForm form;
    const ui::Node top = form.TreeView1.Add("ROOT", "Basis");
    const ui::Node child = form.TreeView1.Add(top, ui::tvwChild, "a", "a");
    EXPECT_EQ(form.rows.Count(), 1);
    EXPECT_EQ(form.rows.RowOf(child), -1);
    top.SetExpanded(true);
    EXPECT_EQ(form.rows.Count(), 2);
    EXPECT_EQ(form.rows.RowOf(child), 1);
}

TEST(TreeRows, WhatWasOpenInsideShowsAgain)
{
    TreeForm form;
    const ui::Node top = form.TreeView1.Add("ROOT", "Basis");
    const ui::Node child = form.TreeView1.Add(top, ui::tvwChild, "a", "a");
    form.TreeView1.Add(child, ui::tvwChild, "b", "b");
    child.SetExpanded(true);
    top.SetExpanded(true);
    EXPECT_EQ(form.rows.Count(), 3);
    top.SetExpanded(false);
    top.SetExpanded(true);
    form.ExpectSameAsWalking();
}

TEST(TreeRows, EveryChangeLeavesTheRowsThatWalkingGives)
{
    TreeForm form;
    std::mt19937 random(7);
    std::vector<ui::Node> nodes{form.TreeView1.Add("ROOT", "Basis")};
    EXPECT_EQ(form.rows.Count(), 1);
    for (int step = 0; step < 1500; ++step) {
        const ui::Node node = nodes[random() % nodes.size()];
        if (!node.IsThere()) continue;
        const auto kind = random() % 10;
        const std::string key = "n" + std::to_string(step);
        if (kind < 4)
            nodes.push_back(form.TreeView1.Add(node, ui::tvwChild, key, key));
        else if (kind < 5)
            nodes.push_back(form.TreeView1.Add(node, ui::tvwPrevious, key, key));
        else if (kind < 9)
            node.SetExpanded(!node.Expanded());
        else if (form.TreeView1.Count() > 20)
            form.TreeView1.Remove(node);
        if (step % 25 == 0) {
            form.ExpectSameAsWalking();
            if (testing::Test::HasFatalFailure()) FAIL() << "after step " << step;
        }
        if (form.TreeView1.Count() == 0) nodes.push_back(form.TreeView1.Add("R" + key, "Basis"));
    }
}

TEST(TreeRows, AMassLoadIsCountedAnew)
{
    TreeForm form;
    const ui::Node top = form.TreeView1.Add("ROOT", "Basis");
    top.SetExpanded(true);
    EXPECT_EQ(form.rows.Count(), 1);
    {
        const ui::TreeView::Loading loading{form.TreeView1};
        for (int i = 0; i < 500; ++i)
            form.TreeView1.Add(top, ui::tvwChild, "k" + std::to_string(i), "x");
    }
    EXPECT_EQ(form.rows.Count(), 501);
    EXPECT_EQ(form.rows.At(300).Key(), "k299");
}

}  // namespace
}  // namespace kvx::adapters::qt

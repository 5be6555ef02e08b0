#include "ui/FormTest.h"

#include "basic/Convert.h"
#include "ui/Button.h"
#include "ui/TreeView.h"

namespace kvx::ui::testing {
namespace {

class Forest : public TestForm {
public:
    Forest()
    {
        const auto note = [this](const char* what) {
            return [this, what](Node& node) { log.push_back(std::string{what} + " " + node.Text()); };
        };
        tree.NodeClick.Connect(note("NodeClick"));
        tree.NodeCheck.Connect(note("NodeCheck"));
        tree.Expand.Connect(note("Expand"));
        tree.Collapse.Connect(note("Collapse"));
        Watch(tree.Click, "Click");
        Watch(tree.BeforeLabelEdit, "BeforeLabelEdit");
        tree.AfterLabelEdit.Connect([this](bool&, std::string& text) {
            const Node node = tree.SelectedItem();
            log.push_back("AfterLabelEdit " + (node.IsThere() ? node.Text() : std::string{}) + " -> " + text);
        });
        design = [this] {
            tree.Add("ROOT", "Basis");
            tree.Add("ROOT", tvwChild, "N", "Nord");
            tree.Add("N", tvwChild, "N1", "1");
            tree.Add("ROOT", tvwChild, "S", "Süd");
        };
    }
    TreeView tree{*this, "tree"};
    Button ok{*this, "ok"};
};

class Trees : public FormTest {
protected:
    void SetUp() override { form.Load(); }
    std::string Children(const Node& parent)
    {
        std::string texts;
        for (Node child = parent.Child(); child != nullptr; child = child.Next())
            texts += child.Text() + " ";
        return texts;
    }
    Forest form;
    TreeView& tree = form.tree;
};

TEST_F(Trees, AddPutsANodeWhereTheRelationshipSays)
{
    tree.Add("S", tvwFirst, "", "first");
    tree.Add("N", tvwLast, "", "last");
    tree.Add("N", tvwNext, "", "next");
    tree.Add("N", tvwPrevious, "", "previous");
    EXPECT_EQ(Children(tree.Item("ROOT")), "first previous Nord next Süd last ");
    tree.Add("", "top");
    EXPECT_EQ(tree.TopCount(), 2);
    EXPECT_EQ(tree.TopAt(1).Text(), "top");
}

TEST_F(Trees, AddRefusesUnknownRelativesAndBadKeys)
{
    EXPECT_EQ(ErrorOf([&] { tree.Add("nobody", tvwChild, "x", "x"); }), 35601);
    EXPECT_EQ(ErrorOf([&] { tree.Add("S", tvwChild, "N1", "taken"); }), 35602);
    EXPECT_EQ(ErrorOf([&] { tree.Add("S", tvwChild, "12", "a number"); }), 35603);
    EXPECT_EQ(ErrorOf([&] { tree.Item(0); }), 35600);
    EXPECT_EQ(ErrorOf([&] { tree.Item(5); }), 35600);
    EXPECT_EQ(tree.Count(), 4);
    EXPECT_EQ(tree.Add("S", tvwChild, "", "no key").Key(), "");
}

TEST_F(Trees, KeysAreComparedExactly)
{
    EXPECT_EQ(tree.Add("S", tvwChild, "n1", "other case").Key(), "n1");
    EXPECT_EQ(tree.Find("n2"), nullptr);
}

TEST_F(Trees, NodesAreOneCollectionInOrderOfCreation)
{
    tree.Add("N", tvwFirst, "A", "Anfang");
    EXPECT_EQ(tree.Item(2).Text(), "Nord");
    EXPECT_EQ(tree.Item(5).Text(), "Anfang");
    tree.Remove("N");
    EXPECT_EQ(tree.Count(), 3);
    EXPECT_EQ(tree.Item(2).Text(), "Süd");
    EXPECT_EQ(tree.Item("A").Index(), 3);
}

TEST_F(Trees, TheUsersSelectionsRaiseNodeClickThenClick)
{
    Run(form, [&](User& user) {
        form.log.clear();
        user.Select("tree", {"Nord"});
        EXPECT_EQ(form.log, (Log{"Expand Basis", "NodeClick Nord", "Click"}));
        form.log.clear();
        user.Keys("{DOWN}");
        EXPECT_EQ(form.log, (Log{"NodeClick Süd", "Click"}));
        EXPECT_EQ(tree.SelectedItem().Key(), "S");
    });
}

TEST_F(Trees, SelectionByCodeRaisesNothing)
{
    Run(form, [&](User&) {
        tree.Item("ROOT").SetExpanded(true);
        form.log.clear();
        tree.SetSelectedItem(tree.Item("S"));
        tree.Item("N").SetSelected(true);
        EXPECT_EQ(tree.SelectedItem(), tree.Item("N"));
    });
    EXPECT_EQ(form.log, Log{});
}

TEST_F(Trees, ArrowsOpenAndCloseAndClimb)
{
    Run(form, [&](User& user) {
        user.Select("tree", {});
        user.Keys("{RIGHT}{RIGHT}{RIGHT}{RIGHT}");
        EXPECT_EQ(tree.SelectedItem().Text(), "1");
        user.Keys("{LEFT}");
        EXPECT_EQ(tree.SelectedItem().Text(), "Nord");
        user.Keys("{LEFT}{END}");
        EXPECT_EQ(tree.SelectedItem().Text(), "Süd");
        user.Keys("{HOME}");
        EXPECT_EQ(tree.SelectedItem().Text(), "Basis");
    });
}

TEST_F(Trees, ALabelEditOpensWithItsTextFullyMarked)
{
    Run(form, [&](User&) {
        tree.SetSelectedItem(tree.Item("N"));
        tree.StartLabelEdit();
        EXPECT_TRUE(tree.IsEditing());
        EXPECT_EQ(tree.EditText(), "Nord");
        EXPECT_EQ(tree.EditSelStart(), 0);
        EXPECT_EQ(tree.EditSelLength(), 4);
        tree.StartLabelEdit("Neuer Wo");
        EXPECT_EQ(tree.EditText(), "Neuer Wo");
        EXPECT_EQ(tree.EditSelLength(), 8);
    });
}

TEST_F(Trees, AnEditThatAButtonBeginsTakesTheKeys)
{
    form.ok.Click.Connect([this] { tree.StartLabelEdit(); });
    Run(form, [&](User& user) {
        user.Select("tree", {"Nord"});
        user.Click("ok");
        EXPECT_TRUE(tree.HasFocus());
        user.Keys("West{ENTER}");
        EXPECT_EQ(tree.Item("N").Text(), "West");
        EXPECT_FALSE(tree.IsEditing());
    });
}

TEST_F(Trees, BeforeLabelEditMayRefuse)
{
    tree.BeforeLabelEdit.Connect([](bool& cancel) { cancel = true; });
    Run(form, [&](User&) {
        tree.SetSelectedItem(tree.Item("N"));
        tree.StartLabelEdit();
        EXPECT_FALSE(tree.IsEditing());
    });
}

TEST_F(Trees, EnterEndsAnEditAndTheNodeStillHasItsOldTextInTheHandler)
{
    Run(form, [&](User& user) {
        user.Select("tree", {"Nord"});
        form.log.clear();
        user.EditLabel("tree", "Norden");
    });
    EXPECT_EQ(form.log, (Log{"BeforeLabelEdit", "AfterLabelEdit Nord -> Norden"}));
    EXPECT_EQ(tree.Item("N").Text(), "Norden");
}

TEST_F(Trees, FocusLossEndsAnEditAsEnterDoes)
{
    Run(form, [&](User& user) {
        user.Select("tree", {"Nord"});
        user.Keys("{F2}xy");
        form.log.clear();
        user.Focus("ok");
    });
    EXPECT_EQ(form.log, Log{"AfterLabelEdit Nord -> xy"});
    EXPECT_EQ(tree.Item("N").Text(), "xy");
}

TEST_F(Trees, EscEndsAnEditWithoutAfterLabelEdit)
{
    Run(form, [&](User& user) {
        form.ok.SetCancel(true);
        user.Select("tree", {"Nord"});
        form.log.clear();
        user.Keys("{F2}xy{ESC}");
        EXPECT_TRUE(form.Visible());
    });
    EXPECT_EQ(form.log, Log{"BeforeLabelEdit"});
    EXPECT_EQ(tree.Item("N").Text(), "Nord");
}

TEST_F(Trees, EnterWithoutAlterationRaisesAfterLabelEditToo)
{
    Run(form, [&](User& user) {
        user.Select("tree", {"Nord"});
        form.log.clear();
        user.Keys("{F2}{ENTER}");
    });
    EXPECT_EQ(form.log, (Log{"BeforeLabelEdit", "AfterLabelEdit Nord -> Nord"}));
}

TEST_F(Trees, TheHandlerMayCancelOrChangeTheNewText)
{
    bool refuse = true;
    tree.AfterLabelEdit.Connect([&](bool& cancel, std::string& text) {
        cancel = refuse;
        text = "geändert";
    });
    Run(form, [&](User& user) {
        user.Select("tree", {"Nord"});
        user.EditLabel("tree", "x");
        EXPECT_EQ(tree.Item("N").Text(), "Nord");
        refuse = false;
        user.EditLabel("tree", "x");
        EXPECT_EQ(tree.Item("N").Text(), "geändert");
    });
}

TEST_F(Trees, AnEditRestartedInItsEndHandlerBeginsAfterwards)
{
    bool inHandler = false;
    tree.AfterLabelEdit.Connect([&](bool& cancel, std::string& text) {
        if (text != "schlecht") return;
        inHandler = true;
        cancel = true;
        tree.StartLabelEdit(text);
        EXPECT_FALSE(tree.IsEditing());
        inHandler = false;
    });
    tree.BeforeLabelEdit.Connect([&](bool&) { EXPECT_FALSE(inHandler); });
    Run(form, [&](User& user) {
        user.Select("tree", {"Nord"});
        user.EditLabel("tree", "schlecht");
        EXPECT_TRUE(tree.IsEditing());
        EXPECT_EQ(tree.EditText(), "schlecht");
        user.EditLabel("tree", "gut");
        EXPECT_FALSE(tree.IsEditing());
    });
    EXPECT_EQ(tree.Item("N").Text(), "gut");
}

TEST_F(Trees, ARestartedEditOfAFormThatIsGoneComesToNothing)
{
    auto other = std::make_unique<Forest>();
    other->tree.AfterLabelEdit.Connect([&](bool&, std::string&) { other->tree.StartLabelEdit(); });
    other->Load();
    other->tree.SetSelectedItem(other->tree.Item("N"));
    other->tree.StartLabelEdit();
    other->tree.UserEndEdit(true);
    other.reset();
    desktop.Settle();
    SUCCEED() << "the address sanitizer watches";
}

TEST_F(Trees, ANodeRemovedInTheEndHandlerStaysRemoved)
{
    tree.AfterLabelEdit.Connect([&](bool&, std::string&) { tree.Remove(tree.SelectedItem()); });
    Run(form, [&](User& user) {
        user.Select("tree", {"Nord", "1"});
        user.EditLabel("tree", "");
    });
    EXPECT_EQ(tree.Find("N1"), nullptr);
}

TEST_F(Trees, RemoveTakesTheSubtreeAndMovesTheSelectionSilently)
{
    tree.SetSelectedItem(tree.Item("N1"));
    form.log.clear();
    tree.Remove("N");
    EXPECT_EQ(tree.Count(), 2);
    EXPECT_EQ(tree.SelectedItem().Text(), "Süd");
    tree.Remove("S");
    EXPECT_EQ(tree.SelectedItem().Text(), "Basis");
    EXPECT_EQ(form.log, Log{});
}

TEST_F(Trees, AKeyCanBeChangedAndOnlyThisOne)
{
    tree.Item("N").SetKey("NEU");
    EXPECT_EQ(tree.Item("NEU").Text(), "Nord");
    EXPECT_EQ(tree.Find("N"), nullptr);
    EXPECT_EQ(tree.Item("N1").Parent(), tree.Item("NEU"));
    EXPECT_EQ(ErrorOf([&] { tree.Item("NEU").SetKey("S"); }), 35602);
    EXPECT_EQ(ErrorOf([&] { tree.Item("NEU").SetKey("NEU"); }), 0);
}

TEST_F(Trees, ATreeWithoutSelectionHasNothingSelected)
{
    EXPECT_EQ(tree.SelectedItem(), nullptr);
    EXPECT_EQ(ErrorOf([&] { tree.SelectedItem().Text(); }), 91);
    Run(form, [&](User&) { EXPECT_EQ(tree.SelectedItem().Text(), "Basis") << "the focus selects the first node"; });
    EXPECT_EQ(form.log, Log{});
}

TEST_F(Trees, AHandleOfARemovedNodeNeverMeansAnother)
{
    const Node gone = tree.Item("S");
    tree.Remove(gone);
    tree.Add("ROOT", tvwChild, "S", "Süd");
    EXPECT_FALSE(gone.IsThere());
    EXPECT_EQ(ErrorOf([&] { gone.Text(); }), kErrNodeGone);
    const Node root = tree.Item("ROOT");
    tree.Clear();
    tree.Add("ROOT", "Basis");
    EXPECT_EQ(ErrorOf([&] { root.Text(); }), kErrNodeGone);
}

TEST_F(Trees, ColourBoldCheckAndTagStayWithTheNode)
{
    const Node node = tree.Item("N");
    EXPECT_EQ(node.ForeColor(), kColorWindowText);
    node.SetForeColor(kColorGrayText);
    node.SetBold(true);
    node.SetChecked(true);
    node.SetTag("USERS_TREEVIEW = 1");
    EXPECT_EQ(node.ForeColor(), 0x80000011);
    EXPECT_TRUE(node.Bold() && node.Checked());
    EXPECT_EQ(node.Tag(), "USERS_TREEVIEW = 1");
    EXPECT_EQ(tree.Item("S").ForeColor(), kColorWindowText);
    for (Color colour = 1; colour < 600; ++colour)
        tree.Add("S", tvwChild, "", "x").SetForeColor(colour);
    EXPECT_EQ(tree.Item("S").ChildAt(598).ForeColor(), 599u) << "more colours than a palette has";
    EXPECT_EQ(node.ForeColor(), kColorGrayText);
}

TEST_F(Trees, EnsureVisibleOpensWhatIsAbove)
{
    EXPECT_TRUE(tree.Item("N1").EnsureVisible());
    EXPECT_TRUE(tree.Item("ROOT").Expanded() && tree.Item("N").Expanded());
    EXPECT_FALSE(tree.Item("N1").EnsureVisible());
}

TEST_F(Trees, ASortedNodeKeepsItsChildrenInOrder)
{
    const Node root = tree.Item("ROOT");
    tree.Add("ROOT", tvwChild, "", "alt");
    root.SetSorted(true);
    EXPECT_EQ(Children(root), "alt Nord Süd ");
    tree.Add("ROOT", tvwChild, "", "Mitte");
    tree.Add("ROOT", tvwChild, "", "zuletzt");
    EXPECT_EQ(Children(root), "alt Mitte Nord Süd zuletzt ");
}

TEST_F(Trees, AWindowHearsEveryChangeAndOneResetForALoad)
{
    class Listener : public TreeListener {
    public:
        Log log;
        void NodesReset() override { log.push_back("reset"); }
        void NodeInserting(const Node& parent, std::int32_t position) override
        {
            log.push_back("inserting " + parent.Text() + " " + std::to_string(position));
        }
        void NodeInserted(const Node& node) override { log.push_back("inserted " + node.Text()); }
        void NodeRemoving(const Node& node) override { log.push_back("removing " + node.Text()); }
        void NodeRemoved(const Node& parent, std::int32_t position) override
        {
            log.push_back("removed " + parent.Text() + " " + std::to_string(position));
        }
        void NodeChanged(const Node& node) override { log.push_back("changed " + node.Text()); }
        void NodeExpanded(const Node& node) override { log.push_back("expanded " + node.Text()); }
        void SelectionChanged(const Node& node) override
        {
            log.push_back("selected " + (node == nullptr ? std::string{"nothing"} : node.Text()));
        }
        void EnsureVisible(const Node&) override {}
        void EditStarted(const Node& node) override { log.push_back("edit " + node.Text()); }
        void EditEnded(const Node& node) override { log.push_back("edit ended " + node.Text()); }
    } listener;
    tree.SetListener(&listener);
    tree.Add("N", tvwPrevious, "M", "Mitte").SetText("Mittel");
    tree.SetSelectedItem(tree.Item("M"));
    tree.StartLabelEdit();
    tree.UserEndEdit(false);
    tree.Remove("M");
    {
        const TreeView::Loading loading{tree};
        for (int i = 0; i < 5; ++i)
            tree.Add("S", tvwChild, "", std::to_string(i));
    }
    tree.SetListener(nullptr);
    EXPECT_EQ(listener.log, (Log{"inserting Basis 0", "inserted Mitte", "changed Mittel", "expanded Basis",
                                 "selected Mittel", "edit Mittel", "edit ended Mittel", "removing Mittel",
                                 "removed Basis 0", "selected Nord", "reset"}));
}

TEST_F(Trees, LateBindingFindsNodesByIndexAndKey)
{
    const basic::ObjectRef object = tree.Object();
    const basic::ObjectRef nodes = object->Get("Nodes").ToObject();
    EXPECT_EQ(basic::CLng(nodes->Get("Count")), 4);
    const basic::Variant key{"N"};
    const basic::ObjectRef node = nodes->Get("Item", {&key, 1}).ToObject();
    EXPECT_EQ(node->TypeName(), "Node");
    EXPECT_EQ(basic::CStr(node->Get("Text")), "Nord");
    node->Put("Checked", true);
    EXPECT_TRUE(tree.Item("N").Checked());
    std::vector<basic::Variant> args{node, std::int16_t{tvwChild}, "N2", "2"};
    EXPECT_EQ(basic::CStr(nodes->Call("Add", args).ToObject()->Get("Key")), "N2");
    EXPECT_EQ(basic::CLng(node->Get("Children")), 2);
    object->Put("SelectedItem", node);
    EXPECT_EQ(tree.SelectedItem().Text(), "Nord");
    EXPECT_EQ(ErrorOf([&] { node->Get("Colour"); }), 438);
    EXPECT_EQ(node->Get("Parent").ToObject()->Get("Key").As<std::string>()->compare("ROOT"), 0);
}

}  // namespace
}  // namespace kvx::ui::testing

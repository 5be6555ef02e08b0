#include "ui/FormTest.h"

#include "ui/TreeView.h"

#include <string>

// Trees whose keys are paths, and what a million nodes cost.
namespace kvx::ui::testing {
namespace {

class PathTree : public FormTest {
protected:
    class TreeForm : public TestForm {
    public:
        TreeView tree{*this, "tree"};
    } form;
    TreeView& tree = form.tree;

    void SetUp() override
    {
        form.Load();
        tree.SetPathKeys("ROOT", "K", "\r\n");
        root = tree.Add("ROOT", "Basis");
    }
    Node root;
};

TEST_F(PathTree, AKeyIsTheParentsKeyAndTheOwnPart)
{
    const Node north = tree.AddChild(root, "Nord", "Nord");
    const Node one = tree.AddChild(north, "1", "1");
    EXPECT_EQ(root.Key(), "ROOT");
    EXPECT_EQ(north.Key(), "K\r\nNord");
    EXPECT_EQ(one.Key(), "K\r\nNord\r\n1");
    EXPECT_EQ(tree.Find("K\r\nNord\r\n1"), one);
    EXPECT_EQ(tree.Find("ROOT"), root);
    EXPECT_EQ(tree.Find("K\r\nNord\r\n2"), nullptr);
    EXPECT_EQ(tree.Find("K"), nullptr);
    EXPECT_EQ(tree.FindChild(north, "1"), one);
}

TEST_F(PathTree, AddTakesTheFullKey)
{
    const Node north = tree.Add(root, tvwChild, "K\r\nNord", "Nord");
    EXPECT_EQ(north.KeyPart(), "Nord");
    tree.Add("K\r\nNord", tvwChild, "K\r\nNord\r\n1", "1");
    EXPECT_EQ(ErrorOf([&] { tree.Add(north, tvwChild, "K\r\nNord\r\n1", "again"); }), 35602);
    EXPECT_EQ(ErrorOf([&] { tree.Add("K\r\nSüd", tvwChild, "K\r\nSüd\r\n1", "1"); }), 35601);
    EXPECT_EQ(ErrorOf([&] { tree.AddChild(north, "1", "again"); }), 35602);
    EXPECT_EQ(tree.TryAddChild(north, "1", "again"), nullptr);
    EXPECT_EQ(tree.Count(), 3);
}

TEST_F(PathTree, DoublesAreFoundWhateverTheOrder)
{
    for (const char* part : {"b", "d", "c", "a"})
        EXPECT_NE(tree.TryAddChild(root, part, part), nullptr) << part;
    for (const char* part : {"a", "b", "c", "d"})
        EXPECT_EQ(tree.TryAddChild(root, part, part), nullptr) << part;
    EXPECT_NE(tree.TryAddChild(root, "e", "e"), nullptr);
    EXPECT_EQ(root.Children(), 5);
}

TEST_F(PathTree, ARenameCarriesTheKeysOfTheSubtreeAlong)
{
    const Node north = tree.AddChild(root, "Nord", "Nord");
    const Node leaf = tree.AddChild(tree.AddChild(north, "1", "1"), "a", "a");
    ASSERT_EQ(tree.Find("K\r\nNord\r\n1\r\na"), leaf);
    north.SetKey("K\r\nSüd");
    EXPECT_EQ(leaf.Key(), "K\r\nSüd\r\n1\r\na");
    EXPECT_EQ(tree.Find("K\r\nSüd\r\n1\r\na"), leaf);
    EXPECT_EQ(tree.Find("K\r\nNord\r\n1\r\na"), nullptr);
    EXPECT_EQ(tree.Find("K\r\nNord"), nullptr);
    EXPECT_EQ(north.Text(), "Nord") << "the text is another matter";
}

TEST_F(PathTree, ANodeKeepsItsKeyWhenItsTextChanges)
{
    const Node node = tree.AddChild(root, "Neu", "Neu");
    node.SetText("Alt");
    EXPECT_EQ(node.Key(), "K\r\nNeu");
    node.SetKeyPart("Alt");
    EXPECT_EQ(node.Key(), "K\r\nAlt");
    node.SetText("Ein langer anderer Text");
    EXPECT_EQ(tree.Find("K\r\nAlt"), node);
    EXPECT_EQ(node.Text(), "Ein langer anderer Text");
}

TEST_F(PathTree, ASiblingsKeyIsRefused)
{
    const Node a = tree.AddChild(root, "a", "a");
    tree.AddChild(root, "b", "b");
    EXPECT_EQ(ErrorOf([&] { a.SetKey("K\r\nb"); }), 35602);
    EXPECT_EQ(ErrorOf([&] { a.SetKeyPart("b"); }), 35602);
    EXPECT_EQ(ErrorOf([&] { a.SetKeyPart("a"); }), 0);
    EXPECT_EQ(a.Key(), "K\r\na");
}

TEST_F(PathTree, APartWithASeparatorIsStillOneNode)
{
    const Node odd = tree.AddChild(root, "Nord\r\n1", "odd");
    EXPECT_EQ(tree.Find("K\r\nNord\r\n1"), odd);
    const Node north = tree.AddChild(root, "Nord", "Nord");
    EXPECT_EQ(tree.TryAddChild(north, "1", "1"), nullptr) << "the key is taken";
    EXPECT_EQ(tree.FindChild(root, "Nord\r\n1"), odd);
    EXPECT_EQ(tree.Find(tree.AddChild(north, "2", "2").Key()).Text(), "2");
}

TEST_F(PathTree, AStoredKeyBelowTheRootIsTheBaseOfItsChildren)
{
    const Node other = tree.Add(root, tvwChild, "other", "x");
    const Node child = tree.AddChild(other, "1", "1");
    EXPECT_EQ(child.Key(), "other\r\n1");
    EXPECT_EQ(tree.Find("other\r\n1"), child);
}

TEST_F(PathTree, RemovedNodesFreeTheirKeys)
{
    const Node north = tree.AddChild(root, "Nord", "Nord");
    tree.AddChild(north, "1", "1");
    tree.Remove(north);
    EXPECT_EQ(tree.Find("K\r\nNord\r\n1"), nullptr);
    const Node again = tree.AddChild(root, "Nord", "Nord");
    EXPECT_EQ(tree.Find("K\r\nNord"), again);
    EXPECT_EQ(again.Children(), 0);
}

TEST_F(PathTree, LongAndEmptyTextsSurvive)
{
    const std::string longText(1000, 'x');
    const Node node = tree.AddChild(root, longText, longText);
    const Node empty = tree.AddChild(root, "z", "");
    EXPECT_EQ(node.Text(), longText);
    EXPECT_EQ(node.Key(), "K\r\n" + longText);
    node.SetText(std::string(2000, 'y'));
    node.SetText("kurz");
    EXPECT_EQ(node.Text(), "kurz");
    EXPECT_EQ(node.Key(), "K\r\n" + longText);
    EXPECT_EQ(empty.Text(), "");
    EXPECT_EQ(empty.KeyPart(), "z");
}

TEST_F(PathTree, LookUpAgreesWithTheTreeAfterManyEdits)
{
    // A fixed sequence of adds, renames and removals, checked against the keys read back from the nodes.
    std::vector<Node> nodes{root};
    std::uint32_t seed = 12345;
    const auto next = [&seed](std::uint32_t below) {
        seed = seed * 1664525 + 1013904223;
        return (seed >> 8) % below;
    };
    for (int step = 0; step < 8000; ++step) {
        const Node node = nodes[next(static_cast<std::uint32_t>(nodes.size()))];
        if (!node.IsThere()) continue;
        const std::string part = std::to_string(next(200));
        const std::uint32_t what = next(10);
        if (what < 7 && node.Level() < 6) {
            if (const Node child = tree.TryAddChild(node, part, part); child != nullptr) nodes.push_back(child);
        } else if (what < 9 && node != root) {
            ErrorOf([&] { node.SetKeyPart(part); });
        } else if (node != root && node.Children() < 3) {
            tree.Remove(node);
        }
    }
    int there = 0;
    for (const Node& node : nodes) {
        if (!node.IsThere()) continue;
        ++there;
        EXPECT_EQ(tree.Find(node.Key()), node) << node.Key();
    }
    EXPECT_EQ(there, tree.Count());
    EXPECT_GT(there, 500);
}

TEST_F(PathTree, PositionsFollowInsertionsAndRemovals)
{
    for (const char* part : {"a", "b", "c", "d"})
        tree.AddChild(root, part, part);
    tree.Remove(root.ChildAt(1));
    tree.Add(root.ChildAt(0), tvwPrevious, "K\r\n0", "0");
    std::string texts;
    for (std::int32_t i = 0; i < root.Children(); ++i) {
        texts += root.ChildAt(i).Text();
        EXPECT_EQ(root.ChildAt(i).Position(), i);
    }
    EXPECT_EQ(texts, "0acd");
    EXPECT_EQ(root.LastChild().Text(), "d");
    EXPECT_EQ(root.LastChild().Previous().Text(), "c");
    EXPECT_EQ(root.Child().Previous(), nullptr);
}

// Levels as a forest has them; texts of two to six characters that rise among siblings.
void Grow(TreeView& tree, const Node& root, int count)
{
    Node level1, level2, level3, level4;
    int made = 0;
    const auto add = [&](const Node& parent, int number, std::size_t digits) {
        std::string text = std::to_string(number);
        if (text.size() < digits) text.insert(0, digits - text.size(), '0');
        ++made;
        return tree.AddChild(parent, text, text);
    };
    for (int i = 0; made < count; ++i) {
        if (i % 10000 == 0) level1 = add(root, i / 10000, 6);
        if (i % 1000 == 0) level2 = add(level1, i / 1000, 6);
        if (i % 100 == 0) level3 = add(level2, i / 100 % 100, 2);
        if (i % 10 == 0) level4 = add(level3, i / 10 % 10, 4);
        add(level4, i % 10, 3);
    }
}

TEST_F(PathTree, ANodeTakesAtMost44BytesAnd64WithLookUp)
{
    constexpr int kNodes = 1'000'000;
    tree.BeginLoad();
    Grow(tree, root, kNodes);
    tree.EndLoad();
    const double perNode = static_cast<double>(tree.MemoryBytes()) / tree.Count();
    EXPECT_LE(perNode, 44.0);
    // Enough look-ups that the index pays.
    Node node = root;
    while (node.Child() != nullptr)
        node = node.LastChild();
    for (int i = 0; i < 200000; ++i)
        ASSERT_EQ(tree.Find(node.Key()), node);
    const double withLookUp = static_cast<double>(tree.MemoryBytes()) / tree.Count();
    EXPECT_LE(withLookUp, 64.0);
    RecordProperty("bytes_per_node", std::to_string(perNode));
    RecordProperty("bytes_with_lookup", std::to_string(withLookUp));
}

TEST_F(PathTree, GreyNodesCostNoMore)
{
    Grow(tree, root, 100'000);
    const std::size_t before = tree.MemoryBytes();
    for (Node node = root.Child(); node != nullptr; node = node.Child())
        node.SetForeColor(kColorGrayText);
    for (std::int32_t i = 1; i <= tree.Count(); ++i)
        tree.Item(i).SetForeColor(kColorGrayText);
    EXPECT_EQ(tree.MemoryBytes(), before);
}

}  // namespace
}  // namespace kvx::ui::testing

#include "stands/F_Waldort.h"
#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "common/M_Common.h"
#include "ui/Desktop.h"

#include <algorithm>

namespace kvx {

namespace {

// Columns of the tree's statement behind the six levels.
constexpr std::size_t kOwnColumn = 6, kCentralColumn = 7;

// Padded columns, and Oracle's "WO1 || ' '", end in blanks that belong to no level.
std::string_view WithoutTrailingBlanks(std::string_view text)
{
    const std::size_t end = text.find_last_not_of(' ');
    return end == std::string_view::npos ? std::string_view{} : text.substr(0, end + 1);
}

std::string NodeKey(const std::array<std::string_view, kStandLevels>& levels, std::size_t count)
{
    std::string key = "K";
    for (std::size_t i = 0; i < count; ++i)
        key.append(kLevelSeparator).append(levels[i]);
    return key;
}

// How many levels the row uses; 0 when it uses none or leaves one out in between: then it is no node.
std::size_t LevelsUsed(const std::array<std::string_view, kStandLevels>& levels)
{
    const auto used = std::ranges::find_if(levels, &std::string_view::empty);
    const bool hasGap = std::any_of(used, levels.end(), [](std::string_view level) { return !level.empty(); });
    return hasGap ? 0 : static_cast<std::size_t>(used - levels.begin());
}

}  // namespace

void F_Waldort::Form_Activate()
{
    if (blnActivated) return;
    // Set first: a load that fails must not start again at every activation.
    blnActivated = true;
    struct Done {
        F_Waldort& form;
        ~Done()
        {
            form.ProgressBar1.SetValue(0);
            form.ProgressBar1.SetVisible(false);
            form.SetMousePointer(ui::vbDefault);
        }
    } const done{*this};

    ui::CurrentDesktop().DoEvents();
    if (!Visible()) return;  // closed before anything was read: nothing is loaded, and no row is made
    ProgressBar1.SetMin(0);
    ProgressBar1.SetMax(100);
    ProgressBar1.SetValue(0);
    ProgressBar1.SetVisible(true);
    LoadTree();
    if (const ui::Node first = TreeView1.FirstTop()) {
        TreeView1.SetSelectedItem(first);
        first.SetExpanded(true);
    }
    btnLoschen.SetEnabled(false);
    chkDisable.SetVisible(true);
}

void F_Waldort::LoadTree()
{
    TreeView1.Clear();
    TreeView1.Add("ROOT", GetText(190));
    const std::string condition =
        ZeroIfNull(kvxvar, "DISABLE") + " = 0 AND " + AccessCondition(kvxvar, ID_AL) + RootCondition();

    ado::Recordset stands;
    stands.Open(TreeStatement(condition), kvxvar.dbAdo);
    if (stands.Eof()) return;
    const ado::RowBlock rows = stands.GetRows();
    stands.Close();
    FillTree(rows);
}

namespace {

// SQL Server's form, on Oracle too.
std::string LevelEqualsOrIsUnused(std::size_t level, const std::string& value)
{
    return "ISNULL(" + LevelColumn(level) + ",'" + value + "') = '" + value + "'";
}

}  // namespace

// Restricts the tree to the subtree of the root stand. A level that is NULL in deeper rows' ancestors passes, so that
// the way down to the root stand is there.
std::string F_Waldort::RootCondition()
{
    intRootLevels = 0;
    if (ID_WALDORT_Root == 0) return {};
    ado::Recordset root;
    root.Open("SELECT WO1,WO2,WO3,WO4,WO5,WO6 FROM WALDORT WHERE ID_WALDORT = " + std::to_string(ID_WALDORT_Root),
              kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    std::string condition;
    if (root.Eof()) return condition;
    for (std::size_t level = 1; level <= kStandLevels && !root[level - 1].IsNull(); ++level) {
        const std::string value(root[level - 1].TextView());
        condition += " AND " + (level == 1 ? LevelEquals(level, value) : LevelEqualsOrIsUnused(level, value));
        intRootLevels = static_cast<std::int16_t>(level);
    }
    return condition;
}

std::string F_Waldort::TreeStatement(const std::string& condition) const
{
    const std::string own =
        ID_AL == 0 ? "1" : "(CASE WHEN " + AccessCondition(kvxvar, kvxvar.ID_ACCESS_LEVELS) + " THEN 1 ELSE 0 END)";
    const std::string flags = own + " AS AL, (CASE WHEN ZENTRALE = 1 THEN 1 ELSE 0 END) AS ZENTRALE";
    const std::string from = " FROM WALDORT WHERE " + condition + ") A ORDER BY WO1,WO2,WO3,WO4,WO5,WO6";
    if (kvxvar.bOracle != 0)
        return "SELECT WO1,WO2,WO3,WO4,WO5,WO6,AL,ZENTRALE FROM (SELECT /*+ FIRST_ROWS */ WO1 || ' ' AS WO1,"
               "WO2 || ' ' AS WO2,WO3 || ' ' AS WO3,WO4 || ' ' AS WO4,WO5 || ' ' AS WO5,WO6 || ' ' AS WO6," +
               flags + from;
    return "SELECT * FROM (SELECT WO1,WO2,WO3,WO4,WO5,WO6," + flags + from;
}

void F_Waldort::ShowProgress(std::size_t done, std::size_t count)
{
    ProgressBar1.SetValue(static_cast<float>(std::min<std::size_t>(100, count == 0 ? 100 : done * 100 / count)));
}

// One pass over a million rows: they come in order, so the parent of a row is nearly always on the path of nodes that
// leads to the row before it. Only where it is not is it looked up by its key.
void F_Waldort::FillTree(const ado::RowBlock& rows)
{
    const ui::TreeView::Loading loading(TreeView1);
    const bool allGrey = blnOnlyRead || ID_WALDORT_Root != 0;
    std::array<std::string_view, kStandLevels> levels;  // of the current row
    std::array<ui::Node, kStandLevels + 1> path;        // path[n]: node of the first n levels
    std::size_t depth = 0;                              // how far the path is that of the current row
    path[0] = TreeView1.FirstTop();

    for (std::size_t row = 0; row < rows.Rows(); ++row) {
        if (row % 100 == 0) ShowProgress(row + 1, rows.Rows());
        for (std::size_t i = 0; i < kStandLevels; ++i) {
            if (rows.SameAsPrevious(i, row)) continue;
            const std::string_view level = WithoutTrailingBlanks(rows.Text(i, row));
            if (level == levels[i]) continue;
            levels[i] = level;
            depth = std::min(depth, i);
        }
        const std::size_t used = LevelsUsed(levels);
        // Several rows with the same levels are one node, and it keeps the colour of the first.
        if (used == 0 || used <= depth) continue;
        if (depth < used - 1) {
            const std::string parentKey = NodeKey(levels, used - 1);
            ui::Node parent = TreeView1.Find(parentKey);
            if (!parent) {
                EnsureParents(parentKey);
                parent = TreeView1.Find(parentKey);
            }
            if (!parent) continue;
            depth = used - 1;
            // All of it: keys that differ in case only lie mixed, and an equal level may hang on another branch.
            for (std::size_t level = depth; level > 0; --level, parent = parent.Parent())
                path[level] = parent;
        }
        const std::string_view text = levels[used - 1];
        const ui::Node node = TreeView1.TryAddChild(path[used - 1], text, text);
        if (!node) continue;
        // The grey colour is the only store of "not yours": the node can be picked, but not renamed or deleted.
        if (allGrey || rows.Int(kOwnColumn, row) != 1 || rows.Int(kCentralColumn, row) == 1)
            node.SetForeColor(ui::kColorGrayText);
        path[used] = node;
        depth = used;
    }
}

// Adds the levels of a node key that the tree lacks, and makes their rows: other systems deliver stands without the
// levels above. What another level or DISABLE hides counts as missing, too.
void F_Waldort::EnsureParents(std::string_view key)
{
    const std::vector<std::string> levels = LevelsOfNodeKey(key);
    ui::Node parent = TreeView1.Item("ROOT");
    std::string assignments, name;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        if (i > 0) {
            assignments += ",";
            name += " ";
        }
        assignments += LevelEquals(i + 1, levels[i]);
        name += levels[i];
        const ui::Node node = TreeView1.TryAddChild(parent, levels[i], levels[i]);
        if (!node) {
            parent = TreeView1.FindChild(parent, levels[i]);
            continue;
        }
        if (blnOnlyRead || ID_WALDORT_Root != 0) node.SetForeColor(ui::kColorGrayText);
        parent = node;
        MakeRow(assignments, name);
    }
}

// The row of a node that has none.
void F_Waldort::MakeRow(const std::string& assignments, const std::string& name)
{
    const std::int32_t id = InsertStand(kvxvar);
    kvxvar.dbAdo.Execute("UPDATE WALDORT SET " + assignments + ",LANGNAME = '" + name +
                         "',ID_ACCESS_LEVELS = " + IdOrNull(ID_AL) + " WHERE ID_WALDORT = " + std::to_string(id));
}

}  // namespace kvx

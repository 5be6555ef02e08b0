#include "adapters/qt/TreeRows.h"

#include "ui/TreeView.h"

#include <algorithm>

namespace kvx::adapters::qt {

std::uint32_t TreeRows::KeyOf(const ui::Node& node)
{
    return node == nullptr ? ui::TreeStore::kNone : node.Id();
}

TreeRows::Level* TreeRows::Find(const ui::Node& node)
{
    const auto found = levels_.find(KeyOf(node));
    return found == levels_.end() ? nullptr : &found->second;
}

void TreeRows::Reset()
{
    levels_.clear();
    built_ = false;
}

void TreeRows::EnsureBuilt()
{
    if (built_) return;
    built_ = true;
    Open(ui::Node{});
}

ui::Node TreeRows::ChildAt(const ui::Node& parent, std::int32_t position)
{
    return parent == nullptr ? tree_.TopAt(position) : parent.ChildAt(position);
}

// Counts what is open below a node. @return its rows
std::int32_t TreeRows::Open(const ui::Node& node)
{
    Level level;
    std::int32_t before = 0;
    for (ui::Node child = node == nullptr ? tree_.FirstTop() : node.Child(); child != nullptr; child = child.Next()) {
        if (child.Expanded() && child.Children() > 0) {
            const std::int32_t rows = Open(child);
            level.kids.push_back({child, level.children, before, rows});
            before += rows;
        }
        ++level.children;
    }
    level.rows = level.children + before;
    const std::int32_t rows = level.rows;
    levels_.insert_or_assign(KeyOf(node), std::move(level));
    return rows;
}

void TreeRows::Forget(const ui::Node& node)
{
    const auto found = levels_.find(KeyOf(node));
    if (found == levels_.end()) return;
    const std::vector<Kid> kids = std::move(found->second.kids);
    levels_.erase(found);
    for (const Kid& kid : kids)
        Forget(kid.node);
}

// Row of a child within its parent's rows.
std::int32_t TreeRows::RowWithin(const Level& level, std::int32_t position)
{
    const auto behind = std::ranges::lower_bound(level.kids, position, {}, &Kid::position);
    if (behind == level.kids.begin()) return position;
    const Kid& ahead = *(behind - 1);
    return position + ahead.before + ahead.rows;
}

// The rows below a node became more or fewer: everything above counts on.
void TreeRows::Grow(const ui::Node& node, std::int32_t by)
{
    for (ui::Node at = node; by != 0; at = at.Parent()) {
        Level* level = Find(at);
        if (level == nullptr) return;
        level->rows += by;
        if (at == nullptr) return;
        Level* above = Find(at.Parent());
        if (above == nullptr) return;
        auto kid = std::ranges::find(above->kids, at, &Kid::node);
        if (kid == above->kids.end()) return;
        kid->rows += by;
        for (++kid; kid != above->kids.end(); ++kid)
            kid->before += by;
    }
}

std::int32_t TreeRows::Count()
{
    EnsureBuilt();
    return Find(ui::Node{})->rows;
}

ui::Node TreeRows::At(std::int32_t row)
{
    if (row < 0 || row >= Count()) return {};
    ui::Node parent;
    for (;;) {
        const Level& level = *Find(parent);
        // The last open child that begins at this row or above it.
        const auto behind =
            std::ranges::upper_bound(level.kids, row, {}, [](const Kid& kid) { return kid.position + kid.before; });
        if (behind == level.kids.begin()) return ChildAt(parent, row);
        const Kid& kid = *(behind - 1);
        const std::int32_t start = kid.position + kid.before;
        if (row == start) return kid.node;
        if (row > start + kid.rows) return ChildAt(parent, kid.position + row - start - kid.rows);
        row -= start + 1;
        parent = kid.node;
    }
}

std::int32_t TreeRows::RowOf(const ui::Node& node)
{
    EnsureBuilt();
    if (!node.IsThere()) return -1;
    std::int32_t row = 0;
    for (ui::Node at = node; at != nullptr; at = at.Parent()) {
        const Level* level = Find(at.Parent());
        if (level == nullptr) return -1;
        row += RowWithin(*level, at.Position()) + (at == node ? 0 : 1);
    }
    return row;
}

ui::Node TreeRows::Below(const ui::Node& node)
{
    if (node.Expanded())
        if (const ui::Node child = node.Child(); child != nullptr) return child;
    for (ui::Node at = node; at != nullptr; at = at.Parent())
        if (const ui::Node next = at.Next(); next != nullptr) return next;
    return {};
}

void TreeRows::Inserted(const ui::Node& node)
{
    if (!built_) return;
    const ui::Node parent = node.Parent();
    Level* level = Find(parent);
    if (level == nullptr) {
        if (parent != nullptr && parent.Expanded()) OpenChanged(parent);  // its first child
        return;
    }
    const std::int32_t position = node.Next() == nullptr ? level->children : node.Position();
    ++level->children;
    for (auto kid = std::ranges::lower_bound(level->kids, position, {}, &Kid::position); kid != level->kids.end();
         ++kid)
        ++kid->position;
    Grow(parent, 1);
}

void TreeRows::Removing(const ui::Node& node)
{
    if (!built_) return;
    const ui::Node parent = node.Parent();
    Level* level = Find(parent);
    if (level == nullptr) return;
    std::int32_t gone = 1;
    const std::int32_t position = node.Next() == nullptr ? level->children - 1 : node.Position();
    auto kid = std::ranges::lower_bound(level->kids, position, {}, &Kid::position);
    if (kid != level->kids.end() && kid->node == node) {
        const std::int32_t rows = kid->rows;
        gone += rows;
        Forget(node);
        level = Find(parent);
        kid = level->kids.erase(std::ranges::lower_bound(level->kids, position, {}, &Kid::position));
        for (auto behind = kid; behind != level->kids.end(); ++behind)
            behind->before -= rows;
    }
    for (; kid != level->kids.end(); ++kid)
        --kid->position;
    --level->children;
    Grow(parent, -gone);
    // A node without children is no open one.
    if (parent != nullptr && level->children == 0) OpenChanged(parent);
}

void TreeRows::OpenChanged(const ui::Node& node)
{
    if (!built_) return;
    const ui::Node parent = node.Parent();
    if (Find(parent) == nullptr) return;  // not in sight
    const bool was = Find(node) != nullptr;
    std::int32_t before = was ? Find(node)->rows : 0;
    const std::int32_t position = node.Position();
    // When called for the last child that goes, the node still counts it; its level knows better.
    const bool open = node.Expanded() && node.Children() > 0 && !(was && Find(node)->children == 0);
    if (was == open) return;
    std::int32_t rows = 0;
    if (open)
        rows = Open(node);
    else
        Forget(node);
    Level& level = *Find(parent);
    auto kid = std::ranges::lower_bound(level.kids, position, {}, &Kid::position);
    if (open) {
        const std::int32_t ahead = kid == level.kids.begin() ? 0 : (kid - 1)->before + (kid - 1)->rows;
        kid = level.kids.insert(kid, {node, position, ahead, rows});
        ++kid;
    } else {
        kid = level.kids.erase(kid);
    }
    for (; kid != level.kids.end(); ++kid)
        kid->before += rows - before;
    Grow(parent, rows - before);
}

}  // namespace kvx::adapters::qt

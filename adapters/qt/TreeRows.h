#pragma once

#include "ui/Node.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace kvx::ui {
class TreeView;
}

namespace kvx::adapters::qt {

/// The open part of a tree as numbered rows. Only open nodes are remembered, each with its open children and how many
/// rows these take; closed ones cost nothing. A row is found by halving within each level, so that a million open nodes
/// scroll like ten, and a node that opens or closes changes only the numbers above it.
class TreeRows {
public:
    explicit TreeRows(ui::TreeView& tree) : tree_(tree) {}

    /// Everything may be different: counted anew at the next question.
    void Reset();

    std::int32_t Count();
    ui::Node At(std::int32_t row);             ///< Nothing outside 0 .. Count - 1
    std::int32_t RowOf(const ui::Node& node);  ///< -1: something above it is closed, or it is gone
    /// The row below, by walking: quicker than asking At row by row. Nothing behind the last.
    static ui::Node Below(const ui::Node& node);

    void Inserted(const ui::Node& node);  ///< after it was linked
    void Removing(const ui::Node& node);  ///< before it goes
    void OpenChanged(const ui::Node& node);

private:
    struct Kid {  // an open child with children
        ui::Node node;
        std::int32_t position = 0;  // among its siblings
        std::int32_t before = 0;    // rows below the open siblings ahead of it
        std::int32_t rows = 0;      // rows below it
    };
    struct Level {
        std::vector<Kid> kids;
        std::int32_t children = 0;
        std::int32_t rows = 0;  // children and everything open below
    };

    static std::uint32_t KeyOf(const ui::Node& node);
    Level* Find(const ui::Node& node);  // nullptr: closed, or not in sight
    std::int32_t Open(const ui::Node& node);
    void Forget(const ui::Node& node);
    void Grow(const ui::Node& node, std::int32_t by);
    void EnsureBuilt();
    ui::Node ChildAt(const ui::Node& parent, std::int32_t position);
    static std::int32_t RowWithin(const Level& level, std::int32_t position);

    ui::TreeView& tree_;
    std::unordered_map<std::uint32_t, Level> levels_;
    bool built_ = false;
};

}  // namespace kvx::adapters::qt

#pragma once

#include <cstdint>

namespace kvx::ui {

/// What changed in a control or form, so that a window can show it. Lists, trees and grids add listeners of their own
/// for changes of single rows.
enum class Change : std::uint8_t {
    Text,
    Selection,  ///< caret and marked text; selected item of a list
    Enabled,    ///< own or container's
    Visible,    ///< own or container's
    Geometry,
    Colour,
    Items,
    Value,
    Focus,
    Look,  ///< anything else that is seen: caption, alignment, locked, tool tip, pointer, default button ...
};

/// The window side of a control or form. The control calls it after the change; it only reads, and never calls back
/// into handlers.
class View {
public:
    virtual ~View() = default;
    virtual void Changed(Change what) = 0;
    /// The control or form is about to be destroyed: the view must not touch it any more.
    virtual void Gone() {}
};

}  // namespace kvx::ui

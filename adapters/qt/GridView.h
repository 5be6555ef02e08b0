#pragma once

#include "adapters/qt/ControlView.h"
#include "adapters/qt/GridArea.h"

namespace kvx::adapters::qt {

/// A control of rows, and of columns perhaps, shown by a GridArea. The kinds say what the cells hold.
class GridView : public ControlView, public GridSource {
public:
    GridView(FormWindow& window, ui::Control& control, QWidget* parent);

    void Gone() override;

protected:
    void ApplyColours() override;
    /// Height of a row of texts: as designed, and never less than the font needs.
    int TextRowHeight(std::int32_t designTwips) const;

    static std::int16_t ShiftOf(Qt::KeyboardModifiers modifiers);

    GridArea* area_;
};

std::unique_ptr<ControlView> MakeTableView(FormWindow& window, ui::Control& control, QWidget* parent);

}  // namespace kvx::adapters::qt

#pragma once

class QWidget;

namespace kvx::adapters::qt {

/// Screen readers learn the rows of lists, grids and trees that are drawn here. Called once for an application; more
/// often does no harm.
void InstallAccessibility();

/// Tells screen readers that the current row of a grid or tree is another one.
void AnnounceCurrentRow(QWidget& area);

}  // namespace kvx::adapters::qt

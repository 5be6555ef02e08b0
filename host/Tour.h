#pragma once

#include "host/Options.h"

#include <filesystem>

namespace kvx::adapters::qt {
class QtDesktop;
}

namespace kvx::host {

class MainWindow;

/// Makes the folder, if need be. @throws StartError it cannot be made or written to
void PrepareTourFolder(const std::filesystem::path& folder);

/// Opens every dialog in its main modes, acts in it as a user would, and saves a picture "form-mode.png" of each and a
/// transcript: what was opened, what came back, what was sent to the database.
/// @return 0 when every dialog opened and closed cleanly, else 1
int RunTour(adapters::qt::QtDesktop& desktop, MainWindow& window, const Options& options);

}  // namespace kvx::host

#pragma once

#include "host/drive/Driver.h"

#include <filesystem>

namespace kvx::host::drive {

/// The database of a driver: that of the options, else the sample database.
/// @throws StartError it cannot be opened
Session OpenDriven(const Options& options, const std::filesystem::path& appFolder);

/// Writes answers to a file descriptor, each line at once.
AnswerSink WriteAnswersTo(int descriptor);

/// Serves standard input and output until the input ends, without windows.
/// @param begin  told of the desktop before the first message; empty = nobody
/// @param end    told when it is about to go
void Drive(const Options& options, const std::filesystem::path& appFolder,
           const std::function<void(ui::Desktop& desktop)>& begin, const std::function<void()>& end);

}  // namespace kvx::host::drive

#pragma once

#include <functional>
#include <string>

namespace kvx::adapters::office {

/// Runs work later, once the handler that is running now has returned; a desktop's Post does that.
using Defer = std::function<void(std::function<void()>)>;

/// Printed tables become .docx files, which the desktop's own program for such files opens.
///
/// A document is written when it is shown, and its opening is handed to defer: a list gets its heading rows and its
/// page number after it was shown, and the program must read the file that has them. What changes until then is
/// written just before the opening; what changes later is written at once.
/// @param folder  where the files go, made when it is missing; empty: the user's documents folder, or the home folder
///                when there is none, or the one for temporary files when there is no home
/// @param defer   empty: a document opens as soon as it is shown. The work raises basic::Error where a document cannot
///                be written (61, 70, 75, 76) or opened (53): a host that runs it in its message loop catches that
void RegisterOfficeWordProcessor(std::string folder = {}, Defer defer = {});

}  // namespace kvx::adapters::office

#pragma once

#include "basic/Object.h"
#include "host/Session.h"

#include <functional>

namespace kvx::host {

/// Program id under which the library looks for the outside application.
constexpr std::string_view kStandChooserId = "DSW2.n_choose_os";

/// Stands in for the outside application: its member of_show lets the user choose a stand from a list or type a key,
/// and returns address and levels in one text.
/// @param session  asked for at every call, so that a new login counts
basic::ObjectRef MakeStandChooser(std::function<const Session&()> session);

}  // namespace kvx::host

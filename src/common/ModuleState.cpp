#include "common/ModuleState.h"

namespace kvx {

ModuleState& Module()
{
    thread_local ModuleState state;
    return state;
}

}  // namespace kvx

#pragma once

#include <memory>
#include <string>

namespace kvx::os {
class WordApplication;
class WordDocument;
}  // namespace kvx::os

namespace kvx {

class c_Wagon;

/// What the library keeps between calls besides the form instances; nothing else is global.
struct ModuleState {
    bool blnFormOK = false;     ///< F_DBLogin and F_RechZusatz ended with OK
    std::string strFormResult;  ///< text that F_RechZusatz and the grid workspace leave for their caller
    std::shared_ptr<os::WordApplication> objWord;       ///< serves several prints; never released by the library
    std::shared_ptr<os::WordDocument> objWordDocument;  ///< the document printed last
    std::shared_ptr<c_Wagon> wagon;                     ///< exports every list; made at the first one
};

/// The state of this thread.
ModuleState& Module();

}  // namespace kvx

#pragma once

#include "basic/Variant.h"
#include "session/KvxVar.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kvx {

/// The code lists.
class c_Tabellen2 {
public:
    /// Edits a code list, or prints all its tabs.
    /// @param strTableName_dll    name of the list, for the protocol
    /// @param strProtokolPath_dll protocol file, empty = none; by reference, left as it is
    /// @param intIdString_dll     text id that chooses the list
    /// @param bolPrint            nonzero: print, do not show
    /// @param strUserName         name of the user, for the protocol
    /// @return Boolean: true when Speichern was pressed in a list of one value (ANLASSART); false for all others
    /// @throws basic::Error the provider's
    basic::Variant Tabellen2(const KvxVar& kvxvar, std::string_view strTableName_dll, std::string& strProtokolPath_dll,
                             std::int32_t intIdString_dll, std::int16_t bolPrint, std::string_view strUserName);
};

}  // namespace kvx

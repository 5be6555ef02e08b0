#pragma once

#include "session/SiblingClasses.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kvx::loc {

/// Words of the catalogue, changed by what the customer has worded anew in STRINGS (CUSTOM_<language>). The customer's
/// words are read by one statement at the first text that the object is asked for; a dialog makes an object of its own,
/// so that an edited wording shows at the next opening.
class Loc final : public c_Loc {
public:
    /// Sets what captions.tsv has for the form; a control that the form lacks is passed over. No statement runs.
    void LocalizeForm(const KvxVar& kvxvar, ui::Form& form) override;

    /// @throws basic::Error 5: neither catalogue nor customer has the id; the provider's, but for a database that has
    /// no
    ///         such table or column: then the catalogue's words stand
    std::string GetText(std::int32_t id, const KvxVar& kvxvar) override;

    /// @param command by reference: gets dbAdo, the procedure and the command type
    ado::Recordset RunProcedure(const KvxVar& kvxvar, std::string_view procedure, ado::Command& command) override;

private:
    void ReadCustomTexts(const KvxVar& kvxvar);

    bool read_ = false;
    std::uint64_t connectionId_ = 0; // whose words and in which language were read
    std::string language_;
    std::unordered_map<std::int32_t, std::string> customTexts_;
};

} // namespace kvx::loc

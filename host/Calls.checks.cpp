#include "host/Calls.h"

#include "basic/Text.h"
#include "entry/c_Message.h"
#include "ui/Desktop.h"

#include <algorithm>
#include <optional>

namespace kvx::host::calls {

namespace {

/// An id, and what the check wants to know beside it.
struct Asked {
    std::int32_t id = 0, other = 0;
};

// Both parted by ";"; the second may be left out.
// @return nothing: the user gave up
std::optional<Asked> AskId(const Call& call, const Words& what, std::string_view usual)
{
    const std::string text = ui::CurrentDesktop().InputBox(what.In(call.english), "Korvex", usual);
    if (basic::Trim(text).empty()) return std::nullopt;
    const std::size_t end = std::min(text.find(';'), text.size());
    Asked asked{.id = static_cast<std::int32_t>(basic::ReadVal(text.substr(0, end)))};
    if (end < text.size()) asked.other = static_cast<std::int32_t>(basic::ReadVal(text.substr(end + 1)));
    return asked;
}

void Tell(Call& call, std::int16_t isFree)
{
    call.outcome.Result(basic::BooleanText(isFree != 0));
}

}  // namespace

void CheckForstamt(Call& call)
{
    const auto asked = AskId(call,
                             {"Organisationseinheit (RELTABLE.ID) und Ebene, 1 = Forstamt:",
                              "Organisational unit (RELTABLE.ID) and level, 1 = forest office:"},
                             "2; 1");
    if (asked) Tell(call, c_Message().CheckForstamt(asked->id, asked->other, call.session.kvxvar));
}

void CheckPersonal(Call& call)
{
    const auto asked = AskId(call,
                             {"Person oder Firma (ID_PERSONAL) und Mandant, 0 = keiner:",
                              "Person or firm (ID_PERSONAL) and owner, 0 = none:"},
                             "13; 0");
    if (asked) Tell(call, c_Message().CheckPersonal(call.session.kvxvar, asked->id, asked->other));
}

void CheckPerson(Call& call)
{
    const auto asked =
        AskId(call, {"Rechnungsempfänger (ID_PERSONAL) und Rolle:", "Invoice party (ID_PERSONAL) and role:"}, "10; 1");
    if (!asked) return;
    const auto intKey = static_cast<std::uint8_t>(std::clamp(asked->other, 0, 255));
    Tell(call, c_Message().CheckPerson(call.session.kvxvar, asked->id, "R_KUNDE", intKey, asked->id));
}

void CheckArtikelWaren(Call& call)
{
    const auto asked = AskId(call, {"Ware (ART_ID):", "Article (ART_ID):"}, "6");
    if (asked) Tell(call, c_Message().CheckArtikelWaren(asked->id, call.session.kvxvar));
}

void GetArtikelNameWaren(Call& call)
{
    const auto asked = AskId(call, {"Ware (ART_ID):", "Article (ART_ID):"}, "6");
    if (asked) call.outcome.Result(c_Message().GetArtikelNameWaren(asked->id, call.session.kvxvar.dbAdo));
}

void CheckBBFTables(Call& call)
{
    const std::string list = ui::CurrentDesktop().InputBox(
        Words{"Liste in der Tabelle LEISTUNGSART:", "List in table LEISTUNGSART:"}.In(call.english), "Korvex", "ST");
    if (list.empty()) return;
    const Words prompt{"Diese Leistungsarten werden verwendet:", "These service types are in use:"};
    Tell(call, c_Message().CheckBBFTables(prompt.In(call.english), "LEISTUNGSART", list, call.session.kvxvar));
}

// As a host asks before it deletes a tree species.
void CheckTableToDel(Call& call)
{
    constexpr std::int32_t kTextList = 726, kTextSpecies = 178;
    const std::string species = TextOf(call.boxes.cmbWert);
    call.outcome.Result(
        c_Message().CheckTableToDel("SELECT LISTE FROM LOGS WHERE HA = '" + species + "' GROUP BY LISTE", kTextList,
                                    kTextSpecies, call.session.kvxvar));
}

}  // namespace kvx::host::calls

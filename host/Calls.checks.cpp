#include "host/Calls.h"

#include "basic/Text.h"
#include "entry/c_Message.h"
#include "ui/Desktop.h"

namespace kvx::host::calls {

namespace {

// @return nothing: the user gave up
std::optional<std::int32_t> AskId(const Call& call, const Words& what, std::string_view usual)
{
    const std::string text = ui::CurrentDesktop().InputBox(what.In(call.english), "Korvex", usual);
    if (basic::Trim(text).empty()) return std::nullopt;
    return static_cast<std::int32_t>(basic::ReadVal(text));
}

void Tell(Call& call, std::int16_t isFree)
{
    call.outcome.Result(basic::BooleanText(isFree != 0));
}

}  // namespace

void CheckForstamt(Call& call)
{
    const auto id = AskId(call, {"Forstamt (RELTABLE.ID):", "Forest office (RELTABLE.ID):"}, "2");
    if (id) Tell(call, c_Message().CheckForstamt(*id, 1, call.session.kvxvar));
}

void CheckPersonal(Call& call)
{
    const auto id = AskId(call, {"Person oder Firma (ID_PERSONAL):", "Person or firm (ID_PERSONAL):"}, "13");
    if (id) Tell(call, c_Message().CheckPersonal(call.session.kvxvar, *id, 0));
}

void CheckPerson(Call& call)
{
    const auto id = AskId(call, {"Rechnungsempfänger (ID_PERSONAL):", "Invoice party (ID_PERSONAL):"}, "10");
    if (id) Tell(call, c_Message().CheckPerson(call.session.kvxvar, *id, "R_KUNDE", 1, 0));
}

void CheckArtikelWaren(Call& call)
{
    const auto id = AskId(call, {"Ware (ART_ID):", "Article (ART_ID):"}, "6");
    if (id) Tell(call, c_Message().CheckArtikelWaren(*id, call.session.kvxvar));
}

void GetArtikelNameWaren(Call& call)
{
    const auto id = AskId(call, {"Ware (ART_ID):", "Article (ART_ID):"}, "6");
    if (id) call.outcome.Result(c_Message().GetArtikelNameWaren(*id, call.session.kvxvar.dbAdo));
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

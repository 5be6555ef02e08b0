#pragma once

#include "entry/c_Tabellen2.h"
#include "support/Scenario.h"
#include "support/Sent.h"
#include "tables/F_Tabellen2.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// What the tests of the code lists share. Their rows stand in tests/data/lists.sql.
namespace kvx::test {

using Script = std::function<void(Dialog&)>;

/// Text ids that choose a list.
enum ListId : std::int32_t {
    kLabels = 80,
    kRelations = 480,
    kColours = 496,
    kBark = 687,
    kMeasuring = 1127,
    kUnits = 1128,
    kTariffs = 1129,
    kReceipts = 1130,
    kIssues = 1131,
    kSkidding = 1132,
    kPartyGroups = 1170,
    kFreeFields = 1303,
    kWageReasons = 4245,
    kOccasions = 4735,
    kSpecialMarks = 4767,
    kFederalStates = 6224,
};

/// Opens a list; the script is what the user does in it, and must close it.
/// @return what the host gets: "Wahr" or "Falsch"
std::string Open(Scenario& s, std::int32_t id, const Script& script, std::string_view protocol = {});

/// Opens a list whose script makes something fail: the host must get this error.
void ExpectHostError(Scenario& s, std::int32_t id, std::int32_t number, std::string_view description);

F_Tabellen2& List(Dialog& f);

/// Rows of the grid as they are shown, visible columns joined by "|".
Lines Rows(Dialog& f);
/// Edit line: the three boxes and "x" for a set flag, joined by "|".
std::string EditLine(Dialog& f);
/// Which of Neu, Löschen, Speichern, Bearb. Abbr. can be pressed: "NL--".
std::string Buttons(Dialog& f);
/// Clicks a row of the grid, from 0.
void Go(Dialog& f, std::int32_t row);
/// Types over what a box holds.
void Retype(Dialog& f, std::string_view box, std::string_view text);

}  // namespace kvx::test

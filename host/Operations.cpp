#include "host/Operations.h"

#include "basic/Convert.h"
#include "basic/Text.h"
#include "host/Calls.h"

#include <cstdio>

namespace kvx::host {

namespace {

using namespace calls;

constexpr Words kSession{"&Sitzung", "&Session"}, kStands{"&Waldort", "S&tands"}, kMessages{"&Meldung", "&Messages"},
    kChecks{"&Prüfen", "&Checks"}, kTables{"&Tabellen", "Ta&bles"};
constexpr Words kEdit{"Anzeigen, anlegen, ändern, löschen", "Show, create, change, delete"};
constexpr Words kUsage{"Frei, oder in einer Liste, wo der Datensatz verwendet wird",
                       "Free, or in a list where the record is used"};

// clang-format off
constexpr Operation kOperations[] = {
    {kSession, "c_DBLogin", "DBLogin", {"&Anmelden …", "&Log in …"}, "Ctrl+L",
     {"Fragt nach Datenbank, Benutzer und Kennwort und verbindet neu",
      "Asks for database, user and password and connects anew"}, DBLogin},
    {kSession, "C_Version", "DLL_Version", {"&Version der Bibliothek", "&Version of the library"}, "",
     {"Haupt- und Unterversion der Formularbibliothek", "Major and minor version of the forms library"}, DLL_Version},

    {kStands, "c_Waldort", "Waldort", {"Waldort &wählen …", "&Pick a stand …"}, "F2",
     {"Füllt die Felder des Waldorts mit dem gewählten", "Fills the boxes of the stand with the one picked"}, Waldort},
    {kStands, "c_Waldort", "WaldortSimple", {"Waldorte &verwalten …", "&Maintain stands …"}, "F3",
     {"Anlegen, umbenennen, ändern, löschen", "Create, rename, change, delete"}, WaldortMaintain},
    {kStands, "c_Waldort", "WaldortSimple", {"Waldorte &ansehen …", "&View stands …"}, "F4",
     {"Der Baum, ohne dass sich etwas ändern lässt", "The tree, and nothing can be changed"}, WaldortView},
    {kStands, "c_Waldort", "WaldortSimple", {"Waldorte &drucken", "P&rint stands"}, "",
     {"Druckt alle Waldorte, ohne ein Fenster zu zeigen", "Prints all stands and shows no window"}, WaldortPrint},
    {kStands, "c_Waldort", "WaldortId", {"&Id eines Waldorts holen …", "&Get the id of a stand …"}, "F5",
     {"Gibt Id und Anzeigetext des gewählten Waldorts", "Gives id and display text of the stand picked"}, WaldortIdOne},
    {kStands, "c_Waldort", "WaldortId", {"Waldorte in die &Liste …", "Stands into the &list …"}, "F6",
     {"Mehrere Waldorte nacheinander in die Liste wählen", "Pick stand after stand into the list"}, WaldortIdList},
    {kStands, "c_Waldort", "WaldortArbeits", {"Waldort des A&rbeitsauftrags …", "Stand of the &work order …"}, "F7",
     {"Mandant BB: über die Auswahl von DSW2, wenn sie eingeschaltet ist",
      "Client BB: by the selection of DSW2 when it is switched on"}, WaldortArbeits},
    {kStands, "c_Waldort", "Waldort_ID", {"Id &zum Schlüssel", "Id of the &key"}, "F8",
     {"Sucht den Waldort der sechs Schlüsselfelder", "Looks up the stand of the six key boxes"}, Waldort_ID},

    {kMessages, "c_Message", "MessageBoxCmb", {"Wert aus der &Liste wählen …", "Choose a &value from the list …"}, "F9",
     {"Zeigt die Einträge des Kombinationsfelds als hohe Liste", "Shows the entries of the combo box as a tall list"},
     MessageBoxCmb},
    {kMessages, "c_Message", "MessageBox_Clear", {"Zeilen l&eeren", "&Clear the lines"}, "",
     {"Beginnt eine neue Meldung", "Begins a new message"}, MessageBox_Clear},
    {kMessages, "c_Message", "MessageBox_AddItem", {"Zeile &anfügen …", "&Add a line …"}, "",
     {"Fügt der Meldung eine Zeile an", "Adds a line to the message"}, MessageBox_AddItem},
    {kMessages, "c_Message", "MessageBox_ItemCount", {"Zeilen &zählen", "Co&unt the lines"}, "",
     {"Anzahl der Zeilen der Meldung", "Number of lines of the message"}, MessageBox_ItemCount},
    {kMessages, "c_Message", "MessageBox_Show", {"&Meldung zeigen …", "&Show the message …"}, "",
     {"Zeigt die gesammelten Zeilen", "Shows the lines collected"}, MessageBox_Show},
    {kMessages, "c_Message", "MessageBoxNL", {"&Textdatei zeigen …", "Show a &text file …"}, "",
     {"Zeigt eine Textdatei Zeile für Zeile", "Shows a text file line by line"}, MessageBoxNL},

    {kChecks, "c_Message", "CheckForstamt", {"&Forstamt …", "&Forest office …"}, "", kUsage, CheckForstamt},
    {kChecks, "c_Message", "CheckPersonal", {"&Person oder Firma …", "&Person or firm …"}, "", kUsage, CheckPersonal},
    {kChecks, "c_Message", "CheckPerson", {"&Rechnungsempfänger …", "&Invoice party …"}, "", kUsage, CheckPerson},
    {kChecks, "c_Message", "CheckArtikelWaren", {"&Ware …", "&Article …"}, "", kUsage, CheckArtikelWaren},
    {kChecks, "c_Message", "CheckBBFTables", {"Liste der &Leistungsarten …", "&List of service types …"}, "", kUsage,
     CheckBBFTables},
    {kChecks, "c_Message", "CheckTableToDel", {"&Baumart des Kombinationsfelds", "&Tree species of the combo box"}, "",
     {"Prüft mit einer Anweisung dieses Programms", "Checks with a statement of this program"}, CheckTableToDel},
    {kChecks, "c_Message", "GetArtikelNameWaren", {"&Name einer Ware …", "&Name of an article …"}, "",
     {"Liest die Bezeichnung der Ware", "Reads the name of the article"}, GetArtikelNameWaren},

    {kTables, "c_Tabellen2", "Tabellen2", {"&Feldbezeichnungen …", "&Field labels …"}, "", kEdit, Tabellen2, 80},
    {kTables, "c_Tabellen2", "Tabellen2", {"&Organisationseinheiten …", "&Organisational units …"}, "", kEdit, Tabellen2, 480},
    {kTables, "c_Tabellen2", "Tabellen2", {"F&arben …", "&Colours …"}, "", kEdit, Tabellen2, 496},
    {kTables, "c_Tabellen2", "Tabellen2", {"&Entrindung …", "&Debarking …"}, "", kEdit, Tabellen2, 687},
    {kTables, "c_Tabellen2", "Tabellen2", {"Mess&verfahren …", "&Measuring methods …"}, "", kEdit, Tabellen2, 1127},
    {kTables, "c_Tabellen2", "Tabellen2", {"&Mengeneinheiten …", "&Quantity units …"}, "", kEdit, Tabellen2, 1128},
    {kTables, "c_Tabellen2", "Tabellen2", {"Erweiterter Sorten&tarif …", "&Extended assortment tariff …"}, "", kEdit, Tabellen2, 1129},
    {kTables, "c_Tabellen2", "Tabellen2", {"&Zugangsarten …", "Types of stock &receipt …"}, "", kEdit, Tabellen2, 1130},
    {kTables, "c_Tabellen2", "Tabellen2", {"A&bgangsarten …", "Types of stock &issue …"}, "", kEdit, Tabellen2, 1131},
    {kTables, "c_Tabellen2", "Tabellen2", {"&Rückeverfahren …", "&Skidding methods …"}, "", kEdit, Tabellen2, 1132},
    {kTables, "c_Tabellen2", "Tabellen2", {"&Kundengruppen …", "Customer &groups …"}, "", kEdit, Tabellen2, 1170},
    {kTables, "c_Tabellen2", "Tabellen2", {"Fre&ie Felder …", "Free fie&lds …"}, "", kEdit, Tabellen2, 1303},
    {kTables, "c_Tabellen2", "Tabellen2", {"&Lohngründe …", "&Wage reasons …"}, "", kEdit, Tabellen2, 4245},
    {kTables, "c_Tabellen2", "Tabellen2", {"A&nlassarten …", "Occasion t&ypes …"}, "", kEdit, Tabellen2, 4735},
    {kTables, "c_Tabellen2", "Tabellen2", {"&Sondermerkmale …", "Special fea&tures …"}, "", kEdit, Tabellen2, 4767},
    {kTables, "c_Tabellen2", "Tabellen2", {"Bun&desländer …", "Federal st&ates …"}, "", kEdit, Tabellen2, 6224},
    {kTables, "c_Tabellen2", "Tabellen2", {"Farben dr&ucken", "&Print colours"}, "",
     {"Druckt die Liste, ohne ein Fenster zu zeigen", "Prints the list and shows no window"}, Tabellen2Print, 496},
};
// clang-format on

}  // namespace

void Outcome::Result(std::string_view value)
{
    lines.push_back({std::string(kResult), "", std::string(value)});
}

void Outcome::ByReference(std::string_view name, std::string_view before, std::string_view after)
{
    lines.push_back({std::string(name), std::string(before), std::string(after)});
}

std::span<const Operation> Operations()
{
    return kOperations;
}

const Operation* FindOperation(std::string_view name)
{
    for (const Operation& operation : kOperations)
        if (operation.Name() == name) return &operation;
    return nullptr;
}

Outcome Perform(const Operation& operation, Call call)
{
    call.outcome = {};
    call.outcome.operation = operation.Name();
    call.operation = &operation;
    try {
        operation.run(call);
    } catch (const basic::Error& error) {
        call.outcome.error = error;
    }
    return std::move(call.outcome);
}

std::string ErrorNumberText(std::int32_t number)
{
    std::string text = std::to_string(number);
    if (number < 0) {
        char hex[16];
        std::snprintf(hex, sizeof hex, " (%08X)", static_cast<unsigned>(number));
        text += hex;
    }
    return text;
}

}  // namespace kvx::host

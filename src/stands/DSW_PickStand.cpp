#include "stands/DSW_PickStand.h"

#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Text.h"
#include "common/M_Common.h"
#include "os/Objects.h"
#include "session/SiblingClasses.h"
#include "stands/StandKey.h"
#include "ui/Desktop.h"

#include <array>

namespace kvx {

namespace {

constexpr std::string_view kProgramId = "DSW2.n_choose_os";
// The outside application's result: four parts of its own address, then the six levels.
constexpr std::size_t kAddressParts = 4;

struct Options {
    std::string iniFile, separator;
    bool showCall = false;        // each step is shown as a message
    bool promptForStand = false;  // the user may type the result
};

Options ReadOptions(const KvxVar& kvxvar)
{
    const auto helper = Siblings().NewDBHelper();
    Options options;
    options.iniFile = helper->GetOptionText(kvxvar, "DSW_INIFILE");
    options.separator = helper->GetOptionText(kvxvar, "DSW_SEPARATOR");
    options.showCall = helper->GetOptionNumber(kvxvar, "DSW_ZEIGEAUFRUF") == 1;
    options.promptForStand = helper->GetOptionNumber(kvxvar, "DSW_WALDORTINPUT") == 1;
    return options;
}

/// Where the access level stands in the outside application.
struct LevelLink {
    std::string strStruktur, strAdr;
};

LevelLink ReadLevelLink(const KvxVar& kvxvar, std::int32_t ID_AL)
{
    ado::Recordset level;
    level.Open("SELECT ACCESS_LEVELS.ACCESS_LEVELS,BB_STRUKTUREN.DSW_STRUKTUR,ACCESS_LEVELS.ADR_DSW FROM ACCESS_LEVELS"
               " LEFT JOIN BB_STRUKTUREN ON BB_STRUKTUREN.ID = ACCESS_LEVELS.ID_BB_STRUKTUREN"
               " WHERE ACCESS_LEVELS.ID = " +
                   std::to_string(ID_AL),
               kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    if (level.Eof()) return {};
    return {std::string(level[1].TextView()), std::string(level["ADR_DSW"].TextView())};
}

// "Nord/ 3" as the outside application writes it: "Nord|3". A name behind the key travels in the last part.
std::string PartsOfBoxText(std::string_view boxText, std::string_view separator)
{
    std::vector<std::string> parts = basic::Split(boxText, "/");
    for (std::string& part : parts)
        part = basic::Trim(part);
    return basic::Join(parts, separator);
}

// Asks the outside application. @return its answer; empty when it is not there or fails
std::string AskApplication(const KvxVar& kvxvar, const Options& options, const LevelLink& link,
                           const std::string& strParts)
{
    basic::ObjectRef application;
    try {
        application = os::CreateObject(kProgramId);
    } catch (const basic::Error&) {
        application = nullptr;  // the same to the user: the application is not installed
    }
    if (application == nullptr) {
        ShowMessage("Objekterstellung fehlgeschlagen");
        return {};
    }
    const bool both = !link.strAdr.empty() && !strParts.empty();
    const std::vector<std::string> texts{options.iniFile, kvxvar.strDBUser, kvxvar.strDBPassword, link.strStruktur,
                                         link.strAdr + (both ? options.separator : "") + strParts};
    if (options.showCall) ShowMessage("AXObject.of_show(" + basic::Join(texts, ", ") + ")");
    std::vector<basic::Variant> arguments(texts.begin(), texts.end());
    try {
        return basic::ToText(application->Call("of_show", arguments));
    } catch (const basic::Error&) {
        return {};  // cancelled or broken off there: no stand was picked
    }
}

std::int32_t FindRow(const KvxVar& kvxvar, const StandKey& key, std::int32_t ID_AL)
{
    return SelectId(kvxvar, "SELECT ID_WALDORT FROM WALDORT WHERE " + LevelEquals(1, key[0]) + AndLevels(key, 2) +
                                " AND ID_ACCESS_LEVELS = " + IdOrNull(ID_AL));
}

std::int32_t MakeRow(const KvxVar& kvxvar, const StandKey& key, std::int32_t ID_AL, const std::string& name)
{
    const std::int32_t id = InsertStand(kvxvar);
    std::string assignments = LevelEquals(1, key[0]);
    for (std::size_t level = 2; level <= kStandLevels; ++level)
        if (!key[level - 1].empty()) assignments += "," + LevelEquals(level, key[level - 1]);
    kvxvar.dbAdo.Execute("UPDATE WALDORT SET " + assignments + ",ID_ACCESS_LEVELS = " + IdOrNull(ID_AL) +
                         ",LANGNAME = '" + name + "' WHERE ID_WALDORT = " + std::to_string(id));
    return id;
}

}  // namespace

void DSW_PickStand(const KvxVar& kvxvar, const basic::ObjectRef& txtWaldort, std::int32_t ID_AL)
{
    basic::Object& box = basic::Deref(txtWaldort);
    const Options options = ReadOptions(kvxvar);
    const LevelLink link = ReadLevelLink(kvxvar, ID_AL);
    const std::string strParts = PartsOfBoxText(basic::ToText(box.Get("Text")), options.separator);

    if (options.showCall) ShowMessage("Set AXObject = CreateObject(\"" + std::string(kProgramId) + "\")");
    std::string strResult = AskApplication(kvxvar, options, link, strParts);
    if (options.showCall) ShowMessage(strResult);
    if (options.promptForStand) strResult = ui::CurrentDesktop().InputBox("Waldort", "Korvex", "");
    if (!link.strAdr.empty() && !basic::StartsWith(strResult, link.strAdr)) {
        ShowMessage("Ungültige Waldort.");
        strResult.clear();
    }

    std::vector<std::string> parts = basic::Split(strResult, options.separator);
    parts.resize(kAddressParts + kStandLevels);
    StandKey key;
    for (std::size_t i = 0; i < kStandLevels; ++i)
        key[i] = parts[kAddressParts + i];
    if (key[0].empty()) return;

    const std::string shown = PutWaldortStr(key, "");
    std::int32_t id = FindRow(kvxvar, key, ID_AL);
    if (id == 0) id = MakeRow(kvxvar, key, ID_AL, shown);
    box.Put("Tag", std::to_string(id));
    box.Put("Text", shown);
}

}  // namespace kvx

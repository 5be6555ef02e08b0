#include "stands/StandKey.h"

#include "ado/Command.h"
#include "ado/Recordset.h"
#include "basic/Text.h"
#include "session/SiblingClasses.h"

#include <algorithm>

namespace kvx {

std::string LevelColumn(std::size_t level)
{
    return "WO" + std::to_string(level);
}

std::vector<std::string> LevelsOfNodeKey(std::string_view nodeKey)
{
    std::vector<std::string> levels = basic::Split(nodeKey, kLevelSeparator);
    if (!levels.empty()) levels.erase(levels.begin());
    return levels;
}

std::string AccessCondition(const KvxVar& kvxvar, std::int32_t ID_AL)
{
    const std::string level = std::to_string(ID_AL);
    if (kvxvar.bOracle != 0)
        return "NVL(WALDORT.ID_ACCESS_LEVELS,0) " + (ID_AL == 0 ? std::string("= 0") : "IN (0," + level + ")");
    return ID_AL == 0 ? "WALDORT.ID_ACCESS_LEVELS IS NULL"
                      : "(WALDORT.ID_ACCESS_LEVELS IS NULL OR WALDORT.ID_ACCESS_LEVELS = " + level + ")";
}

std::string ZeroIfNull(const KvxVar& kvxvar, std::string_view column)
{
    return (kvxvar.bOracle != 0 ? "NVL(" : "ISNULL(") + std::string(column) + ",0)";
}

std::string_view SelectStart(const KvxVar& kvxvar)
{
    return kvxvar.bOracle != 0 ? "SELECT /*+ FIRST_ROWS */ " : "SELECT ";
}

std::string LevelEquals(std::size_t level, std::string_view value)
{
    return LevelColumn(level) + " = '" + std::string(value) + "'";
}

std::string AndLevel(std::size_t level, std::string_view value)
{
    return " AND " + (value.empty() ? LevelColumn(level) + " IS NULL" : LevelEquals(level, value));
}

std::string AndLevels(const StandKey& key, std::size_t first, std::size_t last)
{
    std::string condition;
    for (std::size_t level = first; level <= last; ++level)
        condition += AndLevel(level, key[level - 1]);
    return condition;
}

std::string IdOrNull(std::int32_t id)
{
    return id == 0 ? "NULL" : std::to_string(id);
}

std::int32_t InsertStand(const KvxVar& kvxvar)
{
    ado::Command command;
    const ado::Recordset inserted = Siblings().NewLoc()->RunProcedure(kvxvar, "kvx_WALDORT_INS", command);
    return static_cast<std::int32_t>(inserted[0].Int64());
}

std::int32_t SelectId(const KvxVar& kvxvar, std::string_view statement)
{
    ado::Recordset recordset;
    recordset.Open(statement, kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    return recordset.Eof() ? 0 : static_cast<std::int32_t>(recordset[0].Int64());
}

bool HasRow(const KvxVar& kvxvar, std::string_view statement)
{
    ado::Recordset recordset;
    recordset.Open(statement, kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    return !recordset.Eof();
}

std::string PutWaldortStr(const StandKey& key, std::string_view name)
{
    std::string text = key[0];
    for (std::size_t i = 1; i < kStandLevels; ++i) {
        if (key[i].empty()) continue;
        if (!text.empty()) text += "/ ";
        text += key[i];
    }
    if (!name.empty()) text += ": " + std::string(name);
    return text;
}

std::int32_t Waldort_ID(const KvxVar& kvxvar, const std::int32_t& ID_AL, const StandKey& key)
{
    if (std::ranges::all_of(key, &std::string::empty)) return -1;

    std::string statement = "SELECT ID_WALDORT FROM WALDORT WHERE ISNULL(DISABLE,0) = 0"
                            " AND (WALDORT.ID_ACCESS_LEVELS IS NULL";
    if (ID_AL != 0) statement += " OR WALDORT.ID_ACCESS_LEVELS = " + std::to_string(ID_AL);
    statement += ")";
    for (std::size_t level = 1; level <= kStandLevels; ++level) {
        const std::string& value = key[level - 1];
        statement += AndLevel(level, basic::Trim(value).empty() ? "" : value);
    }
    return SelectId(kvxvar, statement);
}

}  // namespace kvx

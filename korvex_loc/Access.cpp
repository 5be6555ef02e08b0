#include "korvex_loc/Access.h"

#include "basic/Text.h"
#include "korvex_loc/Sql.h"

#include <functional>

namespace kvx::loc {

namespace {

// What the codes of all levels under this one begin with. A pair of zeros at the end says "all of".
std::string_view CodeStart(std::string_view code)
{
    while (code.ends_with("00"))
        code.remove_suffix(2);
    return code;
}

bool LiesUnder(std::string_view code, std::string_view upperCode)
{
    return !code.empty() && !upperCode.empty() && code.starts_with(CodeStart(upperCode));
}

struct Level {
    std::int32_t id;
    std::string code;
};

// The level, then those others of which the test holds against its code.
std::vector<std::int32_t>
RelatedLevels(const KvxVar& kvxvar, std::int32_t id,
              const std::function<bool(std::string_view own, std::string_view other)>& related)
{
    std::vector<Level> levels;
    std::string ownCode;
    ado::Recordset rows;
    rows.Open("SELECT ID,ACCESS_LEVELS FROM ACCESS_LEVELS ORDER BY ID", kvxvar.dbAdo, ado::adOpenForwardOnly,
              ado::adLockReadOnly);
    const ado::Field idField = rows[0], codeField = rows[1];
    for (; !rows.Eof(); rows.MoveNext()) {
        Level level{static_cast<std::int32_t>(idField.Int64()), basic::Trim(codeField.TextView())};
        if (level.id == id)
            ownCode = level.code;
        else
            levels.push_back(std::move(level));
    }
    std::vector<std::int32_t> ids{id};
    if (ownCode.empty()) return ids;
    for (const Level& level : levels)
        if (related(ownCode, level.code)) ids.push_back(level.id);
    return ids;
}

std::string ModelsCondition(const KvxVar& kvxvar, std::int32_t ID_ACCESS_LEVELS)
{
    std::string condition = "(MODELS.ID_USER = " + std::to_string(kvxvar.ID_USER);
    if (ID_ACCESS_LEVELS != 0)
        condition += " OR MODELS.ID_ACCESS_LEVELS IN (" + IdList(LevelsAbove(kvxvar, ID_ACCESS_LEVELS)) + ")";
    return condition +
           " OR (MODELS.ID_ACCESS_LEVELS IS NULL AND (MODELS.ID_USER IS NULL OR MODELS.NICHT_ANDERBAR = 1)))";
}

std::string LevelCondition(std::string_view table, const KvxVar& kvxvar, std::int32_t ID_ACCESS_LEVELS)
{
    const std::string column = std::string(table) + ".ID_ACCESS_LEVELS";
    if (ID_ACCESS_LEVELS == 0) return column + " IS NULL";
    return "(" + column + " IS NULL OR " + column + " IN (" + IdList(LevelsUnder(kvxvar, ID_ACCESS_LEVELS)) + "))";
}

}  // namespace

std::vector<std::int32_t> LevelsUnder(const KvxVar& kvxvar, std::int32_t ID_ACCESS_LEVELS)
{
    return RelatedLevels(kvxvar, ID_ACCESS_LEVELS,
                         [](std::string_view own, std::string_view other) { return LiesUnder(other, own); });
}

std::vector<std::int32_t> LevelsAbove(const KvxVar& kvxvar, std::int32_t ID_ACCESS_LEVELS)
{
    return RelatedLevels(kvxvar, ID_ACCESS_LEVELS,
                         [](std::string_view own, std::string_view other) { return LiesUnder(own, other); });
}

std::string Access::AccessWhere(std::string_view table, std::string_view where, const KvxVar& kvxvar,
                                std::int32_t ID_ACCESS_LEVELS)
{
    const std::string condition = basic::SameTextIgnoringCase(table, "MODELS")
                                      ? ModelsCondition(kvxvar, ID_ACCESS_LEVELS)
                                      : LevelCondition(table, kvxvar, ID_ACCESS_LEVELS);
    return where.empty() ? condition : std::string(where) + " AND " + condition;
}

bool Access::HasRight(const KvxVar& kvxvar, std::string_view code)
{
    const basic::Variant found =
        FirstValue(kvxvar, "SELECT CODE FROM RIGHTS WHERE ID_USER = " + std::to_string(kvxvar.ID_USER) +
                               " AND CODE = " + Quoted(code));
    return !found.IsEmpty();
}

}  // namespace kvx::loc

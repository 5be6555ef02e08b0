#include "stands/F_Waldort.h"

namespace kvx {

StandKey F_Waldort::Key() const
{
    StandKey key;
    for (std::size_t i = 0; i < kStandLevels; ++i)
        key[i] = keyBoxes[i]->Text();
    return key;
}

std::int32_t F_Waldort::GetID(std::int32_t ID_AL_dll) const
{
    return SelectId(kvxvar, std::string(SelectStart(kvxvar)) + "ID_WALDORT FROM WALDORT WHERE " +
                                ZeroIfNull(kvxvar, "DISABLE") + " = 0 AND " + AccessCondition(kvxvar, ID_AL_dll) +
                                AndLevels(Key(), 1));
}

bool F_Waldort::Is_In_Table(const KvxVar& kvxvar_dll, std::int32_t ID_AL_dll) const
{
    const bool oracle = kvxvar_dll.bOracle != 0;
    std::string statement = oracle ? "SELECT /*+ FIRST_ROWS */ ID_WALDORT FROM WALDORT  WHERE ROWNUM = 1 AND "
                                   : "SELECT TOP 1 ID_WALDORT FROM WALDORT  WHERE ";
    statement += ZeroIfNull(kvxvar_dll, "DISABLE") + " = 0 AND " + AccessCondition(kvxvar_dll, ID_AL_dll);
    // Any row below the levels given answers the question, so what is empty behind them is not tested.
    statement += " AND " + LevelEquals(1, txtWO1.Text());
    for (std::size_t level = 2; level <= kStandLevels && !keyBoxes[level - 1]->Text().empty(); ++level)
        statement += " AND " + LevelEquals(level, keyBoxes[level - 1]->Text());
    return HasRow(kvxvar_dll, statement);
}

// Which rows a change may touch. Client BB keeps to one level's own rows, or to the list of levels under it; all others
// change the common rows along with their own.
std::string F_Waldort::VisibleRows(bool wholeLevelList) const
{
    const bool oracle = kvxvar.bOracle != 0;
    const std::string visible = " WHERE " + ZeroIfNull(kvxvar, "DISABLE") + " = 0 AND ";
    if (kvxvar.g_Client != "BB") return visible + AccessCondition(kvxvar, ID_AL);

    const std::string column = oracle ? "NVL(ID_ACCESS_LEVELS,0) " : "ID_ACCESS_LEVELS ";
    // Oracle compares NULL as 0 already, so there level 0 needs no list.
    if (wholeLevelList && (!oracle || ID_AL != 0))
        return visible + column + Siblings().NewDBWriter()->AccessLevelList(kvxvar, std::to_string(ID_AL), 0, "False");
    if (!oracle && ID_AL == 0) return visible + column + "IS NULL";
    return visible + column + "= " + std::to_string(ID_AL);
}

// The rows that a change writes: the selected node with its whole subtree (the levels below stay untested), or the one
// row with exactly the key in the boxes. Empty at the root: then nothing may be written.
std::string F_Waldort::BuildNodeWhere(bool bySelection, bool wholeLevelList)
{
    std::size_t levels = kStandLevels;
    if (bySelection) {
        const ui::Node node = TreeView1.SelectedItem();
        levels = node ? static_cast<std::size_t>(LevelOf(node)) : 0;
    }
    if (levels < 1) return {};

    const std::string text =
        VisibleRows(wholeLevelList) + " AND " + LevelEquals(1, txtWO1.Text()) + AndLevels(Key(), 2, levels);
    return " WHERE WALDORT.ID_WALDORT IN (" + std::string(SelectStart(kvxvar)) + "ID_WALDORT FROM WALDORT" + text + ")";
}

}  // namespace kvx

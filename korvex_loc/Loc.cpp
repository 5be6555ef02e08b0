#include "korvex_loc/Loc.h"

#include "basic/Text.h"
#include "korvex_loc/Sql.h"
#include "korvex_loc/TextTable.h"

namespace kvx::loc {

void Loc::LocalizeForm(const KvxVar& kvxvar, ui::Form& form)
{
    const std::string keyStart = form.Name() + '\t';
    for (const TextTable::Row& row : Captions().RowsFrom(keyStart)) {
        const std::string_view name = row.key.substr(keyStart.size());
        const std::string_view caption = Captions().Word(row, kvxvar.strLanguage);
        if (name == "Form")
            form.SetCaption(caption);
        else if (ui::Control* control = form.FindControl(name))
            control->PutMember("Caption", caption, {});
    }
}

std::string Loc::GetText(std::int32_t id, const KvxVar& kvxvar)
{
    if (!read_ || connectionId_ != kvxvar.dbAdo.Id() || language_ != kvxvar.strLanguage) ReadCustomTexts(kvxvar);
    if (const auto custom = customTexts_.find(id); custom != customTexts_.end()) return custom->second;
    if (const auto text = Catalogue().Find(std::to_string(id), kvxvar.strLanguage)) return std::string(*text);
    basic::Raise(basic::kErrInvalidCall, "Korvex_Loc has no text " + std::to_string(id));
}

void Loc::ReadCustomTexts(const KvxVar& kvxvar)
{
    customTexts_.clear();
    read_ = false;
    if (IsSqlName(kvxvar.strLanguage)) {
        const std::string column = "CUSTOM_" + kvxvar.strLanguage;
        ado::Recordset rows;
        try {
            rows.Open("SELECT ID_STRING," + column + " FROM STRINGS WHERE " + column + " IS NOT NULL", kvxvar.dbAdo,
                      ado::adOpenForwardOnly, ado::adLockReadOnly);
        } catch (const basic::Error& error) {
            // The text differs by the language only: what an engine refuses in it is a table or a column that it lacks.
            if (error.Number != ado::kErrNoSuchTable && error.Number != ado::kErrStatement) throw;
        }
        if (rows.State() == ado::adStateOpen) {
            const ado::Field id = rows[0], text = rows[1];
            for (; !rows.Eof(); rows.MoveNext()) {
                // A blank is what an edit line stores for "nothing", and some engines cannot tell '' from NULL.
                if (basic::Trim(text.TextView()).empty()) continue;
                customTexts_.emplace(static_cast<std::int32_t>(id.Int64()), text.TextView());
            }
        }
    }
    connectionId_ = kvxvar.dbAdo.Id();
    language_ = kvxvar.strLanguage;
    read_ = true;
}

ado::Recordset Loc::RunProcedure(const KvxVar& kvxvar, std::string_view procedure, ado::Command& command)
{
    command.ActiveConnection = kvxvar.dbAdo;
    command.CommandText = procedure;
    command.CommandType = ado::adCmdStoredProc;
    return command.Execute();
}

}  // namespace kvx::loc

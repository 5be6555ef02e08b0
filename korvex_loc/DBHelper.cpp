#include "korvex_loc/DBHelper.h"

#include "basic/Convert.h"
#include "basic/Format.h"
#include "basic/Locale.h"
#include "basic/Text.h"
#include "korvex_loc/Access.h"
#include "korvex_loc/NumberMask.h"
#include "korvex_loc/Sql.h"
#include "korvex_loc/TextTable.h"

#include <algorithm>
#include <limits>

namespace kvx::loc {

namespace {

std::string LookupSelect(std::string_view column, std::string_view table, std::string_view where)
{
    std::string select = "SELECT " + std::string(column) + " FROM " + std::string(table);
    if (!where.empty()) select.append(" WHERE ").append(where);
    return select;
}

std::string OptionSelect(std::string_view column, std::string_view key)
{
    return LookupSelect(column, "OPTIONEN", "PROPERTY_ID = " + Quoted(key));
}

bool IsText(ado::DataTypeEnum type)
{
    switch (type) {
    case ado::adChar:
    case ado::adWChar:
    case ado::adVarChar:
    case ado::adLongVarChar:
    case ado::adVarWChar:
    case ado::adLongVarWChar: return true;
    default: return false;
    }
}

}  // namespace

std::string DBHelper::FieldToString(const basic::Variant& value, bool, bool)
{
    return basic::ToText(value);
}

double DBHelper::FieldToNumber(const basic::Variant& value)
{
    const basic::Variant plain = value.IsObject() ? basic::Deref(value.ToObject()).Get("") : value;
    if (plain.IsNull() || (plain.IsText() && basic::Trim(*plain.As<std::string>()).empty())) return 0;
    return basic::CDbl(plain);
}

std::string DBHelper::FieldToText(const basic::Variant& value)
{
    return basic::ToText(value);
}

std::string DBHelper::LookupText(const KvxVar& kvxvar, std::string_view column, std::string_view table,
                                 std::string_view where)
{
    return FieldToText(FirstValue(kvxvar, LookupSelect(column, table, where)));
}

double DBHelper::LookupNumber(const KvxVar& kvxvar, std::string_view column, std::string_view table,
                              std::string_view where)
{
    return FieldToNumber(FirstValue(kvxvar, LookupSelect(column, table, where)));
}

std::int16_t DBHelper::ColumnLength(std::string_view table, std::string_view column, const KvxVar& kvxvar)
{
    ado::Recordset rows;
    rows.Open(LookupSelect(column, table, "1=2"), kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    const ado::Field field = rows[0];
    if (!IsText(field.Type())) return 0;
    constexpr std::int32_t kLongest = std::numeric_limits<std::int16_t>::max();
    const std::int32_t length = field.DefinedSize();
    return static_cast<std::int16_t>(length <= 0 ? kLongest : std::min(length, kLongest));
}

std::string DBHelper::ColumnCaption(std::string_view column, const KvxVar& kvxvar)
{
    return std::string(ColumnHeadings().Find(basic::UCase(column), kvxvar.strLanguage).value_or(column));
}

std::int32_t DBHelper::GetOptionNumber(const KvxVar& kvxvar, std::string_view key)
{
    return basic::CLng(FieldToNumber(FirstValue(kvxvar, OptionSelect("NUMBER_VALUE", key))));
}

std::string DBHelper::GetOptionText(const KvxVar& kvxvar, std::string_view key)
{
    return FieldToText(FirstValue(kvxvar, OptionSelect("TEXT_VALUE", key)));
}

void DBHelper::FormatTextBox(std::string_view format, ui::TextBox& textBox)
{
    textBox.SetText(basic::Format(textBox.Text(), basic::Replace(format, "-", "")));
}

void DBHelper::FilterNumberKey(std::int32_t& KeyAscii, ui::TextBox& textBox, std::string_view format)
{
    const std::string& text = textBox.Text();
    const std::string before = basic::Left(text, textBox.SelStart());
    const std::string behind = basic::Mid(text, textBox.SelStart() + textBox.SelLength() + 1);
    KeyAscii = NumberMask(format).Admit(KeyAscii, before, behind, basic::CurrentLocale().decimalSeparator);
}

bool DBHelper::FilterDateKey(std::int32_t& KeyAscii, ui::TextBox&)
{
    const bool typesNothing = KeyAscii < 32 || KeyAscii == 127;
    const bool digit = KeyAscii >= '0' && KeyAscii <= '9';
    const bool sign = KeyAscii == '.' || KeyAscii == basic::AscW(basic::CurrentLocale().dateSeparator);
    if (!typesNothing && !digit && !sign) KeyAscii = 0;
    return KeyAscii != 0;
}

std::int32_t DBHelper::ModelItems(const KvxVar& kvxvar, std::string_view relation, std::int32_t)
{
    const std::string where =
        Access().AccessWhere("MODELS", "MODELS.RELATION = " + Quoted(relation), kvxvar, kvxvar.ID_ACCESS_LEVELS);
    return basic::CLng(FieldToNumber(
        FirstValue(kvxvar, "SELECT MODELS.ID,(CASE WHEN MODELS.NICHT_ANDERBAR = 1 THEN 3"
                           " WHEN MODELS.ID_ACCESS_LEVELS IS NOT NULL THEN 2 ELSE 1 END) AS TIER FROM MODELS"
                           " WHERE " +
                               where + " AND MODELS.STANDARD = 1 ORDER BY TIER,MODELS.NAME,MODELS.ID")));
}

std::string DBHelper::ListItemCaption(const KvxVar& kvxvar, std::string_view name)
{
    return ColumnCaption(name, kvxvar);
}

}  // namespace kvx::loc

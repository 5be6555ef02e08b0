#include "korvex_loc/Wagon.h"

#include "basic/Convert.h"
#include "basic/Locale.h"
#include "basic/Text.h"
#include "korvex_loc/TableFile.h"
#include "korvex_loc/TextTable.h"

#include <array>

namespace kvx::loc {

// --- Typed keys ------------------------------------------------------------------------------------------------------

namespace {

void PutIfObject(const basic::ObjectRef& object, std::string_view member, std::string_view text)
{
    if (object) object->Put(member, text);
}

}  // namespace

bool Wagon::CheckOrderNumber(const KvxVar& kvxvar, std::int16_t flag, std::string_view statement,
                             const basic::ObjectRef& box1, const basic::ObjectRef& box2, std::string_view column,
                             const basic::ObjectRef& keyBox, std::string_view)
{
    ado::Recordset rows;
    rows.Open(statement, kvxvar.dbAdo, ado::adOpenForwardOnly, ado::adLockReadOnly);
    if (rows.Eof()) {
        if (flag != 0) {
            PutIfObject(box1, "Tag", "");
            PutIfObject(box2, "Text", "");
        }
        return false;
    }
    const std::string key = basic::ToText(rows[0].Value());
    PutIfObject(box1, "Text", key);
    PutIfObject(keyBox, "Text", key);
    if (rows.Fields().Has("ID")) PutIfObject(box1, "Tag", basic::ToText(rows["ID"].Value()));
    if (rows.Fields().Has(column)) PutIfObject(box2, "Text", basic::ToText(rows[column].Value()));
    return true;
}

// --- Lists -----------------------------------------------------------------------------------------------------------

namespace {

struct ExportField {
    std::int32_t id;  // stands in saved models: never used for another field
    std::string_view column;
};

// clang-format off
constexpr ExportField kExportFields[] = {
    {1, "LISTE"}, {2, "LISTENDATUM"}, {3, "LISTENART"}, {4, "WALDORT"}, {5, "MANDANT"}, {6, "HA"}, {7, "HS"},
    {8, "GKL"}, {9, "STKL"}, {10, "KKLASSE"}, {11, "NA"}, {12, "KA"}, {13, "RINDENKENNZ"}, {14, "FARBE"},
    {15, "ZUGANG"}, {16, "ABGANG"}, {17, "EST"}, {18, "RUCKE"}, {19, "MEFVERF"}, {20, "MENGEN"}, {21, "MENGE"},
};
// clang-format on

std::string LanguageOf(const basic::Variant& argument)
{
    if (const std::string* text = argument.As<std::string>())
        for (const std::string_view language : ColumnHeadings().Languages())
            if (basic::SameTextIgnoringCase(*text, language)) return *text;
    return basic::CurrentLocale().name.starts_with("de") ? "DEUTSCH" : "ENGLISH";
}

void FillExportFields(basic::Object& list, const std::string& language)
{
    list.Call("Clear");
    for (const ExportField& field : kExportFields) {
        std::array<basic::Variant, 1> caption{ColumnHeadings().Find(field.column, language).value_or(field.column)};
        list.Call("AddItem", caption);
        const std::array<basic::Variant, 1> index{list.Get("NewIndex")};
        list.Put("ItemData", field.id, index);
    }
}

basic::Variant At(basic::Object& object, std::string_view member, std::int32_t index)
{
    const std::array<basic::Variant, 1> arguments{index};
    return object.Get(member, arguments);
}

std::int32_t Count(basic::Object& object, std::string_view member)
{
    return basic::CLng(object.Get(member));
}

TableLines ListViewLines(basic::Object& list)
{
    const basic::ObjectRef headers = list.Get("ColumnHeaders").ToObject(), items = list.Get("ListItems").ToObject();
    const std::int32_t columns = Count(*headers, "Count");
    TableLines lines(1);
    for (std::int32_t i = 1; i <= columns; ++i)
        lines[0].push_back(basic::ToText(At(*headers, "Item", i).ToObject()->Get("Text")));
    for (std::int32_t row = 1; row <= Count(*items, "Count"); ++row) {
        const basic::ObjectRef item = At(*items, "Item", row).ToObject();
        std::vector<std::string>& line = lines.emplace_back();
        line.push_back(basic::ToText(item->Get("Text")));
        for (std::int32_t i = 1; i < columns; ++i)
            line.push_back(basic::ToText(At(*item, "SubItems", i)));
    }
    return lines;
}

TableLines GridLines(basic::Object& grid)
{
    TableLines lines;
    for (std::int32_t row = 0; row < Count(grid, "Rows"); ++row) {
        std::vector<std::string>& line = lines.emplace_back();
        for (std::int32_t column = 0; column < Count(grid, "Cols"); ++column) {
            const std::array<basic::Variant, 2> cell{row, column};
            line.push_back(basic::ToText(grid.Get("TextMatrix", cell)));
        }
    }
    return lines;
}

TableLines ListBoxLines(basic::Object& list)
{
    TableLines lines;
    for (std::int32_t i = 0; i < Count(list, "ListCount"); ++i)
        lines.push_back({basic::ToText(At(list, "List", i))});
    return lines;
}

}  // namespace

void Wagon::ExportListView(const basic::ObjectRef& list, std::string_view name, const basic::Variant& argument1,
                           const basic::Variant&)
{
    basic::Object& object = basic::Deref(list);
    if (name == "EXPORTLV") {
        FillExportFields(object, LanguageOf(argument1));
        return;
    }
    const std::string kind = object.TypeName();
    const TableLines lines = kind == "ListView"     ? ListViewLines(object)
                             : kind == "MSFlexGrid" ? GridLines(object)
                                                    : ListBoxLines(object);
    OpenTableFile(WriteTableFile(name, lines));
}

}  // namespace kvx::loc

#include "Bench.h"
#include "QuietDesktop.h"
#include "Stands.h"

#include "adapters/sqlite/SqliteDriver.h"
#include "ado/Recordset.h"
#include "ui/DataControl.h"
#include "ui/DataGrid.h"
#include "ui/Form.h"

#include <cstdio>
#include <sqlite3.h>

// A long code list in a grid on a data control: the first page, all rows, and the jump to a row by its key.
namespace kvx::bench {
namespace {

constexpr int kColumns = 17;
constexpr int kPage = 30;
constexpr const char* kList = "SELECT * FROM LISTE ORDER BY ID";

// Codes, names, numbers and flags, as the widest lists have them.
void MakeList(const TemporaryDatabase& database, std::int64_t rows)
{
    const RawDatabase raw = OpenRaw(database);
    RunRaw(
        raw.get(),
        "CREATE TABLE LISTE (ID int NOT NULL PRIMARY KEY, SHORT nvarchar(10), LONG nvarchar(50), GRUPPE nvarchar(20), "
        "PREIS float, LOHN float, MENGE float, STUNDEN float, FAKTOR float, EINHEIT nvarchar(5), ART int, STUFE int, "
        "EBENE int, KONTO nvarchar(10), KOSTEN nvarchar(10), BEMERKUNG nvarchar(80), DISABLE bit)");
    const std::string fill =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(rows) +
        ") INSERT INTO LISTE SELECT i, 'S' || i, 'Bezeichnung der Leistung ' || i, 'Gruppe ' || (i % 40), i * 0.25, "
        "i * 0.5, i % 97, i % 13, 1.15, 'Efm', i % 7, i % 5, i % 3, '4' || (i % 900), NULL, "
        "CASE WHEN i % 4 = 0 THEN 'nur im Winter' END, i % 2 FROM n";
    RunRaw(raw.get(), "BEGIN");
    RunRaw(raw.get(), fill.c_str());
    RunRaw(raw.get(), "COMMIT");
}

std::uint64_t ValueOf(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER: return static_cast<std::uint64_t>(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT: return sqlite3_column_double(statement, column) > 1 ? 1 : 0;
    case SQLITE_TEXT:
        return *sqlite3_column_text(statement, column) +
               static_cast<std::uint64_t>(sqlite3_column_bytes(statement, column));
    default: return 0;
    }
}

void StepRaw(sqlite3* database)
{
    const RawStatement statement = PrepareRaw(database, kList);
    std::uint64_t sum = 0;
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
        for (int column = 0; column < kColumns; ++column)
            sum += ValueOf(statement.get(), column);
    Consume(sum);
}

class ListForm final : public ui::Form {
public:
    ListForm() : Form("ListForm") {}
    ui::DataControl Data1{*this, "Data1"};
    ui::DataGrid DataGrid1{*this, "DataGrid1"};

protected:
    void Design() override
    {
        DataGrid1.Move(0, 0, 9000, 240 * (kPage + 1));
        DataGrid1.SetDataSource(&Data1);
    }
};

void ReadPage(const ui::DataGrid& grid, std::int32_t first)
{
    std::uint64_t sum = 0;
    for (std::int32_t row = first; row < first + kPage; ++row)
        for (std::int32_t column = 0; column < kColumns; ++column)
            sum += grid.CellText(row, column).size();
    Consume(sum);
}

}  // namespace

int RunGrid(const Arguments& arguments)
{
    const std::int64_t rows = arguments.Number("--rows", 100'000);
    const int rounds = static_cast<int>(arguments.Number("--rounds", 7));
    const TemporaryDatabase database;
    MakeList(database, rows);
    adapters::sqlite::RegisterSqliteDriver();
    const RawDatabase raw = OpenRaw(database);

    QuietDesktop desktop;
    ListForm form;
    form.Load();
    form.Data1.SetConnectionString(database.ConnectionString());
    form.Data1.SetRecordSource(kList);

    const auto openPage = [&] {
        form.Data1.Refresh();
        ReadPage(form.DataGrid1, 0);
    };
    const auto openAll = [&] {
        form.Data1.Refresh();
        Consume(static_cast<std::uint64_t>(form.DataGrid1.RowCount()));
    };
    const auto timings = CompareByTurns(rounds, {[&] { StepRaw(raw.get()); }, openPage, openAll});
    std::int64_t found = 0;
    const double jumpMs = Measure([&] {
        form.Data1.Recordset().Find("ID = " + std::to_string(rows), 0, ado::adSearchForward,
                                    basic::Variant(std::int32_t{ado::adBookmarkFirst}));
        found = form.Data1.Recordset().AbsolutePosition();
        ReadPage(form.DataGrid1, form.DataGrid1.RowCount() - kPage);
    });
    const ado::RowBlock block = form.Data1.Recordset().Clone().GetRows();
    std::printf("rows=%zu raw_ms=%.1f first_page_ms=%.2f all_ms=%.1f ratio=%.2f jump_ms=%.2f jumped_to=%lld "
                "bytes_per_row=%.0f peak_rss_kb=%lld\n",
                block.Rows(), timings[0].ms, timings[1].ms, timings[2].ms, timings[2].ratio, jumpMs,
                static_cast<long long>(found), static_cast<double>(block.Bytes()) / static_cast<double>(block.Rows()),
                static_cast<long long>(PeakMemoryKb()));
    return 0;
}

}  // namespace kvx::bench

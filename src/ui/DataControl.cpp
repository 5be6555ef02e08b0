#include "ui/DataControl.h"

#include "ui/DataGrid.h"
#include "ui/Desktop.h"
#include "ui/Form.h"
#include "ui/MemberRows.h"

#include <limits>
#include <utility>

namespace kvx::ui {

DataControl::DataControl(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

DataControl::~DataControl()
{
    while (!grids_.empty())
        grids_.back()->SetDataSource(nullptr);
    Drop();
}

const basic::MemberTable<DataControl>& DataControl::Members()
{
    using namespace rows;
    using T = DataControl;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::ConnectionString, &T::SetConnectionString>("ConnectionString"),
        ReadWrite<T, &T::RecordSource, &T::SetRecordSource>("RecordSource"),
        {.name = "Recordset", .get = [](T& data, Args) { return Variant(data.Recordset().AsObject()); }},
        Method<T, &T::Refresh>("Refresh"),
    };
    static constexpr basic::MemberTable<T> kTable{"Adodc", kRows};
    return kTable;
}

void DataControl::Reset()
{
    Control::Reset();
    Drop();
    connection_ = {};
    connectionString_.clear();
    recordSource_.clear();
    openedWith_.clear();
    commandType_ = ado::adCmdUnknown;
    cursorType_ = ado::adOpenStatic;
    cursorLocation_ = ado::adUseClient;
    lockType_ = ado::adLockOptimistic;
}

void DataControl::SetConnectionString(std::string_view text)
{
    connectionString_ = text;
}

void DataControl::Attach()
{
    hook_ = recordset_.AddMoveComplete([this] { Moved(); });
    hooked_ = true;
}

void DataControl::Detach()
{
    if (hooked_) recordset_.RemoveMoveComplete(hook_);
    hooked_ = false;
}

// Lets the recordset go; what was being edited is lost.
void DataControl::Drop()
{
    Detach();
    if (own_ && recordset_.State() == ado::adStateOpen) {
        if (recordset_.EditMode() != ado::adEditNone) recordset_.CancelUpdate();
        recordset_.Close();
    }
    own_ = false;
    fetching_.reset();
    recordset_ = {};
}

void DataControl::Moved()
{
    for (DataGrid* grid : grids_)
        grid->RowMoved();
    MoveComplete.Raise();
}

void DataControl::SetRecordset(ado::Recordset recordset)
{
    if (!(recordset == recordset_)) Drop();
    Detach();
    recordset_ = std::move(recordset);
    for (DataGrid* grid : grids_)
        grid->ReBind();
    Attach();
    MoveComplete.Raise();
}

// The first page shows at once; the rest of a long list comes while the user looks at it.
void DataControl::FetchRest()
{
    constexpr std::size_t kRowsATime = 2000;
    Desktop* desktop = FindCurrentDesktop();
    if (desktop == nullptr) {
        recordset_.FetchMore(std::numeric_limits<std::int32_t>::max());
        return;
    }
    if (!recordset_.FetchMore(0)) return;
    if (fetching_ == nullptr) fetching_ = std::make_shared<int>();
    desktop->Post([this, wanted = std::weak_ptr(fetching_)] {
        if (wanted.expired()) return;
        Owner().Protect([this] { recordset_.FetchMore(kRowsATime); });
        for (DataGrid* grid : grids_)
            grid->Notify(Change::Items);
        FetchRest();
    });
}

void DataControl::Refresh()
{
    Drop();
    try {
        if (connection_.State() != ado::adStateOpen || openedWith_ != connectionString_) {
            connection_ = {};
            connection_.Open(connectionString_);
            openedWith_ = connectionString_;
        }
        recordset_.SetCursorLocation(cursorLocation_);
        recordset_.Open(recordSource_, connection_, cursorType_, lockType_, commandType_ | ado::adAsyncFetch);
        own_ = true;
        FetchRest();
    } catch (...) {
        recordset_ = {};
        for (DataGrid* grid : grids_)
            grid->ReBind();
        throw;
    }
    for (DataGrid* grid : grids_)
        grid->ReBind();
    Attach();
    MoveComplete.Raise();
}

}  // namespace kvx::ui

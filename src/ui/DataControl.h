#pragma once

#include "ado/Connection.h"
#include "ado/Recordset.h"
#include "ui/ControlOf.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::ui {

class DataGrid;

/// A recordset that stands on a form, so that a grid can show it; "Adodc" for late binding. It opens a connection of
/// its own.
class DataControl final : public ControlOf<DataControl> {
public:
    DataControl(Form& form, std::string_view name);
    ~DataControl() override;
    std::string_view TypeName() const override { return "Adodc"; }
    static const basic::MemberTable<DataControl>& Members();

    const std::string& ConnectionString() const { return connectionString_; }
    void SetConnectionString(std::string_view text);  ///< counts from the next Refresh on
    const std::string& RecordSource() const { return recordSource_; }
    void SetRecordSource(std::string_view text)
    {
        recordSource_ = text;
    }  ///< SQL text; counts from the next Refresh on
    ado::CommandTypeEnum CommandType() const { return commandType_; }
    void SetCommandType(ado::CommandTypeEnum type) { commandType_ = type; }
    ado::CursorTypeEnum CursorType() const { return cursorType_; }
    void SetCursorType(ado::CursorTypeEnum type) { cursorType_ = type; }
    ado::CursorLocationEnum CursorLocation() const { return cursorLocation_; }
    void SetCursorLocation(ado::CursorLocationEnum location) { cursorLocation_ = location; }
    ado::LockTypeEnum LockType() const { return lockType_; }
    void SetLockType(ado::LockTypeEnum type) { lockType_ = type; }

    /// A handle of the present recordset; closed before the first Refresh.
    ado::Recordset& Recordset() { return recordset_; }
    const ado::Recordset& Recordset() const { return recordset_; }
    /// Another recordset to show; raises MoveComplete.
    void SetRecordset(ado::Recordset recordset);

    /// Drops the recordset and opens a new one from ConnectionString and RecordSource, on its first row. Grids build
    /// their columns anew, then MoveComplete is raised. @throws basic::Error the provider's; the old rows are gone
    void Refresh();

    bool TakesFocus() const override { return false; }
    void Reset() override;

    /// After every Refresh, move, Find, bookmark change and AddNew, also without rows; may come more than once a move.
    ui::Event<> MoveComplete;

private:
    friend class DataGrid;
    void Attach();
    void Detach();
    void Drop();
    void Moved();
    void FetchRest();
    std::string connectionString_, recordSource_;
    ado::CommandTypeEnum commandType_ = ado::adCmdUnknown;
    ado::CursorTypeEnum cursorType_ = ado::adOpenStatic;
    ado::CursorLocationEnum cursorLocation_ = ado::adUseClient;
    ado::LockTypeEnum lockType_ = ado::adLockOptimistic;
    ado::Connection connection_;
    std::string openedWith_;
    ado::Recordset recordset_;
    std::uint64_t hook_ = 0;
    bool hooked_ = false, own_ = false;  // own_: opened here, to be closed here
    std::vector<DataGrid*> grids_;
    std::shared_ptr<int> fetching_;  // gone: the rows that it stands for are wanted no more
};

}  // namespace kvx::ui

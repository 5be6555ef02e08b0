#pragma once

#include "ado/ConnectionCore.h"
#include "ado/Constants.h"
#include "ado/Driver.h"
#include "ado/RowBlock.h"
#include "ado/RowSet.h"
#include "basic/Variant.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvx::ado {

/// What the copies of a Recordset share: its settings, its rows and where it stands. Members are those of Recordset;
/// what a caller may rely on is written there.
class Cursor {
public:
    Cursor() = default;
    ~Cursor();
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;

    // Cursor.cpp: settings, opening, closing, values.
    CursorTypeEnum Type() const { return type_; }
    void SetType(CursorTypeEnum type);
    LockTypeEnum Lock() const { return lock_; }
    void SetLock(LockTypeEnum lock);
    CursorLocationEnum Location() const;
    void SetLocation(CursorLocationEnum location);
    void Open(std::string_view source, std::shared_ptr<ConnectionCore> connection, CursorTypeEnum type,
              LockTypeEnum lock, std::int32_t options, std::int32_t timeoutSeconds, std::int64_t* recordsAffected);
    void Close();
    void Requery();
    bool IsOpen() const { return open_; }
    const std::string& Source() const { return source_; }
    const std::shared_ptr<ConnectionCore>& ActiveConnection() const { return connection_; }
    RowBlock GetRows(std::int64_t most);
    std::shared_ptr<Cursor> Clone() const;
    std::uint64_t AddMoveComplete(std::function<void()> handler);
    void RemoveMoveComplete(std::uint64_t id);

    bool IsStreaming() const { return statement_ != nullptr || IsFetching(); }
    bool IsFetching() const { return rows_ && rows_->HasRest(); }
    bool FetchMore(std::size_t rows);
    void FinishStream();     // reads the rest of a stream into memory, so that the engine is free
    void ConnectionClosed(); // called by the connection, which forgets the cursor

    std::size_t Columns() const { return open_ ? visible_ : 0; }
    const ColumnInfo& Column(std::size_t column) const;
    std::size_t ColumnIndex(std::string_view name) const; // 3265
    std::optional<std::size_t> FindColumn(std::string_view name) const;
    std::size_t ColumnIndex(std::int64_t index) const; // 3265

    Cell Current(std::size_t column) const; // of the current row, edits included
    basic::Variant Value(std::size_t column) const;

    // Cursor.move.cpp
    bool Bof() const
    {
        RequireOpen();
        return place_ == Place::None || place_ == Place::Before;
    }
    bool Eof() const
    {
        RequireOpen();
        return place_ == Place::None || place_ == Place::After;
    }
    void MoveNext();
    void MovePrevious();
    void MoveFirst();
    void MoveLast();
    void Move(std::int64_t rows, const basic::Variant& start);
    std::int64_t AbsolutePosition() const;
    void SetAbsolutePosition(std::int64_t position);
    basic::Variant Bookmark() const;
    void SetBookmark(const basic::Variant& bookmark);
    std::int64_t RecordCount();
    std::int64_t RowsHere() const;

    // Cursor.find.cpp
    void Find(std::string_view criteria, std::int64_t skip, SearchDirectionEnum direction, const basic::Variant& start);

    // Cursor.edit.cpp
    EditModeEnum EditMode() const;
    void SetValue(std::size_t column, const basic::Variant& value);
    void AddNew();
    void Update();
    void CancelUpdate();

private:
    enum class Place : std::uint8_t { None, Before, On, After }; // None: no rows at all

    struct Edit {
        bool adding = false;
        std::vector<std::optional<basic::Variant>> values; // by column; nothing: not assigned
        Place place = Place::None;                         // where a dropped new row goes back to
        std::size_t row = 0;
    };

    void RequireOpen() const
    {
        if (!open_) RaiseClosed();
    }
    [[noreturn]] static void RaiseClosed();
    void RequireClosed() const;
    void RequireBookmarks() const;
    void RequireUpdatable() const;
    void RequireNotEditing() const;
    bool HasBookmarks() const;
    bool IsUpdatable() const { return lock_ != adLockReadOnly; }

    std::int64_t Run(); // sends the statement and takes its rows over; @return rows affected
    void ReadRows();
    void Release();
    bool Step();
    void FinishEdit();
    void FireMoveComplete();
    std::size_t StartRow(const basic::Variant& start) const;
    void GoTo(std::int64_t row); // any number: below the first it is BOF, behind the last EOF

    void StartEdit(bool adding);
    void WriteNewRow();
    void WriteChanges();
    std::optional<std::size_t> RowKeyColumn(std::string_view table) const;
    std::string TableOfNewRow() const;
    basic::Variant Write(const RowChange& change);

    // Settings.
    CursorTypeEnum type_ = adOpenForwardOnly;
    LockTypeEnum lock_ = adLockReadOnly;
    std::optional<CursorLocationEnum> location_;

    // What was opened.
    bool open_ = false;
    std::string source_; // as the caller gave it
    std::string text_;   // as it is sent
    ExecuteOptions options_;
    bool noRecords_ = false;
    bool laterRows_ = false; // rows behind the first ones are read when they are asked for
    std::shared_ptr<ConnectionCore> connection_;
    std::shared_ptr<const std::vector<ColumnInfo>> infos_;
    std::size_t visible_ = 0;

    // Rows: either still in the engine, or here.
    std::unique_ptr<DriverStatement> statement_;
    std::shared_ptr<RowSet> rows_;
    std::exception_ptr endError_; // what ended a stream that was read ahead; raised where its rows end

    // Where it stands.
    Place place_ = Place::None;
    std::size_t row_ = 0;  // in rows_
    bool onFirst_ = false; // no move so far: MoveFirst of a forward-only cursor need not run the statement again
    std::optional<Edit> edit_;
    mutable OwnedCell scratch_; // a field being edited, as a cell

    std::vector<std::pair<std::uint64_t, std::function<void()>>> handlers_;
    std::uint64_t lastHandler_ = 0;
};

} // namespace kvx::ado

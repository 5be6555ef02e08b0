#pragma once

#include "ado/Constants.h"
#include "ado/Field.h"
#include "ado/RowBlock.h"
#include "basic/Variant.h"

#include <concepts>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace kvx::ado {

class Connection;

/// The rows of one statement. Copies share the cursor; the last one to go closes it.
///
/// A forward-only read-only recordset reads straight from the engine and keeps no row. Any other holds its rows in
/// columns (static, also when keyset or dynamic was asked for): moves in both directions, Find, edits. Bookmarks,
/// Clone, AbsolutePosition and RecordCount come with static, keyset and client cursors.
///
/// Every member but State, Open and the settings raises 3704 on a closed recordset. A statement that returns no rows
/// leaves the recordset closed.
class Recordset {
public:
    Recordset();

    // Settings; assigning one of an open recordset raises 3705.
    CursorTypeEnum CursorType() const; ///< after Open: what was really opened; client location is always static
    void SetCursorType(CursorTypeEnum type);
    LockTypeEnum LockType() const;
    void SetLockType(LockTypeEnum type);
    CursorLocationEnum CursorLocation() const; ///< the connection's, until assigned here
    void SetCursorLocation(CursorLocationEnum location);

    /// Runs the statement and stands on its first row.
    /// @param source   SQL text, or the bare name of a table
    /// @param options  a CommandTypeEnum; not given: text first, then procedure, then table
    /// @throws basic::Error the provider's number and text; the recordset is then closed. 3705: already open;
    ///         3709: the connection is closed
    void Open(std::string_view source, const Connection& active, CursorTypeEnum cursor = adOpenUnspecified,
              LockTypeEnum lock = adLockUnspecified, std::int32_t options = adCmdUnspecified);

    /// @throws basic::Error 3704: is closed; 3219: a row is being edited
    void Close();
    std::int32_t State() const;          ///< adStateOpen or adStateClosed
    const std::string& Source() const;   ///< the text given to Open
    Connection ActiveConnection() const; ///< the one it was opened on; a closed one before the first Open

    /// Runs the statement again and stands on the first row; old bookmarks no longer count.
    /// @throws basic::Error 3219: a row is being edited
    void Requery();

    bool Bof() const; ///< before the first row, or no rows
    bool Eof() const; ///< behind the last row, or no rows

    // Moves. While a row is being edited they write it first (as Update), and stay when that fails.
    // @throws basic::Error 3021: no rows, or already past that end; 3219: forward-only cursor asked to go back
    void MoveNext();
    void MovePrevious();
    void MoveFirst(); ///< forward-only: runs the statement again unless it still stands on the first row
    void MoveLast();
    /// @param rows   how far, negative = back; it stops at the ends
    /// @param start  a bookmark or a BookmarkEnum
    void Move(std::int64_t rows, const basic::Variant& start = basic::Variant(std::int32_t{adBookmarkCurrent}));

    /// From 1; -1 while a new row is edited, -2 at BOF or without rows, -3 at EOF. @throws basic::Error 3251: no
    /// bookmarks
    std::int64_t AbsolutePosition() const;
    /// @throws basic::Error 3001: no such row; 3251: no bookmarks
    void SetAbsolutePosition(std::int64_t position);
    /// Names the current row for this recordset and its clones until Requery or Open.
    /// @throws basic::Error 3251: no bookmarks; 3021: no current row
    basic::Variant Bookmark() const;
    /// @throws basic::Error 3001: not a bookmark of this recordset; 3251: no bookmarks
    void SetBookmark(const basic::Variant& bookmark);
    std::int64_t RecordCount() const; ///< -1 for forward-only and dynamic cursors

    /// After Open with adAsyncFetch: rows that have been read so far, and reading more of them. Whoever needs a row that
    /// is not here yet (a move, Find, RecordCount, a clone's too) reads up to it; another statement on the connection
    /// reads all.
    std::int64_t RowsHere() const;
    /// @param rows  how many to read at most
    /// @return true: there are more @throws basic::Error the provider's; the rows read so far stay
    bool FetchMore(std::size_t rows);

    /// Looks for a row: one column, one operator (= <> < > <= >= like), one value. Texts stand in ' or #, dates in
    /// #m/d/yyyy#, numbers bare with a decimal point; a column name with blanks in [ ]. Text ignores case; like takes
    /// * or % at the end or at both ends. No match is no error: forward leaves EOF, backward BOF.
    /// @param skip   rows to go on from the start before the first is looked at; 0 looks at the start itself
    /// @param start  a bookmark or a BookmarkEnum, instead of the current row
    /// @throws basic::Error 3001: criteria that cannot be read; 3265: no such column; 3021: no current row and no start
    void Find(std::string_view criteria, std::int64_t skip = 0, SearchDirectionEnum direction = adSearchForward,
              const basic::Variant& start = basic::Variant(std::int32_t{adBookmarkCurrent}));

    /// A second position over the same rows, on their first row; has no move events of its own.
    /// @throws basic::Error 3251: no bookmarks
    Recordset Clone() const;

    EditModeEnum EditMode() const;
    /// Starts a new row, which is current at once; its fields are Empty. An edit going on is written first.
    /// @throws basic::Error 3251: read-only
    void AddNew();
    /// Writes the edited row and stays on it. Fields of a new row that nobody assigned are left to the database.
    /// @throws basic::Error the provider's; -2147217864 when somebody else changed the row. It then stays in edit mode
    void Update();
    /// Drops the edit; after AddNew the row before it is current again.
    void CancelUpdate();

    /// Copies the rows from the current one on and leaves EOF: one buffer a column, none a value.
    /// @param rows  how many at most; -1 = all
    /// @throws basic::Error 3021: none left
    RowBlock GetRows(std::int64_t rows = -1);

    ado::Fields Fields() const;
    /// Case is ignored. @throws basic::Error 3265: no such column
    Field operator[](std::string_view name) const { return Fields()[name]; }
    /// From 0. @throws basic::Error 3265: no such column
    Field operator[](std::integral auto index) const { return Fields()[index]; }

    /// Calls the handler at the end of every Open, Requery, move, Find, bookmark change and AddNew, also when no row is
    /// there; a data control hangs on it. Clones have none. A handler may come more often than rows change.
    /// @return what RemoveMoveComplete takes
    std::uint64_t AddMoveComplete(std::function<void()> handler);
    void RemoveMoveComplete(std::uint64_t id);

    /// For late binding: "EOF", "MoveNext", "Fields"(i) ...; the default property is Fields.
    basic::ObjectRef AsObject() const;

    /// True when both are handles of one recordset.
    bool operator==(const Recordset& other) const { return cursor_ == other.cursor_; }

private:
    friend class Connection;
    explicit Recordset(std::shared_ptr<Cursor> cursor) : cursor_(std::move(cursor)) {}

    std::shared_ptr<Cursor> cursor_;
};

} // namespace kvx::ado

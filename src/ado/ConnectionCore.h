#pragma once

#include "ado/Constants.h"
#include "ado/Driver.h"
#include "ado/StatementObserver.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::ado {

class Cursor;

/// What the copies of a Connection share, and its recordsets keep alive.
class ConnectionCore {
public:
    ConnectionCore();
    ~ConnectionCore();
    ConnectionCore(const ConnectionCore&) = delete;
    ConnectionCore& operator=(const ConnectionCore&) = delete;

    std::string ConnectionString() const;
    void SetConnectionString(std::string_view text);
    void Open();
    void Close();
    bool IsOpen() const { return driver_ != nullptr; }

    DriverConnection& Driver() const { return *driver_; }

    /// Sends a statement and tells the observers before and after.
    /// @param send  runs the statement; @return rows touched
    void Send(std::string_view text, bool rowWrite, const std::function<std::int64_t()>& send);

    /// Results that are still being stepped are read to their end, as far as the statement could disturb them.
    void FinishStreams(std::string_view text, bool rowWrite);

    // Open cursors: closed along with the connection.
    void Register(Cursor* cursor) { cursors_.push_back(cursor); }
    void Unregister(const Cursor* cursor);

    const std::uint64_t id;
    std::int32_t commandTimeout = 30;
    CursorLocationEnum cursorLocation = adUseServer;
    std::vector<std::shared_ptr<StatementObserver>> observers;

private:
    std::string text_;
    bool hidePassword_ = false; // from Open on, until the string is assigned anew
    std::unique_ptr<DriverConnection> driver_;
    std::vector<Cursor*> cursors_;
};

} // namespace kvx::ado

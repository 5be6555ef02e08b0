#pragma once

#include <sql.h>
#include <sqlext.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// ODBC's handles with an owner, and its texts. Statements and names go as UTF-16: the driver manager would read bytes
// by the locale of the process.
namespace kvx::adapters::odbc {

/// An environment, connection or statement; freed with its owner.
template <SQLSMALLINT Type>
class Handle {
public:
    Handle() = default;
    explicit Handle(SQLHANDLE parent) { SQLAllocHandle(Type, parent, &handle_); }
    ~Handle() { Reset(); }
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept
    {
        if (this != &other) {
            Reset();
            handle_ = std::exchange(other.handle_, nullptr);
        }
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    SQLHANDLE Get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }
    void Reset()
    {
        if (handle_ != nullptr) SQLFreeHandle(Type, std::exchange(handle_, nullptr));
    }

private:
    SQLHANDLE handle_ = nullptr;
};
using StatementHandle = Handle<SQL_HANDLE_STMT>;

std::vector<SQLWCHAR> ToWide(std::string_view utf8);  ///< ends with a zero, which counts in the size
/// Appends; a broken pair becomes U+FFFD.
void AppendUtf8(std::string& text, const SQLWCHAR* wide, std::size_t size);
std::string FromWide(const SQLWCHAR* wide, std::size_t size);

/// An attribute whose value is a number stands in the place of the pointer.
inline SQLPOINTER NumberValue(SQLULEN number)
{
    return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr): so the interface wants it
}

}  // namespace kvx::adapters::odbc

#include "ado/ConnectionCore.h"

#include "ado/Cursor.h"
#include "ado/Errors.h"
#include "basic/Error.h"
#include "basic/Object.h"

#include <algorithm>
#include <utility>

namespace kvx::ado {
namespace {

using Observers = std::vector<std::shared_ptr<StatementObserver>>;

Observers& ProcessObservers()
{
    static Observers observers;
    return observers;
}

void Remove(Observers& observers, const StatementObserver* observer)
{
    std::erase_if(observers, [&](const auto& known) { return known.get() == observer; });
}

std::uint64_t NextId()
{
    static std::uint64_t last = 0;
    return ++last;
}

bool IsWordCharacter(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z') || character == '_' || static_cast<unsigned char>(character) >= 0x80;
}

// True when the text surely only reads: it begins with SELECT and holds no word that writes. A literal with such a word
// makes it false, which costs memory and nothing else.
bool OnlyReads(std::string_view text)
{
    constexpr std::string_view kWriting[] = {"INSERT", "UPDATE", "DELETE", "INTO",    "EXEC",  "EXECUTE",  "MERGE",
                                             "CREATE", "DROP",   "ALTER",  "REPLACE", "BEGIN", "TRUNCATE", "COMMIT"};
    bool first = true;
    std::size_t position = 0;
    while (position < text.size()) {
        if (!IsWordCharacter(text[position])) {
            ++position;
            continue;
        }
        std::size_t end = position;
        while (end < text.size() && IsWordCharacter(text[end]))
            ++end;
        const std::string_view word = text.substr(position, end - position);
        position = end;
        if (std::exchange(first, false)) {
            if (!basic::SameName(word, "SELECT")) return false;
        } else if (std::ranges::any_of(kWriting, [&](std::string_view name) { return basic::SameName(word, name); })) {
            return false;
        }
    }
    return !first;
}

} // namespace

void AddProcessObserver(std::shared_ptr<StatementObserver> observer)
{
    ProcessObservers().push_back(std::move(observer));
}

void RemoveProcessObserver(const StatementObserver* observer)
{
    Remove(ProcessObservers(), observer);
}

ConnectionCore::ConnectionCore() : id(NextId()) {}

// The cursors hold the connection, so none is left here.
ConnectionCore::~ConnectionCore() = default;

std::string ConnectionCore::ConnectionString() const
{
    if (!hidePassword_) return text_;
    const ConnectionProperties properties(text_);
    if (!properties.Has("Password") && !properties.Has("PWD")) return text_;
    if (basic::SameName(properties.Get({"Persist Security Info"}), "True")) return text_;
    return properties.ToString({"Password", "PWD"});
}

void ConnectionCore::SetConnectionString(std::string_view text)
{
    if (IsOpen()) RaiseAdo(kErrObjectOpen, "ADODB.Connection");
    text_ = text;
    hidePassword_ = false;
}

void ConnectionCore::Open()
{
    if (IsOpen()) RaiseAdo(kErrObjectOpen, "ADODB.Connection");
    driver_ = OpenDriver(ConnectionProperties(text_));
    hidePassword_ = true;
}

void ConnectionCore::Close()
{
    if (!IsOpen()) RaiseAdo(kErrObjectClosed, "ADODB.Connection");
    for (Cursor* cursor : std::exchange(cursors_, {}))
        cursor->ConnectionClosed();
    driver_.reset();
}

void ConnectionCore::Unregister(const Cursor* cursor)
{
    const auto found = std::find(cursors_.rbegin(), cursors_.rend(), cursor); // mostly the last one
    if (found != cursors_.rend()) cursors_.erase(std::next(found).base());
}

void ConnectionCore::FinishStreams(std::string_view text, bool rowWrite)
{
    const bool streaming = std::ranges::any_of(cursors_, [](const Cursor* cursor) { return cursor->IsStreaming(); });
    if (!streaming) return;
    const DriverTraits& traits = driver_->Traits();
    const bool disturbs = traits.readsSeeLaterWrites && (rowWrite || !OnlyReads(text));
    if (traits.rowsWhileReading && !disturbs) return;
    for (Cursor* cursor : cursors_)
        cursor->FinishStream();
}

void ConnectionCore::Send(std::string_view text, bool rowWrite, const std::function<std::int64_t()>& send)
{
    if (!IsOpen()) RaiseAdo(kErrObjectClosed, "ADODB.Connection");
    // Copies: an observer may add or remove observers.
    Observers watching = observers;
    watching.insert(watching.end(), ProcessObservers().begin(), ProcessObservers().end());
    StatementRecord record;
    if (!watching.empty()) record = {.text = std::string(text), .connectionId = id, .rowWrite = rowWrite};
    const auto tell = [&] {
        for (const auto& observer : watching)
            observer->AfterExecute(record);
    };
    try {
        for (const auto& observer : watching)
            observer->BeforeExecute(text);
        record.sent = true;
        FinishStreams(text, rowWrite);
        record.recordsAffected = send();
    } catch (basic::Error& error) {
        if (error.Statement.empty()) error.Statement = text;
        record.errorNumber = error.Number;
        record.errorDescription = error.Description;
        tell();
        throw;
    }
    record.succeeded = true;
    tell();
}

} // namespace kvx::ado

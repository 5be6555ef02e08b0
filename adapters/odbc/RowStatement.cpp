#include "adapters/odbc/RowStatement.h"

#include "ado/Constants.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>

namespace kvx::adapters::odbc {
namespace {

using Kind = ado::Cell::Kind;

constexpr std::size_t kBlockBytes = std::size_t{256} * 1024;
constexpr SQLULEN kMostRows = 1024;
constexpr std::size_t kLongestBound = 2000;  // characters
constexpr std::size_t kPiece = 16384;        // bytes of a long value fetched at once
constexpr int kExactDigits = 15;             // a double keeps so many

bool IsWholeType(ado::DataTypeEnum type)
{
    return type == ado::adSmallInt || type == ado::adInteger || type == ado::adUnsignedTinyInt ||
           type == ado::adBigInt || type == ado::adBoolean;
}

ado::Cell WholeCell(std::int64_t value)
{
    return {.kind = Kind::Integer, .integer = value, .real = 0, .text = {}};
}

// "12.50" as the embedded engine would give it: whole numbers as such, short decimals as a double, the rest as text.
ado::Cell DecimalCell(std::string_view digits)
{
    ado::Cell cell;
    const std::size_t point = digits.find('.');
    if (point != std::string_view::npos) {
        while (digits.ends_with('0'))
            digits.remove_suffix(1);
        if (digits.ends_with('.')) digits.remove_suffix(1);
    }
    const char* const end = digits.data() + digits.size();
    if (digits.find_first_of(".eE") == std::string_view::npos) {
        const auto whole = std::from_chars(digits.data(), end, cell.integer);
        if (whole.ec == std::errc() && whole.ptr == end) {
            cell.kind = Kind::Integer;
            return cell;
        }
    }
    if (digits.size() <= kExactDigits) {
        const auto real = std::from_chars(digits.data(), end, cell.real);
        if (real.ec == std::errc() && real.ptr == end) {
            cell.kind = Kind::Real;
            return cell;
        }
    }
    cell.kind = Kind::Text;
    cell.text = digits;
    return cell;
}

// Truth in the words of engines whose driver knows no such type.
std::int64_t FlagOf(std::string_view text)
{
    if (text == "t" || text == "true" || text == "TRUE" || text == "T") return 1;
    std::int64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

void StampText(std::string& text, const SQL_TIMESTAMP_STRUCT& stamp)
{
    std::array<char, 64> buffer{};
    int size = std::snprintf(buffer.data(), buffer.size(), "%04d-%02u-%02u", stamp.year, stamp.month, stamp.day);
    if (stamp.hour != 0 || stamp.minute != 0 || stamp.second != 0 || stamp.fraction != 0)
        size += std::snprintf(buffer.data() + size, buffer.size() - static_cast<std::size_t>(size), " %02u:%02u:%02u",
                              stamp.hour, stamp.minute, stamp.second);
    if (stamp.fraction >= 1'000'000)
        size += std::snprintf(buffer.data() + size, buffer.size() - static_cast<std::size_t>(size), ".%03u",
                              static_cast<unsigned>(stamp.fraction / 1'000'000));
    text.assign(buffer.data(), static_cast<std::size_t>(size));
}

std::size_t Characters(std::string_view utf8)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace

RowStatement::RowStatement(Connection& connection, StatementHandle statement, const std::vector<DriverColumn>& columns,
                           std::vector<ado::ColumnInfo> infos, std::size_t visible,
                           std::vector<std::vector<std::size_t>> keyParts)
    : connection_(connection), infos_(std::make_shared<const std::vector<ado::ColumnInfo>>(std::move(infos))),
      visible_(visible), keyParts_(std::move(keyParts)), keyTexts_(keyParts_.size()), statement_(std::move(statement))
{
    Prepare(columns);
}

void RowStatement::Prepare(const std::vector<DriverColumn>& columns)
{
    const bool utf8 = connection_.TextIsUtf8();
    buffers_.resize(columns.size());
    firstUnbound_ = columns.size();
    std::size_t rowBytes = 0;
    for (std::size_t index = 0; index < columns.size(); ++index) {
        const DriverColumn& column = columns[index];
        const ado::ColumnInfo info = index < visible_ ? (*infos_)[index] : InfoOf(column);
        Buffer& buffer = buffers_[index];
        const auto set = [&](Form form, SQLSMALLINT cType, std::size_t width) {
            buffer.form = form;
            buffer.cType = cType;
            buffer.width = width;
        };
        const bool textual = IsCharacterType(column.type);
        if (IsWholeType(info.type) && !textual)
            set(Form::Integer, SQL_C_SBIGINT, sizeof(std::int64_t));
        else if (IsWholeType(info.type))
            set(Form::Flag, SQL_C_CHAR, 32);
        else if (info.type == ado::adSingle || info.type == ado::adDouble)
            set(Form::Real, SQL_C_DOUBLE, sizeof(double));
        else if (info.type == ado::adNumeric || info.type == ado::adCurrency)
            set(Form::Decimal, SQL_C_CHAR, 48);
        else if (info.type == ado::adDBTimeStamp && !textual)
            set(Form::Stamp, SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT));
        else {
            const std::size_t characters = std::max<std::size_t>(column.size, textual ? 0 : 40);
            const bool isLong = characters == 0 || characters > kLongestBound;
            if (isLong)
                set(utf8 ? Form::LongUtf8 : Form::LongUtf16, utf8 ? SQL_C_CHAR : SQL_C_WCHAR, 0);
            else if (utf8)
                set(Form::Utf8, SQL_C_CHAR, characters * 4 + 1);
            else
                set(Form::Utf16, SQL_C_WCHAR, (characters * 2 + 1) * sizeof(SQLWCHAR));
            if (isLong) firstUnbound_ = std::min(firstUnbound_, index);
            if (info.type == ado::adChar || info.type == ado::adWChar)
                buffer.padTo = static_cast<std::size_t>(info.definedSize);
        }
        rowBytes += buffer.width + sizeof(SQLLEN);
    }
    if (firstUnbound_ == columns.size())
        blockRows_ = std::clamp<SQLULEN>(kBlockBytes / std::max<std::size_t>(rowBytes, 1), 1, kMostRows);
    if (blockRows_ > 1 &&
        !SQL_SUCCEEDED(SQLSetStmtAttrW(statement_.Get(), SQL_ATTR_ROW_ARRAY_SIZE, NumberValue(blockRows_), 0)))
        blockRows_ = 1;
    SQLSetStmtAttrW(statement_.Get(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
    for (std::size_t index = 0; index < columns.size(); ++index) {
        Buffer& buffer = buffers_[index];
        buffer.values.reset(new std::byte[buffer.width * blockRows_]);  // not cleared: most of it is never touched
        buffer.lengths.resize(blockRows_);
        if (index >= firstUnbound_) continue;
        connection_.Check(statement_,
                          SQLBindCol(statement_.Get(), static_cast<SQLUSMALLINT>(index + 1), buffer.cType,
                                     buffer.values.get(), static_cast<SQLLEN>(buffer.width), buffer.lengths.data()));
    }
}

bool RowStatement::Step()
{
    if (done_) return false;
    if (++row_ < fetched_) return true;
    if (FetchBlock()) return true;
    done_ = true;
    return false;
}

bool RowStatement::FetchBlock()
{
    row_ = 0;
    fetched_ = 0;
    const SQLRETURN result = SQLFetch(statement_.Get());
    if (result == SQL_NO_DATA) return false;
    if (!SQL_SUCCEEDED(result)) {
        done_ = true;
        connection_.Raise(statement_);
    }
    if (fetched_ == 0) return false;
    if (result == SQL_SUCCESS_WITH_INFO) CheckLengths();
    if (firstUnbound_ < buffers_.size()) GetRest();
    return true;
}

// A text that is longer than its column said would be cut without a word.
void RowStatement::CheckLengths()
{
    for (std::size_t index = 0; index < firstUnbound_; ++index) {
        const Buffer& buffer = buffers_[index];
        if (buffer.form != Form::Utf8 && buffer.form != Form::Utf16) continue;
        for (SQLULEN row = 0; row < fetched_; ++row)
            if (buffer.lengths[row] == SQL_NO_TOTAL || buffer.lengths[row] > static_cast<SQLLEN>(buffer.width))
                throw MakeError(ado::kErrOutOfRange,
                                "A value of column " + std::to_string(index + 1) + " is longer than its column says.");
    }
}

void RowStatement::GetRest()
{
    for (std::size_t index = firstUnbound_; index < buffers_.size(); ++index) {
        Buffer& buffer = buffers_[index];
        const auto number = static_cast<SQLUSMALLINT>(index + 1);
        if (buffer.form == Form::LongUtf8 || buffer.form == Form::LongUtf16)
            GetLong(number, buffer);
        else
            connection_.Check(statement_, SQLGetData(statement_.Get(), number, buffer.cType, buffer.values.get(),
                                                     static_cast<SQLLEN>(buffer.width), buffer.lengths.data()));
    }
}

void RowStatement::GetLong(SQLUSMALLINT number, Buffer& buffer)
{
    const bool wide = buffer.form == Form::LongUtf16;
    const std::size_t zero = wide ? sizeof(SQLWCHAR) : 1;
    std::string bytes;
    buffer.text.clear();
    buffer.lengths[0] = 0;
    while (true) {
        std::array<SQLWCHAR, kPiece / sizeof(SQLWCHAR)> piece;
        SQLLEN length = 0;
        const SQLRETURN result =
            SQLGetData(statement_.Get(), number, buffer.cType, piece.data(), static_cast<SQLLEN>(kPiece), &length);
        connection_.Check(statement_, result);
        if (result == SQL_NO_DATA) break;
        if (length == SQL_NULL_DATA) {
            buffer.lengths[0] = SQL_NULL_DATA;
            return;
        }
        const bool more = result == SQL_SUCCESS_WITH_INFO &&
                          (length == SQL_NO_TOTAL || static_cast<std::size_t>(length) > kPiece - zero);
        const std::size_t size = more ? kPiece - zero : static_cast<std::size_t>(length);
        bytes.append(reinterpret_cast<const char*>(piece.data()), size);
        if (!more) break;
    }
    if (!wide) {
        buffer.text = std::move(bytes);
        return;
    }
    std::vector<SQLWCHAR> units(bytes.size() / sizeof(SQLWCHAR));
    if (!units.empty()) std::memcpy(units.data(), bytes.data(), units.size() * sizeof(SQLWCHAR));
    AppendUtf8(buffer.text, units.data(), units.size());
}

ado::Cell RowStatement::CellOf(const Buffer& buffer) const
{
    const SQLLEN length = buffer.lengths[row_];
    if (length == SQL_NULL_DATA) return {};
    const std::byte* const value = buffer.values.get() + row_ * buffer.width;
    const auto characters = [&] {
        const std::size_t most = buffer.width - 1;
        return std::string_view(reinterpret_cast<const char*>(value), std::min(static_cast<std::size_t>(length), most));
    };
    ado::Cell cell;
    switch (buffer.form) {
    case Form::Integer: {
        std::int64_t number = 0;
        std::memcpy(&number, value, sizeof(number));
        return WholeCell(number);
    }
    case Form::Flag: return WholeCell(FlagOf(characters()));
    case Form::Decimal: return DecimalCell(characters());
    case Form::Real:
        cell.kind = Kind::Real;
        std::memcpy(&cell.real, value, sizeof(double));
        return cell;
    case Form::Stamp: {
        SQL_TIMESTAMP_STRUCT stamp;
        std::memcpy(&stamp, value, sizeof(stamp));
        StampText(buffer.text, stamp);
        cell.text = buffer.text;
        break;
    }
    case Form::Utf8: cell.text = characters(); break;
    case Form::Utf16: {
        const std::size_t units =
            std::min(static_cast<std::size_t>(length), buffer.width - sizeof(SQLWCHAR)) / sizeof(SQLWCHAR);
        buffer.text.clear();
        AppendUtf8(buffer.text, reinterpret_cast<const SQLWCHAR*>(value), units);
        cell.text = buffer.text;
        break;
    }
    case Form::LongUtf8:
    case Form::LongUtf16: cell.text = buffer.text; break;
    }
    cell.kind = Kind::Text;
    if (buffer.padTo > 0) {
        const std::size_t size = Characters(cell.text);
        if (size < buffer.padTo) {
            std::string padded(cell.text);
            padded.append(buffer.padTo - size, ' ');
            buffer.text = std::move(padded);
            cell.text = buffer.text;
        }
    }
    return cell;
}

ado::Cell RowStatement::KeyCell(std::size_t key) const
{
    const std::vector<std::size_t>& parts = keyParts_[key];
    if (parts.size() == 1) return CellOf(buffers_[parts.front()]);
    std::string& text = keyTexts_[key];
    text.clear();
    for (const std::size_t part : parts) {
        const ado::Cell cell = CellOf(buffers_[part]);
        if (cell.kind == Kind::Null) return {};  // an outer join found no row here
        if (part != parts.front()) text += kKeySeparator;
        if (cell.kind == Kind::Integer)
            text += std::to_string(cell.integer);
        else
            text += cell.text;
    }
    ado::Cell cell;
    cell.kind = Kind::Text;
    cell.text = text;
    return cell;
}

ado::Cell RowStatement::At(std::size_t column) const
{
    if (done_) return {};
    return column < visible_ ? CellOf(buffers_[column]) : KeyCell(column - visible_);
}

KeptStatement::KeptStatement(RowStatement& rows) : store_(rows.SharedColumns())
{
    std::vector<ado::Cell> cells(rows.Columns().size());
    while (rows.Step()) {
        rows.Read(cells);
        store_.Append(cells);
    }
}

void RowStatement::Read(std::span<ado::Cell> cells) const
{
    for (std::size_t column = 0; column < cells.size(); ++column)
        cells[column] = RowStatement::At(column);
}

}  // namespace kvx::adapters::odbc

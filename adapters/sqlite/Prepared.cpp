#include "adapters/sqlite/Prepared.h"

#include "adapters/sqlite/Errors.h"
#include "ado/Constants.h"

#include <algorithm>
#include <cstring>
#include <sqlite3.h>

namespace kvx::adapters::sqlite {

void FinalizeStatement::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

// The engine reads up to the first zero or the first semicolon and would leave the rest out without a word.
StatementPtr Prepare(sqlite3* database, const std::string& sql, bool keep)
{
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    const int result = sqlite3_prepare_v3(database, sql.c_str(), static_cast<int>(sql.size()) + 1,
                                          keep ? SQLITE_PREPARE_PERSISTENT : 0, &statement, &tail);
    StatementPtr owner(statement);
    Check(database, result);
    const char* const end = sql.data() + sql.size();
    if (tail == end) return owner;
    if (std::find(tail, end, '\0') != end || std::strlen(sql.c_str()) != sql.size())
        throw MakeError(ado::kErrStatement, "unrecognized token: a zero");
    const std::string rest(tail, end);
    if (rest.find_first_not_of(" \t\r\n;") == std::string::npos) return owner;
    if (Prepare(database, rest, false) != nullptr)
        throw MakeError(ado::kErrStatement, "near \"" + rest + "\": syntax error");
    return owner;
}

// Eight bytes at a time: a whole statement is hashed at every look-up.
std::size_t ShapeCache::HashOf(std::string_view text)
{
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15ull;
    std::uint64_t hash = text.size() * kFactor;
    while (!text.empty()) {
        std::uint64_t word = 0;
        const std::size_t size = std::min<std::size_t>(text.size(), 8);
        std::memcpy(&word, text.data(), size);
        hash = (hash ^ word) * kFactor;
        hash ^= hash >> 29;
        text.remove_prefix(size);
    }
    return static_cast<std::size_t>(hash ^ hash >> 32);
}

Shape* ShapeCache::Find(std::string_view text)
{
    const std::size_t hash = HashOf(text);
    if (const auto found = shapes_.find(hash); found != shapes_.end()) {
        Shape& shape = found->second;
        if (shape.text != text) return nullptr;  // two shapes of one hash: the second is not kept
        if (byUse_.front() != &shape) byUse_.splice(byUse_.begin(), byUse_, shape.place);
        return &shape;
    }
    std::size_t& slot = seen_[hash % kRemembered];
    if (slot != hash) {
        slot = hash;
        return nullptr;
    }
    Shape& shape = shapes_[hash];
    shape.text = text;
    shape.hash = hash;
    shape.place = byUse_.insert(byUse_.begin(), &shape);
    for (auto last = byUse_.end(); shapes_.size() > capacity_ && last != byUse_.begin();) {
        Shape* oldest = *--last;
        if (oldest->inUse > 0 || oldest == &shape) continue;
        last = byUse_.erase(last);
        shapes_.erase(oldest->hash);
    }
    return &shape;
}

std::unique_ptr<Prepared> ShapeCache::Take(Shape& shape)
{
    if (shape.idle.empty()) return nullptr;
    std::unique_ptr<Prepared> prepared = std::move(shape.idle.back());
    shape.idle.pop_back();
    ++shape.inUse;
    return prepared;
}

void ShapeCache::Adopt(Prepared& prepared, Shape& shape)
{
    prepared.shape = &shape;
    prepared.generation = generation_;
    ++shape.inUse;
}

void ShapeCache::GiveBack(std::unique_ptr<Prepared> prepared)
{
    Shape* shape = prepared->shape;
    if (shape == nullptr) return;
    --shape->inUse;
    if (prepared->generation == generation_) shape->idle.push_back(std::move(prepared));
}

void ShapeCache::Clear()
{
    ++generation_;
    for (auto it = shapes_.begin(); it != shapes_.end();) {
        Shape& shape = it->second;
        shape.idle.clear();
        if (shape.inUse == 0) {
            byUse_.erase(shape.place);
            it = shapes_.erase(it);
        } else {
            ++it;
        }
    }
}

}  // namespace kvx::adapters::sqlite

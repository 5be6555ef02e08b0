#include "adapters/sqlite/Prepared.h"

#include "adapters/sqlite/Errors.h"

#include <cstring>
#include <sqlite3.h>

namespace kvx::adapters::sqlite {

void FinalizeStatement::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

StatementPtr Prepare(sqlite3* database, std::string_view sql, bool keep)
{
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                                          keep ? SQLITE_PREPARE_PERSISTENT : 0, &statement, nullptr);
    Check(database, result);
    return StatementPtr(statement);
}

// Eight bytes at a time: the key is a whole statement, and every look-up hashes one.
std::size_t ShapeCache::Hash::operator()(const std::string& key) const noexcept
{
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15ull;
    std::uint64_t hash = key.size() * kFactor;
    const char* data = key.data();
    std::size_t left = key.size();
    while (left >= 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, data, 8);
        hash = (hash ^ word) * kFactor;
        hash ^= hash >> 29;
        data += 8;
        left -= 8;
    }
    std::uint64_t word = 0;
    std::memcpy(&word, data, left);
    hash = (hash ^ word) * kFactor;
    return static_cast<std::size_t>(hash ^ hash >> 32);
}

Shape* ShapeCache::Find(const std::string& key)
{
    if (const auto found = shapes_.find(key); found != shapes_.end()) {
        Shape& shape = found->second;
        if (byUse_.front() != &shape) byUse_.splice(byUse_.begin(), byUse_, shape.place);
        return &shape;
    }
    const std::size_t hash = Hash()(key);
    std::size_t& slot = seen_[hash % kRemembered];
    if (slot != hash) {
        slot = hash;
        return nullptr;
    }
    const auto it = shapes_.try_emplace(key).first;
    Shape& shape = it->second;
    shape.key = &it->first;
    shape.place = byUse_.insert(byUse_.begin(), &shape);
    for (auto last = byUse_.end(); shapes_.size() > capacity_ && last != byUse_.begin();) {
        Shape* oldest = *--last;
        if (oldest->inUse > 0 || oldest == &shape) continue;
        last = byUse_.erase(last);
        shapes_.erase(shapes_.find(*oldest->key));
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

} // namespace kvx::adapters::sqlite

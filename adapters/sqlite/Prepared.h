#pragma once

#include "adapters/sqlite/Translate.h"
#include "ado/Driver.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace kvx::adapters::sqlite {

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const;
};
using StatementPtr = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// @throws basic::Error the engine's
StatementPtr Prepare(sqlite3* database, const std::string& sql, bool keep);

struct Shape;

/// A statement made ready to run, with what the layer above wants to know about its columns.
struct Prepared {
    StatementPtr statement;
    bool readOnly = true;
    std::shared_ptr<const std::vector<ado::ColumnInfo>> columns;  ///< empty: gives no rows
    std::vector<std::optional<Assignment>> parameters;
    std::string values;      ///< the bound texts
    Shape* shape = nullptr;  ///< where it goes back to; nullptr: it is used once
    std::uint32_t generation = 0;
};

/// One shape of statement, and the statements of it that nobody uses at the moment.
struct Shape {
    std::vector<std::unique_ptr<Prepared>> idle;
    std::size_t inUse = 0;
    std::list<Shape*>::iterator place;
    std::string text;
    std::size_t hash = 0;
};

/// Prepared statements by shape; the one not used for longest goes first.
class ShapeCache {
public:
    explicit ShapeCache(std::size_t capacity) : capacity_(capacity), seen_(kRemembered) {}

    /// The shape's place, made when the shape comes for the second time. nullptr the first time: most texts that come
    /// once never come again, and keeping them would only cost memory that others have at hand.
    Shape* Find(std::string_view text);

    /// @return nullptr: every statement of the shape is in use, or it has none yet
    std::unique_ptr<Prepared> Take(Shape& shape);
    void Adopt(Prepared& prepared, Shape& shape);  ///< a new statement of the shape, in use
    void GiveBack(std::unique_ptr<Prepared> prepared);

    /// After a change of the schema: statements in use go when they are given back.
    void Clear();
    std::size_t Size() const { return shapes_.size(); }

private:
    struct SameHash {
        std::size_t operator()(std::size_t hash) const noexcept { return hash; }
    };
    static std::size_t HashOf(std::string_view text);

    static constexpr std::size_t kRemembered = 1024;

    std::size_t capacity_;
    std::vector<std::size_t> seen_;  // hashes of shapes that came once, each in the slot that it points to
    std::unordered_map<std::size_t, Shape, SameHash> shapes_;  // by hash
    std::list<Shape*> byUse_;                                  // the last used first
    std::uint32_t generation_ = 0;
};

}  // namespace kvx::adapters::sqlite

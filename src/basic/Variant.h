#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace kvx::basic {

class Object;
/// A late-bound object of host or library; empty = Nothing.
using ObjectRef = std::shared_ptr<Object>;

enum class VarType : std::int16_t {
    Empty = 0,
    Null = 1,
    Integer = 2,
    Long = 3,
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7,
    String = 8,
    Object = 9,
    Boolean = 11,
    Decimal = 14,
    Byte = 17,
    Array = 8192,
};

struct Empty {};
struct Null {};

/// Money: ten-thousandths of the unit.
struct Currency {
    std::int64_t tenThousandths = 0;
};

/// An exact decimal: units / 10^scale. What numeric(p,s) columns carry.
struct Decimal {
    std::int64_t units = 0;
    std::uint8_t scale = 0;
};

/// Whole days since 30 December 1899; the fraction is the time of day.
struct Date {
    double days = 0;
};

class Variant;
using VariantArray = std::vector<Variant>;

/// A value of any kind; Empty ("never assigned") and Null ("the database knows no value") are two kinds apart.
class Variant {
public:
    Variant() = default;
    Variant(Empty) {}
    Variant(Null value) : value_(value) {}
    Variant(bool value) : value_(value) {}
    Variant(std::uint8_t value) : value_(value) {}
    Variant(std::int16_t value) : value_(value) {}
    Variant(std::int32_t value) : value_(value) {}
    Variant(std::int64_t value) : value_(Decimal{value, 0}) {} ///< more than 32 bits: the classic kind is Decimal
    Variant(float value) : value_(value) {}
    Variant(double value) : value_(value) {}
    Variant(Currency value) : value_(value) {}
    Variant(Decimal value) : value_(value) {}
    Variant(Date value) : value_(value) {}
    Variant(std::string value) : value_(std::move(value)) {}
    Variant(std::string_view value) : value_(std::string(value)) {}
    Variant(const char* value) : value_(std::string(value)) {}
    Variant(ObjectRef value) : value_(std::move(value)) {}
    Variant(VariantArray value) : value_(std::make_shared<VariantArray>(std::move(value))) {}

    Variant(std::nullptr_t) = delete;
    /// A pointer must not turn into a truth value by accident.
    template <class T>
    requires(!std::same_as<std::remove_const_t<T>, char>) Variant(T*)
    = delete;

    /// An array of any content is VarType::Array.
    VarType Type() const;
    bool IsEmpty() const { return std::holds_alternative<Empty>(value_); }
    bool IsNull() const { return std::holds_alternative<Null>(value_); }
    bool IsObject() const { return std::holds_alternative<ObjectRef>(value_); }
    bool IsText() const { return std::holds_alternative<std::string>(value_); }
    bool IsArray() const { return std::holds_alternative<std::shared_ptr<VariantArray>>(value_); }

    /// The value as it is held; nullptr when it is of another kind.
    template <class T>
    const T* As() const
    {
        return std::get_if<T>(&value_);
    }
    /// The value of a kind that is known already. @throws std::bad_variant_access: it is of another kind
    template <class T>
    const T& Held() const
    {
        return std::get<T>(value_);
    }
    /// The items of an array; nullptr when it is none. Copies of a Variant share the array.
    const VariantArray* AsArray() const;
    VariantArray* AsArray();

    /// The object held. @throws Error 424: no object, 91: Nothing
    ObjectRef ToObject() const;

private:
    std::variant<Empty, Null, bool, std::uint8_t, std::int16_t, std::int32_t, float, double, Currency, Decimal, Date,
                 std::string, ObjectRef, std::shared_ptr<VariantArray>>
        value_;
};

} // namespace kvx::basic

#include "basic/Variant.h"

#include "basic/Error.h"

namespace kvx::basic {

VarType Variant::Type() const
{
    // In the order of the alternatives.
    static constexpr VarType kTypes[] = {
        VarType::Empty, VarType::Null,   VarType::Boolean, VarType::Byte,     VarType::Integer,
        VarType::Long,  VarType::Single, VarType::Double,  VarType::Currency, VarType::Decimal,
        VarType::Date,  VarType::String, VarType::Object,  VarType::Array,
    };
    return kTypes[value_.index()];
}

const VariantArray* Variant::AsArray() const
{
    const auto* array = As<std::shared_ptr<VariantArray>>();
    return array == nullptr ? nullptr : array->get();
}

VariantArray* Variant::AsArray()
{
    auto* array = std::get_if<std::shared_ptr<VariantArray>>(&value_);
    return array == nullptr ? nullptr : array->get();
}

ObjectRef Variant::ToObject() const
{
    const ObjectRef* object = As<ObjectRef>();
    if (object == nullptr) Raise(kErrObjectRequired);
    if (*object == nullptr) Raise(kErrObjectNotSet);
    return *object;
}

} // namespace kvx::basic

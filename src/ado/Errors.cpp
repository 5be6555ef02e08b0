#include "ado/Errors.h"

#include "ado/Constants.h"
#include "basic/Error.h"

#include <string>

namespace kvx::ado {
namespace {

struct Wording {
    std::int32_t number;
    std::string_view text;
};

// clang-format off
constexpr Wording kWordings[] = {
    {kErrWrongArgument,     "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another."},
    {kErrNoCurrentRecord,   "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current record."},
    {kErrNotAllowedHere,    "Operation is not allowed in this context."},
    {kErrNotSupported,      "Object or provider is not capable of performing requested operation."},
    {kErrItemNotFound,      "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    {kErrWrongValueType,    "Application uses a value of the wrong type for the current operation."},
    {kErrObjectClosed,      "Operation is not allowed when the object is closed."},
    {kErrObjectOpen,        "Operation is not allowed when the object is open."},
    {kErrProviderNotFound,  "Provider cannot be found. It may not be properly installed."},
    {kErrConnectionInvalid, "The connection cannot be used to perform this operation. It is either closed or invalid in this context."},
    {kErrMultiStep,         "Multiple-step operation generated errors. Check each status value."},
};
// clang-format on

} // namespace

void RaiseAdo(std::int32_t number, std::string_view source)
{
    for (const Wording& wording : kWordings)
        if (wording.number == number) RaiseAdo(number, source, wording.text);
    RaiseAdo(number, source, "Unspecified error");
}

void RaiseAdo(std::int32_t number, std::string_view source, std::string_view description)
{
    throw basic::Error(number, std::string(description), std::string(source));
}

} // namespace kvx::ado

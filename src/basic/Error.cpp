#include "basic/Error.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace kvx::basic {
namespace {

struct Wording {
    std::int32_t number;
    std::string_view text;
};

// clang-format off
constexpr Wording kWordings[] = {
    {    3, "Return without GoSub"},
    {    5, "Invalid procedure call or argument"},
    {    6, "Overflow"},
    {    7, "Out of memory"},
    {    9, "Subscript out of range"},
    {   10, "This array is fixed or temporarily locked"},
    {   11, "Division by zero"},
    {   13, "Type mismatch"},
    {   14, "Out of string space"},
    {   28, "Out of stack space"},
    {   35, "Sub or Function not defined"},
    {   48, "Error in loading DLL"},
    {   51, "Internal error"},
    {   52, "Bad file name or number"},
    {   53, "File not found"},
    {   54, "Bad file mode"},
    {   55, "File already open"},
    {   57, "Device I/O error"},
    {   58, "File already exists"},
    {   61, "Disk full"},
    {   62, "Input past end of file"},
    {   67, "Too many files"},
    {   68, "Device unavailable"},
    {   70, "Permission denied"},
    {   71, "Disk not ready"},
    {   74, "Can't rename with different drive"},
    {   75, "Path/File access error"},
    {   76, "Path not found"},
    {   91, "Object variable or With block variable not set"},
    {   92, "For loop not initialized"},
    {   93, "Invalid pattern string"},
    {   94, "Invalid use of Null"},
    {  340, "Control array element doesn't exist"},
    {  360, "Object already loaded"},
    {  361, "Can't load or unload this object"},
    {  363, "Custom control not found"},
    {  380, "Invalid property value"},
    {  381, "Invalid property array index"},
    {  382, "Property Set can't be executed at run time"},
    {  383, "Property is read-only"},
    {  384, "A form can't be moved or sized while minimized or maximized"},
    {  387, "Property can't be set on this control"},
    {  394, "Property is write-only"},
    {  400, "Form already displayed; can't show modally"},
    {  401, "Can't show non-modal form when modal form is displayed"},
    {  402, "Must close or hide topmost modal form first"},
    {  419, "Permission to use object denied"},
    {  422, "Property not found"},
    {  424, "Object required"},
    {  425, "Invalid object use"},
    {  429, "ActiveX component can't create object"},
    {  430, "Class doesn't support Automation"},
    {  432, "File name or class name not found during Automation operation"},
    {  438, "Object doesn't support this property or method"},
    {  440, "Automation error"},
    {  445, "Object doesn't support this action"},
    {  446, "Object doesn't support named arguments"},
    {  448, "Named argument not found"},
    {  449, "Argument not optional"},
    {  450, "Wrong number of arguments or invalid property assignment"},
    {  451, "Object not a collection"},
    {  457, "This key is already associated with an element of this collection"},
    {  458, "Variable uses a type not supported"},
    {  461, "Method or data member not found"},
    {  482, "Printer error"},
    {  483, "Printer driver does not support specified property"},
    {  521, "Can't open Clipboard"},
    {35600, "Index out of bounds"},
    {35601, "Element not found"},
    {35602, "Key is not unique in collection"},
    {35603, "Invalid key"},
    {35773, "The date is outside the range of MinDate and MaxDate"},
    {35774, "MaxDate must not be before MinDate"},
    {35775, "MinDate must not be after MaxDate"},
};
// clang-format on
static_assert(std::ranges::is_sorted(kWordings, {}, &Wording::number));

std::string_view WordingOf(std::int32_t number)
{
    const auto* row = std::ranges::lower_bound(kWordings, number, {}, &Wording::number);
    const bool known = row != std::end(kWordings) && row->number == number;
    return known ? row->text : "Application-defined or object-defined error";
}

} // namespace

Error::Error(std::int32_t number, std::string description, std::string source)
    : Number(number), Source(std::move(source)), Description(std::move(description))
{
}

void Raise(std::int32_t number)
{
    throw Error(number, std::string(WordingOf(number)));
}

void Raise(std::int32_t number, std::string description)
{
    throw Error(number, std::move(description));
}

} // namespace kvx::basic

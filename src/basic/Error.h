#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace kvx::basic {

/// A failure as hosts know it: a number, where it arose and what to tell the user.
/// The description of a database error stays the provider's own; the statement travels beside it for log and tests.
class Error : public std::exception {
public:
    Error(std::int32_t number, std::string description, std::string source = "Korvex_Forms");

    const char* what() const noexcept override { return Description.c_str(); }

    std::int32_t Number;     ///< short positive for run-time and ADO's own errors, full negative for a provider's
    std::string Source;      ///< component that raised it
    std::string Description; ///< shown to the user as it stands
    std::string Statement;   ///< SQL text that failed; empty when none did
};

// Run-time errors.
constexpr std::int32_t kErrInvalidCall = 5;
constexpr std::int32_t kErrOverflow = 6;
constexpr std::int32_t kErrSubscript = 9;
constexpr std::int32_t kErrDivisionByZero = 11;
constexpr std::int32_t kErrTypeMismatch = 13;
constexpr std::int32_t kErrFileNotFound = 53;
constexpr std::int32_t kErrPermissionDenied = 70;
constexpr std::int32_t kErrFileAccess = 75;
constexpr std::int32_t kErrPathNotFound = 76;
constexpr std::int32_t kErrObjectNotSet = 91;
constexpr std::int32_t kErrInvalidNull = 94;
constexpr std::int32_t kErrControlArrayElement = 340;
constexpr std::int32_t kErrInvalidProperty = 380;
constexpr std::int32_t kErrInvalidIndex = 381;
constexpr std::int32_t kErrReadOnlyProperty = 383;
constexpr std::int32_t kErrFormAlreadyShown = 400;
constexpr std::int32_t kErrObjectRequired = 424;
constexpr std::int32_t kErrCannotCreateObject = 429;
constexpr std::int32_t kErrMemberNotFound = 438;
constexpr std::int32_t kErrKeyExists = 457;
constexpr std::int32_t kErrNodeIndex = 35600;
constexpr std::int32_t kErrNodeNotFound = 35601;
constexpr std::int32_t kErrNodeKeyExists = 35602;
constexpr std::int32_t kErrNodeKeyInvalid = 35603;

/// Raises a run-time error with its usual description.
/// @throws Error always
[[noreturn]] void Raise(std::int32_t number);
[[noreturn]] void Raise(std::int32_t number, std::string description);

} // namespace kvx::basic

#pragma once

#include <string_view>

namespace kvx::adapters::sqlite {

class Connection;

/// Checks who opens a database that carries a login: one with a table KORVEX_LOGIN.
/// @throws basic::Error 80040E4D: no such user or a wrong password
void CheckLogin(Connection& connection, std::string_view user, std::string_view password);

/// Writes the user's salted hash into KORVEX_LOGIN, which is made if it is missing.
void WriteLogin(Connection& connection, std::string_view user, std::string_view password);

}  // namespace kvx::adapters::sqlite

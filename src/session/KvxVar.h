#pragma once

#include "ado/Connection.h"
#include "basic/Object.h"

#include <array>
#include <cstdint>
#include <string>

namespace kvx {

/// The session: who works on which database, in which language, as which client. It is the contract with the host and
/// the sibling library, so order and widths of the fields are fixed. The host owns it; a form copies it when its Run
/// begins and does not see later changes; nothing of ours writes to the caller's record.
struct KvxVar {
    ado::Connection dbAdo;          ///< the open connection; every statement runs on it
    basic::ObjectRef objReserved;   ///< carried only
    std::string strConnection;      ///< connection string, for grids that open a connection of their own
    std::string strLanguage;        ///< language column of STRINGS: "DEUTSCH", "ENGLISH"
    std::string strReserved1;       ///< carried only, as all reserved fields
    std::string strReserved2;
    std::string strReserved3;
    std::string strDateFormat;  ///< date pattern for SQL text, e.g. "DD.MM.YYYY"
    std::string strReserved4;
    std::string strReserved5;
    std::string strAppPath;             ///< install folder of the host, no trailing separator
    std::string strIniFile;             ///< name of the host's INI file in that folder
    std::int32_t ID_USER = 0;           ///< the logged-in user
    std::int32_t ID_ACCESS_LEVELS = 0;  ///< the user's own access level, 0 = none
    std::array<std::int32_t, 8> numReserved{};
    std::string strReserved6;
    std::string strReserved7;
    std::string g_Client;  ///< client code of the installation: "", "BB", "SACHSEN"
    std::int32_t numReserved2 = 0;
    std::string strDBUser;      ///< credentials for the outside application only
    std::string strDBPassword;
    std::int16_t bOracle = 0;  ///< nonzero: the database is Oracle; zero: Microsoft SQL Server
};

}  // namespace kvx

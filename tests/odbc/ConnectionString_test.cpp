#include "adapters/odbc/OdbcDriver.h"
#include "ado/Constants.h"
#include "basic/Error.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kvx::test {
namespace {

std::string Odbc(std::string_view text, const std::vector<std::string>& installed = {})
{
    return adapters::odbc::OdbcConnectionString(ado::ConnectionProperties(text), installed);
}

}  // namespace

TEST(OdbcConnectionString, ADataSourceNameIsHandedOn)
{
    EXPECT_EQ(Odbc("Provider=MSDASQL;DSN=Forst;UID=a;PWD=b"), "DSN=Forst;UID=a;PWD=b;");
    EXPECT_EQ(Odbc("Data Source=Forst;User ID=a;Password=b;Persist Security Info=True"), "DSN=Forst;UID=a;PWD=b;");
}

TEST(OdbcConnectionString, WhatTheDriverKnowsGoesThroughAndTheRestStays)
{
    EXPECT_EQ(Odbc("Provider=MSDASQL;Driver={PostgreSQL Unicode};Server=db;Port=9001;Connect Timeout=3"),
              "Driver={PostgreSQL Unicode};Server=db;Port=9001;");
    EXPECT_EQ(Odbc("Provider=MSDASQL;DSN=x;Extended Properties=\"A=1;B=2\""), "DSN=x;A=1;B=2;");
}

TEST(OdbcConnectionString, SqlServersProviderFindsTheVendorsDriverFirst)
{
    EXPECT_EQ(Odbc("Provider=SQLOLEDB;Data Source=db\\forst,1444;Initial Catalog=WALD;User ID=a;Password=b",
                   {"FreeTDS", "ODBC Driver 17 for SQL Server", "ODBC Driver 18 for SQL Server"}),
              "Driver={ODBC Driver 18 for SQL Server};Server=db\\forst,1444;Database=WALD;UID=a;PWD=b;"
              "MARS_Connection=Yes;");
    EXPECT_EQ(
        Odbc("Provider=MSOLEDBSQL;Server=db;Database=WALD;Integrated Security=SSPI", {"ODBC Driver 17 for SQL Server"}),
        "Driver={ODBC Driver 17 for SQL Server};Server=db;Database=WALD;Trusted_Connection=Yes;"
        "MARS_Connection=Yes;");
}

TEST(OdbcConnectionString, TheFreeDriverIsToldPortEncodingAndProtocol)
{
    EXPECT_EQ(Odbc("Provider=SQLOLEDB;Data Source=db,1444;Initial Catalog=WALD;User ID=a;Password=b", {"FreeTDS"}),
              "Driver={FreeTDS};Server=db;Port=1444;Database=WALD;UID=a;PWD=b;ClientCharset=UTF-8;TDS_Version=7.4;");
    EXPECT_EQ(Odbc("Provider=SQLOLEDB;Data Source=db;TDS_Version=7.2", {"FreeTDS"}),
              "Driver={FreeTDS};Server=db;Port=1433;TDS_Version=7.2;ClientCharset=UTF-8;");
}

TEST(OdbcConnectionString, OraclesProviderNamesTheService)
{
    EXPECT_EQ(Odbc("Provider=OraOLEDB.Oracle;Data Source=FORST;User ID=wald;Password=x", {"Oracle 19 ODBC driver"}),
              "Driver={Oracle 19 ODBC driver};DBQ=FORST;UID=wald;PWD=x;");
}

TEST(OdbcConnectionString, AValueThatCouldEndItsPartIsPutInBraces)
{
    EXPECT_EQ(Odbc("Provider=MSDASQL;DSN=x;UID=a;PWD='b;c}d'"), "DSN=x;UID=a;PWD={b;c}}d};");
}

TEST(OdbcConnectionString, WithoutADriverItIsAnErrorThatSaysSo)
{
    try {
        Odbc("Provider=SQLOLEDB;Data Source=db", {"PostgreSQL Unicode"});
        FAIL() << "no error";
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.Number, ado::kErrUnspecified);
        EXPECT_EQ(error.Description, "No ODBC driver for SQL Server is installed.");
    }
}

}  // namespace kvx::test

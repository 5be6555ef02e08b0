#include "host/Options.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

using kvx::host::HelpText;
using kvx::host::Options;
using kvx::host::ParseOptions;
using kvx::host::StartError;

namespace {

Options Parse(std::initializer_list<std::string_view> arguments)
{
    return ParseOptions(std::vector<std::string_view>(arguments));
}

// The line that the user reads; empty when the options were taken.
std::string Refusal(std::initializer_list<std::string_view> arguments)
{
    try {
        Parse(arguments);
    } catch (const StartError& error) {
        EXPECT_EQ(error.Status(), StartError::kWrongUsage);
        return error.what();
    }
    return "";
}

}  // namespace

TEST(HostOptions, WithoutArgumentsTheHostSpeaksGermanAndAsksForALogin)
{
    const Options options = Parse({});
    EXPECT_FALSE(options.database.has_value());
    EXPECT_EQ(options.language, "DEUTSCH");
    EXPECT_EQ(options.client, "");
    EXPECT_FALSE(options.user.has_value());
    EXPECT_FALSE(options.accessLevel.has_value());
    EXPECT_FALSE(options.oracle);
    EXPECT_EQ(options.traceFile, "");
    EXPECT_EQ(options.tourFolder, "");
}

TEST(HostOptions, EveryOptionIsRead)
{
    const Options options =
        Parse({"--database", "Provider=SQLite;Data Source=a b.db", "--language", "ENGLISH", "--client", "BB", "--user",
               "7", "--access-level", "3", "--oracle", "--trace-sql", "statements.txt"});
    EXPECT_EQ(options.database, "Provider=SQLite;Data Source=a b.db");
    EXPECT_TRUE(options.English());
    EXPECT_EQ(options.client, "BB");
    EXPECT_EQ(options.user, 7);
    EXPECT_EQ(options.accessLevel, 3);
    EXPECT_TRUE(options.oracle);
    EXPECT_EQ(options.traceFile, "statements.txt");
    EXPECT_EQ(Parse({"--tour", "pictures"}).tourFolder, "pictures");
    EXPECT_TRUE(Parse({"--help"}).help);
    EXPECT_TRUE(Parse({"--version"}).version);
}

TEST(HostOptions, AValueMayStandBehindAnEqualsSign)
{
    EXPECT_EQ(Parse({"--database=Provider=SQLite;Data Source=a.db"}).database, "Provider=SQLite;Data Source=a.db");
}

TEST(HostOptions, OfAnOptionGivenTwiceTheLastCounts)
{
    EXPECT_EQ(Parse({"--client", "BB", "--client", "SACHSEN"}).client, "SACHSEN");
}

TEST(HostOptions, AnEmptyClientIsTheInstallationWithoutACode)
{
    EXPECT_EQ(Parse({"--client", "BB", "--client="}).client, "");
}

TEST(HostOptions, LevelZeroIsALevelAndNotTheUsersOwn)
{
    EXPECT_EQ(Parse({"--access-level", "0"}).accessLevel, 0);
}

TEST(HostOptions, AnUnknownOptionIsNamed)
{
    EXPECT_EQ(Refusal({"--colour"}), "unknown option \"--colour\"; korvex_host --help lists the options");
    EXPECT_NE(Refusal({"-x"}).find("\"-x\""), std::string::npos);
}

TEST(HostOptions, AStrayArgumentIsNamed)
{
    EXPECT_NE(Refusal({"forest.db"}).find("unexpected argument \"forest.db\""), std::string::npos);
}

TEST(HostOptions, AForgottenValueIsToldAndNotTakenFromTheNextOption)
{
    EXPECT_NE(Refusal({"--database"}).find("--database needs a value"), std::string::npos);
    EXPECT_NE(Refusal({"--client", "--oracle"}).find("--client needs a value"), std::string::npos);
}

TEST(HostOptions, AFlagTakesNoValue)
{
    EXPECT_NE(Refusal({"--oracle=1"}).find("--oracle takes no value"), std::string::npos);
}

TEST(HostOptions, IdsAreWholeNumbersFromZeroOn)
{
    for (const std::string_view wrong : {"", "x", "1x", "-1", "1.5", "99999999999"}) {
        EXPECT_NE(Refusal({"--user", wrong}).find("--user needs a whole number"), std::string::npos) << wrong;
        EXPECT_NE(Refusal({"--access-level", wrong}), "") << wrong;
    }
}

TEST(HostOptions, TheLanguageIsOneOfTwo)
{
    EXPECT_EQ(Parse({"--language", "english"}).language, "ENGLISH");
    EXPECT_NE(Refusal({"--language", "LATIN"}).find("DEUTSCH or ENGLISH, not \"LATIN\""), std::string::npos);
}

TEST(HostOptions, NamesOfFilesAndDatabasesMustNotBeEmpty)
{
    EXPECT_NE(Refusal({"--database", " "}), "");
    EXPECT_NE(Refusal({"--trace-sql="}), "");
    EXPECT_NE(Refusal({"--tour", ""}), "");
}

TEST(HostOptions, ATourBringsItsOwnDatabase)
{
    EXPECT_NE(Refusal({"--tour", "pictures", "--database", "Provider=SQLite"}).find("--tour"), std::string::npos);
}

TEST(HostOptions, HelpNamesEveryOptionAndTheUsersOfTheSampleDatabase)
{
    const std::string help = HelpText();
    for (const std::string_view word :
         {"--database STRING", "--language NAME", "--client CODE", "--user ID", "--access-level ID", "--oracle",
          "--trace-sql FILE", "--tour DIR", "--help", "--version", "admin", "gast", "\"wald\""})
        EXPECT_NE(help.find(word), std::string::npos) << word;
}

TEST(HostOptions, AnErrorIsOneLineWhateverTheProviderSays)
{
    EXPECT_STREQ(StartError("first\r\nsecond\n").what(), "first second");
}
